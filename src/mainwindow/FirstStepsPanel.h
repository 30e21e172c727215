#pragma once

#include "mainwindow/Bar.h"
#include "widgets/control.h"
#include "yearbook/FirstSteps.h"

namespace mainwindow {

// What is to be entered into an empty year, ticked off as it goes. Gone when all is done, and for
// good when it is dismissed.
class FirstStepsPanel final : public Bar {
  Q_OBJECT
 public:
  explicit FirstStepsPanel(QWidget* parent);
  // The steps of the year; before is the name of a filled year that this one can begin with, or "".
  void offer(const yearbook::FieldValues& values, const QString& before);
  void takeAway() { want(false); }

  const widgets::ControlArray<QToolButton, int(yearbook::kFirstSteps.size())> cmdSchritt{
      this, "cmdSchritt"};
  QPushButton* const cmdNichtMehr = widgets::control<QPushButton>(this, "cmdNichtMehr");
  QLabel* const lblSchritt = widgets::control<QLabel>(this, "lblSchritt");
  QPushButton* const cmdZumFeld = widgets::control<QPushButton>(this, "cmdZumFeld");
  QPushButton* const cmdAusVorjahr = widgets::control<QPushButton>(this, "cmdAusVorjahr");

 Q_SIGNALS:
  // The user wants to go to the step's field.
  void chosen(yearbook::FirstStep step);

 private:
  void buildLayout();
  void dismiss();
  void showStep(yearbook::FirstStep step, bool done, bool present);

  yearbook::FirstStep present_ = yearbook::FirstStep::StartReadings;
  QString told_;
};

}  // namespace mainwindow
