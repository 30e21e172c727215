#pragma once

#include <QLabel>
#include <QTreeWidget>

#include "analysis/Forecast.h"
#include "analysis/ui/ReportWindow.h"
#include "analysis/ui/SceneView.h"

class QFrame;

// What a year will come to: a card for each utility, a row for each meter, the chosen
// meter's months as read and as expected, and what all that rests on.
class frmPrognose final : public analysis::ReportWindow {
  Q_OBJECT
 public:
  // open: the year that is open, nullptr where none is.
  frmPrognose(const dialogs::Services& services, analysis::Year year,
              const yearbook::YearSession* open, QWidget* parent);

  QLabel* const lblErgebnis = widgets::control<QLabel>(this, "lblErgebnis");
  QTreeWidget* const lstZaehler = widgets::control<QTreeWidget>(this, "lstZaehler");
  QLabel* const lblGrundlage = widgets::control<QLabel>(this, "lblGrundlage");
  analysis::SceneView* const picMonate = new analysis::SceneView(QStringLiteral("picMonate"), this);

  const analysis::Forecast& forecast() const { return forecast_; }

 protected:
  reports::Grid shownTable() const override;
  reports::Grid csvTable() const override;

 private:
  void buildLayout();
  QWidget* buildCards();
  QFrame* buildCard(yearbook::Utility utility);
  void fillTable();
  void showChart();

  analysis::YearFolder folder_;
  analysis::Year year_;
  analysis::Forecast forecast_;
};
