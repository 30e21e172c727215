#pragma once

#include <QShowEvent>

#include "charts/YearData.h"
#include "charts/ui/ChartWindow.h"

// The monthly consumptions of the open year as a chart. Reads the year anew whenever it becomes
// active or another selection is made; remembers chart type and 3-D switch in the data folder.
class frmDiagramm final : public charts::ChartWindow {
  Q_OBJECT
 public:
  // mode: "alle", "strom", "nachtstrom", "gas", "wasser", "abwasser" or "ww". The chart table is up
  // to date.
  frmDiagramm(const dialogs::Services& services, const yearbook::YearSession& year,
              const QString& mode, QWidget* parent = nullptr);

  // Member 0 is hidden and set until a selection is made.
  const widgets::ControlArray<QRadioButton, charts::kSelectionCount> Option1{this, "Option1"};

  void done(int result) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void load();
  void draw() override;
  void Option1Click(int index);

  const yearbook::YearSession& year_;
  charts::Selection selection_;
};
