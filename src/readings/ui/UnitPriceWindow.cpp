#include "readings/ui/UnitPriceWindow.h"

#include <QGridLayout>

#include "widgets/Rule.h"
#include "yearbook/FieldRules.h"

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
  lblOffen->lock(session_, changing);
}

void UnitPriceWindow::setTexts() {
  Frame1->setTitle(utf8(texts_.frame));
  lblNewPrice->setText(u"&Neuer Preis"_s);
  lblNewPrice->setBuddy(newPrice);
  lblUnit->setText(utf8(texts_.unit));
  lblHint->setText(u"Aktivieren Sie die Checkboxen in denen der Preis angepasst werden soll."_s);
  newPrice->setAccessibleName(u"Neuer Preis in "_s + lblUnit->text());
  newPrice->setToolTip(utf8(texts_.frame));
  Command1->setText(u"&Übernehmen"_s);
  cmdAbschlW2->setText(utf8(texts_.invert));
  makeCloseButton(Command2);
  const auto names = session_.monthNames(utilityOf(meter_));
  for (int k = 0; k < kMonths; ++k) {
    const QString name = QString::fromStdString(names[k]);
    Check1(k)->setText(name);
    Check1(k)->setAccessibleName(name);
    monthPrice(k)->setAccessibleName(u"Preis "_s + name);
  }
}

void UnitPriceWindow::arrange() {
  newPrice->setDecimals(kDecimals.least, kDecimals.most);
  setDigits(newPrice, kPriceDigits);
  lblHint->setWordWrap(true);
  lblHint->setForegroundRole(QPalette::PlaceholderText);
  auto* entry = new QHBoxLayout;
  entry->setSpacing(8);
  entry->addWidget(lblNewPrice);
  entry->addStretch();
  entry->addWidget(newPrice);
  entry->addWidget(lblUnit);
  auto* frame = new QVBoxLayout(Frame1);
  frame->setContentsMargins(12, 8, 12, 12);
  frame->setSpacing(8);
  frame->addLayout(entry);
  frame->addWidget(widgets::makeRule(Frame1));
  frame->addWidget(lblHint);
  frame->addLayout(arrangeMonths());
  frame->addWidget(cmdAbschlW2, 0, Qt::AlignLeft);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(14, 12, 14, 12);
  window->setSpacing(12);
  window->addWidget(Frame1, 1);
  window->addWidget(lblOffen);
  window->addLayout(buttonRow({}, {Command1, Command2}));
  tameButtons();
}

QGridLayout* UnitPriceWindow::arrangeMonths() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(2);
  grid->setColumnStretch(0, 1);
  for (int k = 0; k < kMonths; ++k) {
    makeDisplay(monthPrice(k));
    monthPrice(k)->setDecimals(kDecimals.least, kDecimals.most);
    setDigits(monthPrice(k), kPriceDigits);
    grid->addWidget(Check1(k), k, 0);
    grid->addWidget(monthPrice(k), k, 1);
    grid->addWidget(new QLabel(lblUnit->text(), this), k, 2);
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
  for (QCheckBox* box : Check1)
    connect(box, &QCheckBox::toggled, this, &UnitPriceWindow::showPreview);
  connect(Command1, &QPushButton::clicked, this, &UnitPriceWindow::Command1Click);
  connect(cmdAbschlW2, &QPushButton::clicked, this, &UnitPriceWindow::cmdAbschlW2Click);
}

void UnitPriceWindow::Command1Click() {
  // What was typed stays for another try.
  const auto done = storePrices(session_, meter_, ticks(), newPrice->value());
  failed_ = !told(done);
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
}

MonthTicks UnitPriceWindow::ticks() const {
  MonthTicks ticked{};
  for (int k = 0; k < kMonths; ++k) ticked[k] = Check1(k)->isChecked();
  return ticked;
}

}  // namespace readings
