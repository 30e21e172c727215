#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "widgets/NumberField.h"
#include "widgets/control.h"
#include "yearbook/ui/FigureGroup.h"
#include "yearbook/ui/YearEditor.h"

class QGridLayout;

namespace yearbook {

class ConsumptionBar;

// The names of the controls of one utility's month lines.
struct MonthTableNames {
  const char* frame;
  const char* month;
  const char* check;
  const char* consumption;
  const char* advance;
  const char* advanceSum;
  const char* zeroAdvances;
  const char* fillAdvances;
  const char* recordMonth;
};

// The twelve months of a utility, a line each: month, consumption, advance payment; their sums
// below. The current month stands out.
class MonthTable final : public TitledFrame {
  Q_OBJECT
 public:
  MonthTable(QWidget* parent, YearEditor& editor, Utility utility, const MonthTableNames& names,
             const QString& unit);

  const widgets::ControlArray<QLabel, kMonths> month;
  // Never shown: the new month names when the start month moves.
  const widgets::ControlArray<QCheckBox, kMonths> check;
  const widgets::ControlArray<QLabel, kMonths> consumption;
  const widgets::ControlArray<widgets::NumberField, kMonths> advance;
  DerivedField* const advanceSum;
  QPushButton* const zeroAdvances;
  // The payment of the month whose field had the focus last, for all that follow.
  QPushButton* const fillAdvances;
  QPushButton* const recordMonth;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildHeader(QGridLayout* grid);
  void buildLines(QGridLayout* grid);
  void buildSums(QGridLayout* grid);
  void buildButtons(QGridLayout* grid);
  void bindAdvances();
  void fillFrom(int first);
  void nameFillButton();
  void showDoubts();
  void showValues();

  YearEditor& editor_;
  Utility utility_;
  QString unit_;
  QLabel* consumptionSum_;
  QLabel* onlyDay_ = nullptr;  // beside a night meter; nullptr where there is none
  PerMonth<ConsumptionBar*> bars_{};
  PerMonth<QWidget*> marks_{};
  PerMonth<QLabel*> doubts_{};  // in a bar's place
  int lastMonth_ = 0;           // whose payment had the focus last
};

}  // namespace yearbook
