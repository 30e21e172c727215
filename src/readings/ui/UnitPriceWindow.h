#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>

#include "readings/UnitPrices.h"
#include "readings/ui/EntryNote.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/WindowTexts.h"
#include "widgets/control.h"

class QGridLayout;

namespace readings {

// One new unit price for the ticked months.
class UnitPriceWindow : public EntryWindow {
  Q_OBJECT
  const PriceTexts& texts_;  // names the fields below
  const Meter meter_;

 public:
  UnitPriceWindow(Meter meter, dialogs::Services& services, yearbook::YearSession& session,
                  QWidget* parent);

  QGroupBox* const Frame1 = widgets::control<QGroupBox>(this, "Frame1");
  QLabel* const lblNewPrice = widgets::control<QLabel>(this, "lblNewPrice");
  QLabel* const lblUnit = widgets::control<QLabel>(this, "lblUnit");
  QLabel* const lblHint = widgets::control<QLabel>(this, "lblHint");
  // "txtJeKwsTag" and its like, "txtJeEinheitT" and its like.
  widgets::NumberField* const newPrice =
      widgets::control<widgets::NumberField>(this, texts_.newPriceName);
  const widgets::ControlArray<widgets::NumberField, 12> monthPrice{this, texts_.monthPriceName};
  const widgets::ControlArray<QCheckBox, 12> Check1{this, "Check1"};
  // Ticks the months from this one on and no others: "ab Mai".
  const widgets::ControlArray<QToolButton, 12> cmdAb{this, "cmdAb"};
  MarkedLabel* const lblZweifel = widgets::control<MarkedLabel>(this, "lblZweifel");
  EntryNote* const lblOffen = new EntryNote(this);
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");
  QPushButton* const cmdAbschlW2 = widgets::control<QPushButton>(this, "cmdAbschlW2");

  // After the window has closed: what became of a price for which no month was ticked, or "".
  QString notTaken() const { return notTaken_; }

 protected:
  bool mayClose() override;

 private:
  void setTexts();
  void arrange();
  QGridLayout* arrangeMonths();
  void connectControls();

  void Command1Click();
  void cmdAbschlW2Click();
  void tickFrom(int first);
  void tickRange(int clicked);
  void load();
  void showPreview();
  void showDoubt();
  bool isForNoMonth() const;
  MonthTicks ticks() const;
  bool isOpen() const;

  bool failed_ = false;  // the last take over
  int lastTicked_ = 0;   // where a range begins
  QString notTaken_;
};

}  // namespace readings
