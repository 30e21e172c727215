#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

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
  EntryNote* const lblOffen = new EntryNote(this);
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");
  QPushButton* const cmdAbschlW2 = widgets::control<QPushButton>(this, "cmdAbschlW2");

 protected:
  bool mayClose() override;

 private:
  void setTexts();
  void arrange();
  QGridLayout* arrangeMonths();
  void connectControls();

  void Command1Click();
  void cmdAbschlW2Click();
  void load();
  void showPreview();
  MonthTicks ticks() const;
  bool isOpen() const;

  bool failed_ = false;  // the last take over
};

}  // namespace readings
