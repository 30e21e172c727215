#include "yearbook/ui/MonthTable.h"

#include <QEvent>
#include <QGridLayout>
#include <QShortcut>

#include "widgets/FieldMark.h"
#include "widgets/Rule.h"
#include "yearbook/Advances.h"
#include "yearbook/FieldTexts.h"
#include "yearbook/ValueDoubts.h"
#include "yearbook/ui/ConsumptionBar.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

enum GridColumn { kMonth, kConsumption, kUnit, kBar, kAdvance, kEuro, kColumns };
constexpr int kHintRow = 0;
constexpr int kHeaderRow = 1;
constexpr int kFirstMonthRow = 2;
constexpr int kRuleRow = kFirstMonthRow + kMonths;
constexpr int kSumRow = kRuleRow + 1;
constexpr int kButtonRow = kSumRow + 1;

QLabel* heading(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return label;
}

QString advanceHint() {
  return u"Geben Sie hier Ihre monatlichen Abschläge ein. ( Brutto )"_s;
}

QString monthName(const MonthTexts& texts, int i) {
  return QString::fromStdString(texts.names[i]);
}

}  // namespace

MonthTable::MonthTable(QWidget* parent, YearEditor& editor, Utility utility,
                       const MonthTableNames& names, const QString& unit)
    : TitledFrame(u"Monate"_s, parent),
      month(this, names.month),
      check(this, names.check),
      consumption(this, names.consumption),
      advance(this, names.advance),
      advanceSum(widgets::control<DerivedField>(this, names.advanceSum)),
      zeroAdvances(widgets::control<QPushButton>(this, names.zeroAdvances)),
      fillAdvances(widgets::control<QPushButton>(this, names.fillAdvances)),
      recordMonth(widgets::control<QPushButton>(this, names.recordMonth)),
      editor_(editor),
      utility_(utility),
      unit_(unit),
      consumptionSum_(heading({}, this)) {
  setObjectName(QString::fromLatin1(names.frame));
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(2);
  grid->setContentsMargins(8, 8, 10, 8);
  grid->setColumnStretch(kBar, 1);
  grid->setColumnMinimumWidth(kMonth, 90);
  buildHeader(grid);
  buildLines(grid);
  buildSums(grid);
  buildButtons(grid);
  bindAdvances();
  connect(zeroAdvances, &QPushButton::clicked, this,
          [this] { editor_.run([this] { return editor_.session().zeroAdvances(utility_); }); });
  connect(&editor_, &YearEditor::changed, this, &MonthTable::showValues);
}

void MonthTable::buildHeader(QGridLayout* grid) {
  grid->setRowMinimumHeight(kHeaderRow, 22);
  auto* hint = new QLabel(advanceHint(), this);
  hint->setContentsMargins(4, 0, 0, 0);
  hint->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  hint->setForegroundRole(QPalette::PlaceholderText);
  grid->addWidget(hint, kHintRow, 0, 1, kColumns);
  auto* monthHeading = heading(u"Monat"_s, this);
  monthHeading->setContentsMargins(4, 0, 0, 0);
  grid->addWidget(monthHeading, kHeaderRow, kMonth);
  grid->addWidget(heading(u"Verbrauch"_s, this), kHeaderRow, kConsumption,
                  Qt::AlignRight | Qt::AlignVCenter);
  if (utility_ == Utility::Electricity) {
    onlyDay_ = new QLabel(u"nur Tagstrom"_s, this);
    onlyDay_->setObjectName(u"lblNurTagstrom"_s);
    onlyDay_->setForegroundRole(QPalette::PlaceholderText);
    grid->addWidget(onlyDay_, kHeaderRow, kBar, Qt::AlignLeft | Qt::AlignVCenter);
  }
  auto* advanceHeading = heading(u"Abschlag"_s, this);
  advanceHeading->setContentsMargins(0, 0, textInset(*advance(0)), 0);
  grid->addWidget(advanceHeading, kHeaderRow, kAdvance, Qt::AlignRight | Qt::AlignVCenter);
}

void MonthTable::buildLines(QGridLayout* grid) {
  for (int i = 0; i < kMonths; ++i) {
    const int row = kFirstMonthRow + i;
    auto* mark = new LineMark(this);
    mark->lower();
    marks_[i] = mark;
    bars_[i] = new ConsumptionBar(factsOf(utility_).mainMeter, this);
    doubts_[i] = new QLabel(u"⚠ unter 0"_s, this);
    doubts_[i]->setObjectName(consumption(i)->objectName() + u"_Zweifel"_s);
    doubts_[i]->setToolTip(u"Der Stand ist niedriger als der davor, ohne einen Zählerwechsel."_s);
    widgets::setTone(doubts_[i], widgets::Tone::Doubt);
    consumption(i)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    advance(i)->setFixedWidth(numberWidth(advance(i)));
    advance(i)->setToolTip(advanceHint());
    month(i)->setContentsMargins(4, 0, 0, 0);
    check(i)->hide();
    check(i)->setFocusPolicy(Qt::NoFocus);
    grid->addWidget(mark, row, 0, 1, kColumns);
    grid->addWidget(month(i), row, kMonth);
    grid->addWidget(consumption(i), row, kConsumption);
    grid->addWidget(new QLabel(unit_, this), row, kUnit);
    grid->addWidget(bars_[i], row, kBar);
    grid->addWidget(doubts_[i], row, kBar);
    // Aligned, or the fixed height of the field would keep the lines from growing.
    grid->addWidget(advance(i), row, kAdvance, Qt::AlignVCenter);
    grid->addWidget(new QLabel(u"Euro"_s, this), row, kEuro);
    grid->setRowStretch(row, 1);
  }
}

void MonthTable::buildSums(QGridLayout* grid) {
  grid->addWidget(widgets::makeRule(this), kRuleRow, 0, 1, kColumns);
  auto* sum = heading(u"Summe"_s, this);
  sum->setContentsMargins(4, 0, 0, 0);
  grid->addWidget(sum, kSumRow, kMonth);
  consumptionSum_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  consumptionSum_->setAccessibleName(u"Summe des Verbrauchs"_s);
  grid->addWidget(consumptionSum_, kSumRow, kConsumption);
  grid->addWidget(new QLabel(unit_, this), kSumRow, kUnit);
  advanceSum->emphasize();
  advanceSum->setAccessibleName(u"Summe der Abschläge"_s);
  advanceSum->setFixedWidth(numberWidth(advanceSum));
  grid->addWidget(advanceSum, kSumRow, kAdvance);
  grid->addWidget(new QLabel(u"Euro"_s, this), kSumRow, kEuro);
}

void MonthTable::buildButtons(QGridLayout* grid) {
  zeroAdvances->setText(u"&Alle Monate auf 0,00 setzen"_s);
  zeroAdvances->setAccessibleName(u"Abschläge: Alle Monate auf 0,00 setzen"_s);
  fillAdvances->setText(u"Nach unten füllen"_s);
  auto* key = new QShortcut(QKeySequence(u"Ctrl+D"_s), this);
  key->setContext(Qt::WidgetWithChildrenShortcut);
  connect(key, &QShortcut::activated, this, [this] { fillFrom(lastMonth_); });
  connect(fillAdvances, &QPushButton::clicked, this, [this] { fillFrom(lastMonth_); });
  // Below one another: three in a row are wider than a small screen has room for.
  grid->addWidget(fillAdvances, kButtonRow, kBar, 1, kColumns - kBar, Qt::AlignRight);
  grid->addWidget(zeroAdvances, kButtonRow + 1, kBar, 1, kColumns - kBar, Qt::AlignRight);
  recordMonth->setText(u"&Monat erfassen…"_s);
  recordMonth->setToolTip(u"Die Stände aller Zähler für einen Monat eingeben (Strg+M)"_s);
  recordMonth->setAccessibleName(u"Monat erfassen"_s);
  grid->addWidget(recordMonth, kButtonRow, kMonth, 1, kBar - kMonth, Qt::AlignLeft);
}

void MonthTable::bindAdvances() {
  for (int i = 0; i < kMonths; ++i) {
    advance(i)->installEventFilter(this);
    editor_.bind(
        {advance(i), EntryKind::Amount,
         [this, i](const FieldValues& values) { return euro(values.advances[utility_][i]); },
         [this, i](std::optional<double> value) -> base::Result<void> {
           const std::string name = editor_.session().monthNames(utility_)[i];
           const auto amount =
               toMoney(value, name + ", " + std::string(factsOf(utility_).advance->words));
           if (!amount) return base::Failure(amount.error());
           return editor_.session().storeAdvance(utility_, i, *amount);
         }});
  }
}

bool MonthTable::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    for (int i = 0; i < kMonths; ++i)
      if (advance(i) == watched) {
        lastMonth_ = i;
        nameFillButton();
      }
  return TitledFrame::eventFilter(watched, event);
}

void MonthTable::nameFillButton() {
  fillAdvances->setToolTip(u"Den Abschlag aus %1 für alle Monate danach übernehmen (Strg+D)"_s.arg(
      month(lastMonth_)->text()));
  fillAdvances->setAccessibleName(
      u"Abschläge ab %1 nach unten füllen"_s.arg(month(lastMonth_)->text()));
}

void MonthTable::fillFrom(int first) {
  editor_.endEntry();
  editor_.run([&] { return yearbook::fillAdvances(editor_.session(), utility_, first); });
}

void MonthTable::showValues() {
  const MonthTexts texts =
      monthTexts(editor_.values(), utility_, editor_.session().currentMonthName());
  for (int i = 0; i < kMonths; ++i) {
    const QString name = monthName(texts, i);
    const bool current = i == texts.current;
    QFont font = this->font();
    font.setBold(current);
    month(i)->setText(name);
    month(i)->setFont(font);
    check(i)->setText(name);
    consumption(i)->setText(QString::fromStdString(texts.consumptions[i]));
    consumption(i)->setAccessibleName(u"Verbrauch "_s + name);
    advance(i)->setAccessibleName(u"Abschlag "_s + name);
    marks_[i]->setVisible(current);
    bars_[i]->setShare(texts.shares[i]);
  }
  if (onlyDay_) onlyDay_->setVisible(editor_.values().nightShown);
  consumptionSum_->setText(QString::fromStdString(texts.consumptionSum));
  advanceSum->setText(QString::fromStdString(texts.advanceSum));
  const bool writable = !editor_.session().database().writeObstacle();
  zeroAdvances->setEnabled(writable);
  fillAdvances->setEnabled(writable);
  nameFillButton();
  showDoubts();
}

void MonthTable::showDoubts() {
  const FieldValues& values = editor_.values();
  PerMonth<double> paid{};
  for (int i = 0; i < kMonths; ++i) paid[i] = orZero(euro(values.advances[utility_][i]));
  for (int i = 0; i < kMonths; ++i) {
    const auto words = amountDoubt(paid[i], othersThan(i, paid));
    widgets::markField(advance(i), widgets::Tone::Doubt, QString::fromStdString(words));
    const bool negative = orZero(values.consumptions[factsOf(utility_).mainMeter][i]) < 0;
    doubts_[i]->setVisible(negative);
    widgets::setTone(consumption(i), negative ? std::optional(widgets::Tone::Doubt) : std::nullopt);
    consumption(i)->setToolTip(negative ? doubts_[i]->toolTip() : QString());
  }
}

}  // namespace yearbook
