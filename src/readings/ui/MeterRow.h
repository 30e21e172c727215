#pragma once

#include <QCheckBox>

#include "readings/MonthSheet.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/MarkedLabel.h"
#include "readings/ui/MeterLook.h"

class QGridLayout;

namespace readings {

// A meter's lines on the sheet of a month: reading, what follows from it, and a meter change.
class MeterRow : public QObject {
  Q_OBJECT
 public:
  // Adds its lines to the grid; the controls are named after the meter's number.
  MeterRow(Meter meter, QWidget* window, QGridLayout* grid, int firstLine);
  static constexpr int kLines = 3;
  enum Column { kName, kBefore, kField, kUnit, kUsed, kUsedUnit, kUsual, kCost, kBox };

  MarkedLabel* const lblZaehler;
  MarkedLabel* const lblDavor;
  widgets::NumberField* const txtStand;
  MarkedLabel* const lblVerbrauch;
  MarkedLabel* const lblUeblich;
  QLabel* const lblKosten;
  QCheckBox* const chkWechsel;
  QCheckBox* const chkWieWasser;  // waste water only, else nullptr
  widgets::NumberField* const txtAlterEndstand;
  widgets::NumberField* const txtNeuerAnfang;
  MarkedLabel* const lblWechsel;
  MarkedLabel* const lblHinweis;

  Meter meter() const { return meter_; }
  bool isShown() const { return shown_; }
  void setShown(bool shown);

  // The month of the stored year, which the window keeps. monthRead is that of the last reading
  // before it; "" when that is the month before, as the column's head has it.
  void load(const MeterYear& year, int position, const QString& monthRead, double vat);
  // Another meter's entry instead of an own one; nullptr: its own.
  void follow(const MeterRow* other);
  MonthEntry entry() const;
  // What would be stored; nothing typed and nothing stored: nullopt.
  std::optional<MonthOutcome> outcome() const;
  // Gross.
  std::optional<Money> cost() const;
  bool isDoubtful() const;
  void showOutcome();

 Q_SIGNALS:
  void edited();

 private:
  void place(QGridLayout* grid, int line);
  void showChangeLine();

  const Meter meter_;
  QLabel* const mark_;
  QLabel* const lblEinheit_;
  QLabel* const lblVerbrauchseinheit_;
  const MeterRow* followed_ = nullptr;
  QWidget* changeLine_;
  MeterYear year_;
  int position_ = 0;
  double vat_ = 0;
  bool shown_ = true;
};

}  // namespace readings
