#pragma once

#include <QButtonGroup>

#include "readings/MeterReading.h"
#include "readings/ui/ChangeOption.h"
#include "readings/ui/ColumnHeader.h"
#include "readings/ui/EntryNote.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/HintLabel.h"
#include "widgets/control.h"
#include "yearbook/FieldRules.h"

class QGridLayout;

namespace readings {

// The twelve readings of one meter, the month of a meter change, and what each month used.
class MeterReadingWindow : public EntryWindow {
  Q_OBJECT
 public:
  MeterReadingWindow(Meter meter, dialogs::Services& services, YearSession& session,
                     QWidget* parent);

  ColumnHeader* const lblHeader = widgets::control<ColumnHeader>(this, "lblHeader");
  QLabel* const lblAnfStand = widgets::control<QLabel>(this, "lblAnfStand");
  widgets::NumberField* const txtAnfStand =
      widgets::control<widgets::NumberField>(this, "txtAnfStand");
  QLabel* const Label4 = widgets::control<QLabel>(this, "Label4");
  widgets::NumberField* const txtWechsel =
      widgets::control<widgets::NumberField>(this, "txtWechsel");
  const widgets::ControlArray<MarkedLabel, 12> lblMo{this, "lblMo"};
  const widgets::ControlArray<widgets::NumberField, 12> txtVerbrauch{this, "txtVerbrauch"};
  const widgets::ControlArray<ChangeOption, 13> optWechsel{this, "optWechsel"};
  const widgets::ControlArray<MarkedLabel, 12> lblMoV{this, "lblMoV"};
  const widgets::ControlArray<QLabel, 12> lblVerbrauch{this, "lblVerbrauch"};
  const widgets::ControlArray<HintLabel, 12> lblHint{this, "lblHint"};
  EntryNote* const lblOffen = new EntryNote(this);
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");
  QPushButton* const Command3 = widgets::control<QPushButton>(this, "Command3");
  QPushButton* const Command4 = widgets::control<QPushButton>(this, "Command4");
  QPushButton* cmdWieWasser = nullptr;  // of waste water only
  QPushButton* const Command5 = widgets::control<QPushButton>(this, "Command5");

 protected:
  bool mayClose() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // --- making
  void setTexts();
  void nameMonths();
  void arrange();
  void arrangeMonth(int k);
  void setTabOrders();
  void connectFields();
  void connectButtons();

  // --- the buttons and options
  bool Command1Click();
  void Command3Click();
  void Command4Click();
  void offerWater();
  void takeWater();
  void optWechselClick(int k);
  void optWechselMouseUp();
  // After a step back or forward.
  void showEntries();

  // --- between fields and rows
  void showStored();
  void focusOpenMonth();
  void showConsumptions();
  void showHints();
  void resetChange();
  void placeReadings(int from, QWidget* column);
  void showOpen();
  bool isFraction(int k) const;
  widgets::NumberField* firstFraction() const;
  QString filterWhole(const QString& input);
  void tellWholeUnits();
  PerMonth<double> readings() const;
  MeterChange change() const;

  const Meter meter_;
  const yearbook::EntryKind units_;
  QGridLayout* const grid_;
  QButtonGroup changeGroup_;
  MeterChange storedChange_;
  PerMonth<double> loaded_{};
  int currentRow_ = 0;
  bool dirty_ = false;
};

}  // namespace readings
