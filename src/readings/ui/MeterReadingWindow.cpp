#include "readings/ui/MeterReadingWindow.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "base/GermanNumber.h"
#include "dialogs/Navigator.h"
#include "dialogs/YearKeeper.h"
#include "readings/ReadingHints.h"
#include "readings/ui/WindowTexts.h"
#include "widgets/Rule.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
namespace {

enum Column { kMonth, kReading, kOption, kNewReading, kMonthAgain, kConsumption, kHint, kColumns };
enum Row { kHeader, kHeaderRule, kStart, kFirstMonth };

constexpr int kReadingDigits = 10;

// A number as it would stand in the consumption column.
QString plain(double value) {
  return QString::fromStdString(base::formatShort(value));
}

}  // namespace

MeterReadingWindow::MeterReadingWindow(Meter meter, dialogs::Services& services,
                                       YearSession& session, QWidget* parent)
    : EntryWindow(kReadingTexts[meter].window, kReadingTexts[meter].caption, services, session,
                  parent),
      meter_(meter),
      units_(yearbook::wholeUnitsOf(meter)),
      grid_(new QGridLayout) {
  setTexts();
  if (meter_ == Meter::WasteWater) offerWater();
  nameMonths();
  arrange();
  setTabOrders();
  connectFields();
  connectButtons();
  storedChange_ = readMeterChange(session_.files(), meterChangePath(session_, meter_));
  showStored();
  new EntryUndo(this, [this] { showEntries(); });
  focusOpenMonth();
  std::vector<QWidget*> changing{Command1, Command3, Command4};
  changing.insert(changing.end(), optWechsel.begin(), optWechsel.end());
  lblOffen->lock(session_, changing);
}

// --- making ---

void MeterReadingWindow::setTexts() {
  lblHeader->setText(utf8(kReadingTexts[meter_].header));
  lblAnfStand->setText(u"Anfangszählerstand"_s);
  txtAnfStand->setAccessibleName(u"Anfangszählerstand"_s);
  Label4->setText(u"Anfangszählerstand bei Zählerwechsel"_s);
  txtWechsel->setAccessibleName(Label4->text());
  Command1->setText(utf8(kReadingTexts[meter_].takeOver));
  Command3->setText(u"&Alle Zählerstände löschen"_s);
  Command4->setText(u"&Zählerwechsel löschen"_s);
  Command5->setText(u"&Hilfe"_s);
  Command5->setToolTip(u"Hilfe zum Zählerwechsel"_s);
  Command5->setAccessibleName(u"Hilfe zum Zählerwechsel"_s);
  makeCloseButton(Command2);
}

void MeterReadingWindow::nameMonths() {
  const auto names = session_.monthNames(utilityOf(meter_));
  const std::string current = session_.currentMonthName();
  for (int k = 0; k < kMonths; ++k) {
    const QString name = QString::fromStdString(names[k]);
    for (MarkedLabel* label : {lblMo(k), lblMoV(k)}) {
      label->setText(name);
      if (names[k] == current) label->setMark(MarkedLabel::Mark::Current);
    }
    if (names[k] == current) currentRow_ = k;
    txtVerbrauch(k)->setAccessibleName(u"Zählerstand "_s + name);
    lblVerbrauch(k)->setAccessibleName(u"Verbrauch "_s + name);
    optWechsel(k)->setText(u"Zählerwechsel im "_s + name);
    optWechsel(k)->setAccessibleName(optWechsel(k)->text());
  }
  optWechsel(MeterChange::kNone)->setAccessibleName(u"Kein Zählerwechsel"_s);
}

void MeterReadingWindow::arrange() {
  grid_->setHorizontalSpacing(8);
  grid_->setVerticalSpacing(3);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->addWidget(lblHeader, kHeader, 0, 1, kColumns);
  lblHeader->setColumns({lblMo(0), optWechsel(0), lblMoV(0)});
  grid_->addWidget(widgets::makeRule(this), kHeaderRule, 0, 1, kColumns);
  grid_->addWidget(lblAnfStand, kStart, kMonth);
  grid_->addWidget(txtAnfStand, kStart, kReading);
  grid_->addWidget(Label4, kStart, kOption);
  grid_->addWidget(txtWechsel, kStart, kNewReading);
  grid_->addWidget(Command4, kStart, kMonthAgain, 1, 3, Qt::AlignLeft);
  makeDisplay(txtAnfStand);
  setDigits(txtAnfStand, kReadingDigits);
  setDigits(txtWechsel, kReadingDigits);
  txtWechsel->setDecimals(0, 6);
  // The window keeps its shape when a meter change comes or goes.
  for (QWidget* widget : {static_cast<QWidget*>(Label4), static_cast<QWidget*>(txtWechsel),
                          static_cast<QWidget*>(Command4)}) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
  for (int k = 0; k < kMonths; ++k) arrangeMonth(k);
  optWechsel(MeterChange::kNone)->hide();
  // The first heading ends before the second begins.
  grid_->setColumnMinimumWidth(kMonth, lblHeader->headingWidth(0) - txtAnfStand->minimumWidth());
  grid_->setColumnStretch(kHint, 1);
  grid_->setColumnMinimumWidth(kConsumption, fontMetrics().horizontalAdvance(u"00000000"_s));
  auto* buttons = buttonRow({Command5, Command3}, {Command1, Command2});
  buttons->insertWidget(2, lblOffen);
  if (cmdWieWasser) buttons->insertWidget(2, cmdWieWasser);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(8);
  rows->addLayout(grid_);
  rows->addWidget(widgets::makeRule(this));
  rows->addLayout(buttons);
  letColumnsBePasted({txtVerbrauch.begin(), txtVerbrauch.end()});
  tameButtons();
}

void MeterReadingWindow::arrangeMonth(int k) {
  const int row = kFirstMonth + k;
  setDigits(txtVerbrauch(k), kReadingDigits);
  const auto decimals = yearbook::decimalsOf(units_);
  txtVerbrauch(k)->setDecimals(decimals.least, decimals.most);
  lblVerbrauch(k)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid_->addWidget(lblMo(k), row, kMonth);
  grid_->addWidget(txtVerbrauch(k), row, kReading);
  grid_->addWidget(optWechsel(k), row, kOption);
  grid_->addWidget(lblMoV(k), row, kMonthAgain);
  grid_->addWidget(lblVerbrauch(k), row, kConsumption);
  lblHint(k)->setUsualText(u"ergibt −1000000: "_s + utf8(wordsOf(Doubt::Unusual)));
  grid_->addWidget(lblHint(k), row, kHint);
}

void MeterReadingWindow::setTabOrders() {
  for (int k = 0; k + 1 < kMonths; ++k) {
    setTabOrder(txtVerbrauch(k), txtVerbrauch(k + 1));
    setTabOrder(optWechsel(k), optWechsel(k + 1));
  }
  setTabOrder(txtVerbrauch(kMonths - 1), optWechsel(0));
  setTabOrder(
      {optWechsel(kMonths - 1), txtWechsel, Command4, Command1, Command2, Command3, Command5});
  txtVerbrauch(kMonths - 1)->setEnterMovesOn(false);
}

void MeterReadingWindow::connectFields() {
  for (int k = 0; k < kMonths; ++k) {
    widgets::NumberField* field = txtVerbrauch(k);
    field->setFilter([this](const QString& input) { return filterWhole(input); });
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, [this] { dirty_ = true; });
    connect(field, &widgets::NumberField::valueChanged, this, &MeterReadingWindow::showHints);
  }
  connect(txtWechsel, &QLineEdit::textEdited, this, [this] { dirty_ = true; });
  connect(txtWechsel, &widgets::NumberField::valueChanged, this, &MeterReadingWindow::showHints);
  for (int k = 0; k <= MeterChange::kNone; ++k) changeGroup_.addButton(optWechsel(k), k);
  optWechsel(MeterChange::kNone)->setChecked(true);
  connect(&changeGroup_, &QButtonGroup::idToggled, this, [this](int k, bool checked) {
    if (checked) optWechselClick(k);
  });
  for (int k = 0; k < kMonths; ++k) {
    connect(optWechsel(k), &ChangeOption::mouseReleased, this,
            &MeterReadingWindow::optWechselMouseUp);
    // As it always was: in the other four windows only keys count.
    if (meter_ == Meter::Day)
      connect(optWechsel(k), &ChangeOption::mousePressed, this, [this] { dirty_ = true; });
  }
}

void MeterReadingWindow::connectButtons() {
  connect(Command1, &QPushButton::clicked, this, &MeterReadingWindow::Command1Click);
  connect(Command3, &QPushButton::clicked, this, &MeterReadingWindow::Command3Click);
  connect(Command4, &QPushButton::clicked, this, &MeterReadingWindow::Command4Click);
  connect(Command5, &QPushButton::clicked, this,
          [this] { services_.navigator.showMeterChangeHelp(); });
}

bool MeterReadingWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool leaves =
        key->key() == Qt::Key_Escape || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
    if (!key->text().isEmpty() && !leaves) dirty_ = true;
  }
  return EntryWindow::eventFilter(watched, event);
}

// --- the buttons and options ---

bool MeterReadingWindow::Command1Click() {
  if (widgets::NumberField* field = firstFraction()) {
    tellWholeUnits();
    lblOffen->markFault(field);
    return false;
  }
  // What was typed stays for another try.
  if (const auto done = takeOver(session_, meter_, readings(), change()); !told(done)) {
    const auto row = rowAtFault(session_, meter_, done.error());
    lblOffen->markFault(row ? txtVerbrauch(*row) : nullptr);
    return false;
  }
  loaded_ = readings();
  for (int k = 0; k < kMonths; ++k) txtVerbrauch(k)->setValue(loaded_[k]);
  storedChange_ = change();
  dirty_ = false;
  showConsumptions();
  return true;
}

bool MeterReadingWindow::mayClose() {
  if (!dirty_) return true;
  const bool wanted = services_.prompts.confirm(
      this, u"Sie haben  Änderungen vorgenommen\nSollen die Änderungen übernommen werden?"_s,
      u" Eingabe Zählerstand"_s);
  return !wanted || Command1Click();
}

void MeterReadingWindow::Command3Click() {
  if (!services_.prompts.confirm(this, u"Sollen alle Zählerstände gelöscht werden?"_s,
                                 u"Alle Zählerstände löschen"_s))
    return;
  if (services_.keeper != nullptr &&
      !services_.keeper->keepBefore(dialogs::Harm::DeletingReadings, this, session_.path(),
                                    session_.database().image()))
    return;
  if (!told(deleteConsumptions(session_, meter_))) return;
  for (int k = 0; k < kMonths; ++k) {
    txtVerbrauch(k)->setValue(0);
    lblVerbrauch(k)->clear();
  }
  storedChange_ = {};
  resetChange();
}

void MeterReadingWindow::Command4Click() {
  resetChange();
  if (told(deleteMeterChange(session_, meter_))) storedChange_ = {};
}

void MeterReadingWindow::optWechselClick(int k) {
  const bool change = k != MeterChange::kNone;
  Label4->setVisible(change);
  txtWechsel->setVisible(change);
  Command4->setVisible(change);
  if (change) placeReadings(k + 1, txtWechsel);
  showHints();
}

void MeterReadingWindow::showEntries() {
  const int chosen = change().position;
  placeReadings(0, txtAnfStand);
  optWechselClick(chosen);
  dirty_ = true;
}

void MeterReadingWindow::optWechselMouseUp() {
  const auto answer =
      services_.prompts.input(this, u"Eingabe Anfangszählerstand bei Zählerwechsel"_s,
                              u"Anfangszählerstand eingeben"_s, {}, {});
  const auto number = answer ? base::parseNumber(answer->toStdString()) : std::nullopt;
  if (!number || *number <= 0) return;
  txtWechsel->setValue(number);
  showHints();
}

// --- between fields and rows ---

void MeterReadingWindow::showStored() {
  const MeterYear stored = meterYear(session_, meter_);
  txtAnfStand->setValue(stored.startReading);
  for (int k = 0; k < kMonths; ++k) {
    loaded_[k] = std::max(stored.readings[k], 0.0);
    txtVerbrauch(k)->setValue(loaded_[k]);
  }
  showConsumptions();
  resetChange();
  optWechsel(storedChange_.position)->setChecked(true);
  txtWechsel->setValue(storedChange_.newStart);
  showHints();
  dirty_ = false;
}

// The first month without a reading is the one that is most likely to be typed now.
void MeterReadingWindow::focusOpenMonth() {
  for (widgets::NumberField* field : txtVerbrauch) {
    if (field->valueOrZero() != 0) continue;
    field->setFocus();
    return;
  }
  txtVerbrauch(currentRow_)->setFocus();
}

void MeterReadingWindow::showConsumptions() {
  const yearbook::RecordSource& rows = session_.rows().of(meter_);
  for (int k = 0; k < kMonths; ++k) {
    const bool entered = txtVerbrauch(k)->valueOrZero() != 0;
    lblVerbrauch(k)->setText(
        entered ? QString::fromStdString(rows.text(k, *factsOf(meter_).consumption)) : QString());
  }
  showHints();
}

void MeterReadingWindow::showHints() {
  MeterYear year = meterYear(session_, meter_);
  year.readings = readings();
  year.change = change();
  const auto hints = readingHints(year);
  for (int k = 0; k < kMonths; ++k) {
    const ReadingHint& hint = hints[k];
    const QString doubt = utf8(wordsOf(hint.doubt));
    const QString result = plain(hint.consumption);
    QString text;
    if (hint.entered && result != lblVerbrauch(k)->text()) text = u"ergibt "_s + result;
    if (!doubt.isEmpty()) text += (text.isEmpty() ? QString() : u": "_s) + doubt;
    const bool fraction = isFraction(k);
    if (fraction) text = u"nur volle "_s + utf8(factsOf(meter_).unit);
    const bool quiet = doubt.isEmpty() && !fraction;
    lblHint(k)->setText(text);
    lblHint(k)->setMark(quiet ? MarkedLabel::Mark::Quiet : MarkedLabel::Mark::Doubt);
    txtVerbrauch(k)->setAccessibleDescription(text);
  }
  showOpen();
}

void MeterReadingWindow::resetChange() {
  txtWechsel->setValue(0);
  optWechsel(MeterChange::kNone)->setChecked(true);
  optWechselClick(MeterChange::kNone);
  placeReadings(0, txtAnfStand);
}

void MeterReadingWindow::placeReadings(int from, QWidget* column) {
  const int target = column == txtWechsel ? kNewReading : kReading;
  for (int k = from; k < kMonths; ++k) {
    grid_->removeWidget(txtVerbrauch(k));
    grid_->addWidget(txtVerbrauch(k), kFirstMonth + k, target);
  }
}

void MeterReadingWindow::showOpen() {
  lblOffen->showOpen(dirty_ || readings() != loaded_ || change() != storedChange_);
}

// A point may set thousands apart or begin a fraction; only when the field is left is that plain.
// A fraction that the year brought along may stay.
bool MeterReadingWindow::isFraction(int k) const {
  const auto value = txtVerbrauch(k)->value();
  return !yearbook::isComplete(units_, value) && value != loaded_[k];
}

widgets::NumberField* MeterReadingWindow::firstFraction() const {
  for (int k = 0; k < kMonths; ++k)
    if (isFraction(k)) return txtVerbrauch(k);
  return nullptr;
}

QString MeterReadingWindow::filterWhole(const QString& input) {
  const auto entry = yearbook::filterEntry(units_, input.toStdString());
  if (entry.commaRefused) tellWholeUnits();
  return QString::fromStdString(entry.kept);
}

void MeterReadingWindow::tellWholeUnits() {
  services_.prompts.tell(this, utf8(yearbook::wholeUnitsMessage(units_)),
                         utf8(yearbook::kStartReadingTitle), dialogs::Icon::Information);
}

PerMonth<double> MeterReadingWindow::readings() const {
  PerMonth<double> values{};
  for (int k = 0; k < kMonths; ++k) values[k] = txtVerbrauch(k)->valueOrZero();
  return values;
}

MeterChange MeterReadingWindow::change() const {
  return {changeGroup_.checkedId() < 0 ? MeterChange::kNone : changeGroup_.checkedId(),
          txtWechsel->valueOrZero()};
}

}  // namespace readings
