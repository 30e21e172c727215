#pragma once

#include <QGroupBox>

#include "readings/BaseFees.h"
#include "readings/ui/EntryNote.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/MarkedLabel.h"
#include "widgets/control.h"

class QGridLayout;

namespace readings {

// The base fee of each month; their sum is the year's base fee.
class BaseFeeWindow : public EntryWindow {
  Q_OBJECT
 public:
  BaseFeeWindow(Meter meter, dialogs::Services& services, yearbook::YearSession& session,
                QWidget* parent);

  QGroupBox* const Frame1 = widgets::control<QGroupBox>(this, "Frame1");
  const widgets::ControlArray<MarkedLabel, 12> lblMo{this, "lblMo"};
  const widgets::ControlArray<widgets::NumberField, 12> txtVerbrauch{this, "txtVerbrauch"};
  QLabel* const lblSum = widgets::control<QLabel>(this, "lblSum");
  // The year's fee that the sum replaces, and the first month that looks wrong.
  MarkedLabel* const lblBisher = widgets::control<MarkedLabel>(this, "lblBisher");
  MarkedLabel* const lblZweifel = widgets::control<MarkedLabel>(this, "lblZweifel");
  EntryNote* const lblOffen = new EntryNote(this);
  MarkedLabel* const lblCurrentMonth = widgets::control<MarkedLabel>(this, "lblCurrentMonth");
  QPushButton* const cmdAlleGleich = widgets::control<QPushButton>(this, "cmdAlleGleich");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");
  QPushButton* const Command3 = widgets::control<QPushButton>(this, "Command3");

 protected:
  bool mayClose() override;

 private:
  void setTexts();
  void arrange();
  QGridLayout* arrangeMonths();
  void arrangeSum(QGridLayout* grid);
  void connectControls();

  void Command1Click();
  void Command3Click();
  void showStored();
  void fillFromFirst();
  void showSum();
  void showDoubts();
  MonthlyFees fees() const;

  const Meter meter_;
  MonthlyFees stored_{};
  bool byButton_ = false;
  bool failed_ = false;  // the last take over
};

}  // namespace readings
