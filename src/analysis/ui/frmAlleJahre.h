#pragma once

#include <QButtonGroup>
#include <QLabel>
#include <QTreeWidget>

#include "analysis/AllYears.h"
#include "analysis/ui/ReportWindow.h"
#include "analysis/ui/SceneView.h"

// All years of the data folder side by side: the table, sorted by any column, and charts of the
// meter in the chosen row. Several chosen years are the lines of the chart, else all.
class frmAlleJahre final : public analysis::ReportWindow {
  Q_OBJECT
 public:
  // open: the year that is open, read from its session; nullptr where none is.
  frmAlleJahre(const dialogs::Services& services, const yearbook::YearSession* open,
               QWidget* parent);

  QButtonGroup* const grpZaehler = new QButtonGroup(this);
  QLabel* const lblJahre = widgets::control<QLabel>(this, "lblJahre");
  QTreeWidget* const lstJahre = widgets::control<QTreeWidget>(this, "lstJahre");
  QLabel* const lblFehlt = widgets::control<QLabel>(this, "lblFehlt");
  analysis::SceneView* const picJahre = new analysis::SceneView(QStringLiteral("picJahre"), this);
  analysis::SceneView* const picMonate = new analysis::SceneView(QStringLiteral("picMonate"), this);
  analysis::SceneView* const picPreise = new analysis::SceneView(QStringLiteral("picPreise"), this);

 protected:
  reports::Grid shownTable() const override;
  reports::Grid csvTable() const override;

 private:
  void buildLayout();
  QWidget* buildSegments();
  void fill(int segment);
  void showCharts();
  // What a row is about, as its item keeps it.
  struct Place {
    int year = 0;
    int meter = -1;  // -1: all
  };
  Place placeOf(const QTreeWidgetItem* item) const;
  std::vector<int> chosenYears() const;

  analysis::YearFolder folder_;
  std::vector<analysis::YearFigures> figures_;
  int front_ = -1;
};
