#include "readings/ui/UnitPriceWindow.h"

#include <QApplication>
#include <QGridLayout>
#include <algorithm>
#include <utility>

#include "dialogs/GrossButton.h"
#include "widgets/FieldMark.h"
#include "widgets/Rule.h"
#include "yearbook/FieldRules.h"
#include "yearbook/FieldTexts.h"
#include "yearbook/ValueDoubts.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
namespace {

using yearbook::kMonths;

constexpr int kPriceDigits = 10;
const yearbook::Decimals kDecimals = yearbook::decimalsOf(yearbook::EntryKind::Price);

}  // namespace

UnitPriceWindow::UnitPriceWindow(Meter meter, dialogs::Services& services,
                                 yearbook::YearSession& session, QWidget* parent)
    : EntryWindow(kPriceTexts[meter].window, kPriceTexts[meter].caption, services, session, parent),
      texts_(kPriceTexts[meter]),
      meter_(meter) {
  setTexts();
  arrange();
  connectControls();
  load();
  new EntryUndo(this, [this] { showPreview(); });
  std::vector<QWidget*> changing{Command1, cmdAbschlW2};
  changing.insert(changing.end(), Check1.begin(), Check1.end());
  changing.insert(changing.end(), cmdAb.begin(), cmdAb.end());
  lblOffen->lock(session_, changing);
}

void UnitPriceWindow::setTexts() {
  Frame1->setTitle(utf8(texts_.frame));
  lblNewPrice->setText(u"&Neuer Preis, netto"_s);
  lblNewPrice->setBuddy(newPrice);
  lblUnit->setText(utf8(texts_.unit));
  lblHint->setText(u"Aktivieren Sie die Checkboxen in denen der Preis angepasst werden soll."_s);
  newPrice->setAccessibleName(u"Neuer Preis in "_s + lblUnit->text());
  newPrice->setToolTip(utf8(texts_.frame) +
                       u"\nOhne MwSt; auf der Rechnung steht meist der Preis mit MwSt."_s);
  Command1->setText(u"&Übernehmen"_s);
  cmdAbschlW2->setText(utf8(texts_.invert));
  makeCloseButton(Command2);
  const auto names = session_.monthNames(utilityOf(meter_));
  for (int k = 0; k < kMonths; ++k) {
    const QString name = QString::fromStdString(names[k]);
    Check1(k)->setText(name);
    Check1(k)->setAccessibleName(name);
    Check1(k)->setToolTip(
        u"Umschalt+Klick setzt alle Monate bis zum zuletzt angeklickten gleich"_s);
    cmdAb(k)->setText(u"ab "_s + name);
    cmdAb(k)->setAccessibleName(cmdAb(k)->text());
    cmdAb(k)->setToolTip(u"Genau die Monate ab "_s + name + u" markieren"_s);
    monthPrice(k)->setAccessibleName(u"Preis "_s + name);
  }
}

void UnitPriceWindow::arrange() {
  newPrice->setDecimals(kDecimals.least, kDecimals.most);
  setDigits(newPrice, kPriceDigits);
  // Two lines of its own, so that nothing moves when it speaks.
  lblZweifel->setWordWrap(true);
  lblZweifel->setMark(MarkedLabel::Mark::Doubt);
  lblZweifel->setFixedHeight(2 * fontMetrics().lineSpacing());
  lblZweifel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblHint->setWordWrap(true);
  lblHint->setForegroundRole(QPalette::PlaceholderText);
  auto* entry = new QHBoxLayout;
  entry->setSpacing(8);
  entry->addWidget(lblNewPrice);
  entry->addStretch();
  entry->addWidget(newPrice);
  entry->addWidget(lblUnit);
  entry->addWidget(new dialogs::GrossButton(
      newPrice, services_,
      [this] {
        return grossFigure(meter_, Frame1->title(), lblUnit->text(),
                           dialogs::GrossFigure::Period::None);
      },
      this));
  auto* frame = new QVBoxLayout(Frame1);
  frame->setContentsMargins(12, 8, 12, 12);
  frame->setSpacing(8);
  frame->addLayout(entry);
  frame->addWidget(lblZweifel);
  frame->addWidget(widgets::makeRule(Frame1));
  frame->addWidget(lblHint);
  frame->addLayout(arrangeMonths());
  frame->addWidget(cmdAbschlW2, 0, Qt::AlignLeft);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(14, 12, 14, 12);
  window->setSpacing(12);
  window->addWidget(Frame1, 1);
  window->addLayout(footOf(lblOffen, buttonRow({}, {Command1, Command2})));
  tameButtons();
}

QGridLayout* UnitPriceWindow::arrangeMonths() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(1);
  grid->setColumnStretch(0, 1);
  // Even, or half a pixel sets some texts of a line lower than the others.
  const int line = (fontMetrics().height() + 9) / 2 * 2;
  for (int k = 0; k < kMonths; ++k) {
    makeDisplay(monthPrice(k));
    monthPrice(k)->setDecimals(kDecimals.least, kDecimals.most);
    setDigits(monthPrice(k), kPriceDigits);
    grid->addWidget(Check1(k), k, 0);
    cmdAb(k)->setAutoRaise(true);
    cmdAb(k)->setFixedHeight(line);
    cmdAb(k)->setFocusPolicy(Qt::NoFocus);
    grid->addWidget(cmdAb(k), k, 1);
    grid->addWidget(monthPrice(k), k, 2);
    grid->addWidget(new QLabel(lblUnit->text(), this), k, 3);
  }
  return grid;
}

void UnitPriceWindow::connectControls() {
  QWidget* before = newPrice;
  for (QCheckBox* box : Check1) {
    setTabOrder(before, box);
    before = box;
  }
  setTabOrder({before, cmdAbschlW2, Command1, Command2});
  connect(newPrice, &widgets::NumberField::valueChanged, this, &UnitPriceWindow::showPreview);
  for (int k = 0; k < kMonths; ++k) {
    connect(Check1(k), &QCheckBox::toggled, this, &UnitPriceWindow::showPreview);
    connect(Check1(k), &QCheckBox::clicked, this, [this, k] { tickRange(k); });
    connect(cmdAb(k), &QToolButton::clicked, this, [this, k] { tickFrom(k); });
  }
  connect(Command1, &QPushButton::clicked, this, &UnitPriceWindow::Command1Click);
  connect(cmdAbschlW2, &QPushButton::clicked, this, &UnitPriceWindow::cmdAbschlW2Click);
}

void UnitPriceWindow::Command1Click() {
  // What was typed stays for another try.
  const auto done = storePrices(session_, meter_, ticks(), newPrice->value());
  failed_ = !told(done);
  if (!failed_ && isForNoMonth())
    notTaken_ = u"Der neue Preis %1 ist nicht übernommen: kein Monat war markiert."_s.arg(
        QString::fromStdString(yearbook::priceText(newPrice->value())));
  if (!failed_) return accept();
  lblOffen->markFault(done.error().code == base::ErrorCode::InvalidValue ? newPrice : nullptr);
}

// Closing drops what was typed, but not what was meant to be stored.
bool UnitPriceWindow::mayClose() {
  return !failed_ || !isOpen() || goesWithout([this] { Command1Click(); });
}

bool UnitPriceWindow::isOpen() const {
  const auto stored = storedPrices(session_, meter_);
  return previewPrices(stored, ticks(), newPrice->value()) != stored;
}

void UnitPriceWindow::cmdAbschlW2Click() {
  for (QCheckBox* box : Check1) box->setChecked(!box->isChecked());
}

void UnitPriceWindow::tickFrom(int first) {
  for (int k = 0; k < kMonths; ++k) Check1(k)->setChecked(k >= first);
  lastTicked_ = first;
}

// With Shift, also by the space key, everything from the last click on is as this one now.
void UnitPriceWindow::tickRange(int clicked) {
  const bool ticked = Check1(clicked)->isChecked();
  const int from = std::exchange(lastTicked_, clicked);
  if (!QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)) return;
  for (int k = std::min(from, clicked); k <= std::max(from, clicked); ++k)
    Check1(k)->setChecked(ticked);
}

void UnitPriceWindow::load() {
  newPrice->setValue(std::nullopt);
  const MonthTicks withoutPrice = unpriced(storedPrices(session_, meter_));
  for (int k = 0; k < kMonths; ++k) Check1(k)->setChecked(withoutPrice[k]);
  showPreview();
}

void UnitPriceWindow::showPreview() {
  const auto shown = previewPrices(storedPrices(session_, meter_), ticks(), newPrice->value());
  for (int k = 0; k < kMonths; ++k) monthPrice(k)->setValue(shown[k]);
  lblOffen->showOpen(isOpen());
  showDoubt();
}

bool UnitPriceWindow::isForNoMonth() const {
  return newPrice->value() && ticks() == MonthTicks{};
}

void UnitPriceWindow::showDoubt() {
  const auto stored = storedPrices(session_, meter_);
  const QString odd =
      QString::fromStdString(yearbook::priceDoubt(meter_, newPrice->valueOrZero(), stored));
  widgets::markField(newPrice, widgets::Tone::Doubt, odd);
  QString text = odd;
  if (isForNoMonth()) text = u"Kein Monat ist markiert: der neue Preis gilt für keinen."_s;
  lblZweifel->setText(text.isEmpty() ? text : u"⚠ "_s + text);
}

MonthTicks UnitPriceWindow::ticks() const {
  MonthTicks ticked{};
  for (int k = 0; k < kMonths; ++k) ticked[k] = Check1(k)->isChecked();
  return ticked;
}

}  // namespace readings
