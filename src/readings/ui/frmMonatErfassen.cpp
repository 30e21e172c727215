#include "readings/ui/frmMonatErfassen.h"

#include <QGridLayout>
#include <algorithm>

#include "base/Paths.h"
#include "widgets/Rule.h"
#include "widgets/Segment.h"
#include "yearbook/CalendarYear.h"
#include "yearbook/FieldRules.h"

using namespace Qt::Literals::StringLiterals;
using readings::MarkedLabel;
using readings::MeterRow;
using readings::utf8;
using yearbook::kMeters;
using yearbook::kMonths;
using yearbook::Meter;
using yearbook::Utility;

namespace {

constexpr auto kOrder = Utility::Electricity;  // whose months the sheet goes through

QString monthName(int month) {
  return utf8(base::kMonthNames[static_cast<std::size_t>(month - 1)]);
}

}  // namespace

frmMonatErfassen::frmMonatErfassen(const dialogs::Services& services,
                                   yearbook::YearSession& session, QWidget* parent)
    : EntryWindow("frmMonatErfassen", "Monat erfassen", services, session, parent) {
  setWindowTitle(u"Monat erfassen – "_s +
                 QString::fromStdString(base::baseName(base::fileName(session.path()))));
  arrange();
  connectControls();
  chooseMonth(firstOpenMonth());
  if (focusWidget() == nullptr) focusFirstField();
}

// --- making ---

void frmMonatErfassen::arrange() {
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(16, 12, 16, 12);
  window->setSpacing(8);
  window->addLayout(arrangeMonths());
  window->addLayout(arrangeTitle());
  window->addLayout(arrangeMeters());
  window->addStretch();
  window->addLayout(arrangeRemark());
  window->addWidget(widgets::makeRule(this));
  window->addLayout(arrangeButtons());
  tameButtons();
}

QLayout* frmMonatErfassen::arrangeMonths() {
  auto* months = new QHBoxLayout;
  months->setSpacing(2);
  auto* group = new QButtonGroup(this);
  for (int k = 0; k < kMonths; ++k) {
    optMonat(k)->setCheckable(true);
    widgets::showChosen(optMonat(k));
    optMonat(k)->setToolButtonStyle(Qt::ToolButtonTextOnly);
    optMonat(k)->setFocusPolicy(Qt::StrongFocus);
    // As wide as a read month, whose name has a tick before it.
    optMonat(k)->setText(u"✓ Nov"_s);
    optMonat(k)->setMinimumWidth(optMonat(k)->sizeHint().width());
    group->addButton(optMonat(k), k);
    months->addWidget(optMonat(k));
  }
  months->addStretch();
  months->addWidget(lblAbgelesen);
  return months;
}

QLayout* frmMonatErfassen::arrangeTitle() {
  auto* title = new QHBoxLayout;
  QFont big = lblMonat->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.25);
  lblMonat->setFont(big);
  lblHilfe->setText(u"Stand am Monatsende eintragen. Enter führt zum nächsten Feld."_s);
  lblHilfe->setMark(MarkedLabel::Mark::Quiet);
  title->setSpacing(12);
  title->addWidget(lblMonat);
  title->addWidget(lblHilfe, 1);
  return title;
}

QLayout* frmMonatErfassen::arrangeMeters() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(MeterRow::kBox, 1);
  arrangeHeads(grid);
  QFont bold = font();
  bold.setBold(true);
  // Nothing moves under the hand when figures come.
  const std::pair<int, QString> widest[] = {{MeterRow::kBefore, u"Stand September"_s},
                                            {MeterRow::kUsed, u"123.456"_s},
                                            {MeterRow::kUsedUnit, u"kWh"_s},
                                            {MeterRow::kUsual, u"12.345"_s},
                                            {MeterRow::kCost, u"1.234,56 Euro"_s}};
  for (const auto& [column, text] : widest)
    grid->setColumnMinimumWidth(column, QFontMetrics(bold).horizontalAdvance(text));
  int line = 1;
  for (Meter meter : kMeters) {
    rows_[meter] = new MeterRow(meter, this, grid, line);
    line += MeterRow::kLines;
  }
  grid->addWidget(widgets::makeRule(this), line, 0, 1, MeterRow::kBox + 1);
  auto* sum = new QLabel(u"Zusammen"_s, this);
  sum->setFont(bold);
  lblSumme->setFont(bold);
  grid->addWidget(sum, line + 1, MeterRow::kName);
  grid->addWidget(lblSumme, line + 1, MeterRow::kCost, Qt::AlignRight);
  auto* without = new MarkedLabel(this);
  without->setText(u"ohne Grundgebühr"_s);
  without->setMark(MarkedLabel::Mark::Quiet);
  grid->addWidget(without, line + 1, MeterRow::kBox);
  return grid;
}

QLayout* frmMonatErfassen::arrangeRemark() {
  auto* remark = new QHBoxLayout;
  auto* lblAnmerkung = new QLabel(u"&Anmerkung"_s, this);
  lblAnmerkung->setBuddy(txtAnmerkung);
  txtAnmerkung->setAccessibleName(u"Anmerkung zum Monat"_s);
  txtAnmerkung->setToolTip(u"Steht auch auf der Seite Anmerkungen, beim Strom"_s);
  remark->addWidget(lblAnmerkung);
  remark->addWidget(txtAnmerkung, 1);
  return remark;
}

QLayout* frmMonatErfassen::arrangeButtons() {
  cmdWeitere->setText(u"&Weitere Zähler zeigen"_s);
  cmdHilfe->setText(u"&Hilfe"_s);
  cmdUebernehmen->setText(u"Ü&bernehmen"_s);
  cmdUebernehmen->setToolTip(u"Alle Stände des Monats speichern"_s);
  cmdUebernehmen->setDefault(true);
  makeCloseButton(cmdSchliessen);
  lblZustand->setMark(MarkedLabel::Mark::Quiet);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(cmdHilfe);
  buttons->addWidget(cmdWeitere);
  buttons->addStretch();
  buttons->addWidget(lblZustand);
  buttons->addWidget(cmdUebernehmen);
  buttons->addWidget(cmdSchliessen);
  return buttons;
}

void frmMonatErfassen::arrangeHeads(QGridLayout* grid) {
  const std::pair<int, QString> heads[] = {
      {MeterRow::kName, u"Zähler"_s},  {MeterRow::kBefore, QString()},
      {MeterRow::kField, QString()},   {MeterRow::kUsed, u"Verbrauch"_s},
      {MeterRow::kUsual, u"üblich"_s}, {MeterRow::kCost, u"Kosten brutto"_s}};
  int headsWithMonth = 0;
  for (const auto& [column, text] : heads) {
    auto* label = new MarkedLabel(this);
    label->setText(text);
    label->setMark(MarkedLabel::Mark::Quiet);
    if (text.isEmpty()) head_[headsWithMonth++] = label;
    grid->addWidget(label, 0, column, column == MeterRow::kName ? Qt::AlignLeft : Qt::AlignRight);
  }
}

void frmMonatErfassen::connectControls() {
  QWidget* last = optMonat(kMonths - 1);
  for (Meter meter : kMeters) {
    MeterRow* row = rows_[meter];
    connect(row, &MeterRow::edited, this, [this] {
      dirty_ = true;
      showOutcomes();
    });
    for (QWidget* next : std::initializer_list<QWidget*>{row->txtStand, row->txtAlterEndstand,
                                                         row->txtNeuerAnfang}) {
      setTabOrder(last, next);
      last = next;
    }
  }
  // Enter goes from field to field; what is seldom needed comes behind the buttons.
  setTabOrder({last, txtAnmerkung, cmdUebernehmen, cmdSchliessen, cmdHilfe, cmdWeitere});
  last = cmdWeitere;
  for (Meter meter : kMeters)
    for (QCheckBox* box : {rows_[meter]->chkWieWasser, rows_[meter]->chkWechsel})
      if (box) setTabOrder({std::exchange(last, box), box});
  for (int k = 0; k < kMonths; ++k)
    connect(optMonat(k), &QToolButton::clicked, this, [this, k] {
      if (mayClose()) chooseMonth(k);
      optMonat(k)->setChecked(true);
    });
  connect(rows_[Meter::WasteWater]->chkWieWasser, &QCheckBox::toggled, this, [this](bool same) {
    rows_[Meter::WasteWater]->follow(same ? rows_[Meter::Water] : nullptr);
    dirty_ = true;
    showOutcomes();
  });
  connect(txtAnmerkung, &QLineEdit::textEdited, this, [this] { dirty_ = true; });
  connect(cmdWeitere, &QPushButton::clicked, this, [this] {
    allMeters_ = true;
    showMeters();
  });
  connect(cmdHilfe, &QPushButton::clicked, this, [this] { showHelp(); });
  connect(cmdUebernehmen, &QPushButton::clicked, this, &frmMonatErfassen::takeOver);
}

// --- months and meters ---

int frmMonatErfassen::positionOf(Meter meter) const {
  const int start = session_.startMonth(utilityOf(meter));
  for (int k = 0; k < kMonths; ++k)
    if (yearbook::calendarMonth(start, k) == month_) return k;
  return 0;
}

bool frmMonatErfassen::isInUse(Meter meter) const {
  if (meter == Meter::Night && !session_.values().nightShown) return false;
  const readings::MeterYear year = readings::meterYear(session_, meter);
  const auto read = [](double reading) { return reading != 0; };
  return year.startReading != 0 || std::any_of(year.readings.begin(), year.readings.end(), read);
}

// Every meter in use has a reading.
bool frmMonatErfassen::isRead(int month) const {
  bool any = false;
  for (Meter meter : kMeters) {
    if (!isInUse(meter)) continue;
    const int start = session_.startMonth(utilityOf(meter));
    for (int k = 0; k < kMonths; ++k)
      if (yearbook::calendarMonth(start, k) == month &&
          readings::meterYear(session_, meter).readings[k] == 0)
        return false;
    any = true;
  }
  return any;
}

int frmMonatErfassen::firstOpenMonth() const {
  for (int k = 0; k < kMonths; ++k)
    if (!isRead(yearbook::calendarMonth(session_.startMonth(kOrder), k))) return k;
  return kMonths - 1;
}

void frmMonatErfassen::chooseMonth(int position) {
  month_ = yearbook::calendarMonth(session_.startMonth(kOrder), position);
  optMonat(position)->setChecked(true);
  load();
  for (Meter meter : kMeters)
    if (rows_[meter]->isShown() && rows_[meter]->txtStand->valueOrZero() == 0) {
      rows_[meter]->txtStand->setFocus();
      return;
    }
}

void frmMonatErfassen::focusFirstField() {
  for (Meter meter : kMeters)
    if (rows_[meter]->isShown()) return rows_[meter]->txtStand->setFocus();
}

void frmMonatErfassen::load() {
  const auto year = yearbook::calendarYearOf(session_.values().startDate, session_.path());
  const int start = session_.startMonth(kOrder);
  const int before = month_ == 1 ? kMonths : month_ - 1;
  lblMonat->setText(monthName(month_) +
                    (year ? u" %1"_s.arg(*year + (month_ < start ? 1 : 0)) : QString()));
  const bool first = month_ == start;
  head_[0]->setText(first ? u"Anfangsstand"_s : u"Stand "_s + monthName(before));
  head_[1]->setText(u"Stand "_s + monthName(month_));
  bool asWater = true;
  for (Meter meter : kMeters) {
    readings::MeterYear stored = readings::meterYear(session_, meter);
    stored.change =
        readings::readMeterChange(session_.files(), readings::meterChangePath(session_, meter));
    const int position = positionOf(meter);
    const auto names = session_.monthNames(utilityOf(meter));
    const int last = readings::readingBefore(stored, position).position;
    const bool asHead = last == position - 1 && (position == 0) == first;
    const QString monthRead = last < 0 ? u"Anfang"_s : utf8(names[last]);
    rows_[meter]->load(stored, position, asHead ? QString() : monthRead,
                       yearbook::orZero(session_.values().vat[meter]));
  }
  const auto water = readings::meterYear(session_, Meter::Water);
  const auto waste = readings::meterYear(session_, Meter::WasteWater);
  asWater = waste.startReading == water.startReading && waste.readings == water.readings;
  MeterRow* wasteRow = rows_[Meter::WasteWater];
  const QSignalBlocker quietly(wasteRow->chkWieWasser);
  wasteRow->chkWieWasser->setChecked(asWater);
  wasteRow->follow(asWater ? rows_[Meter::Water] : nullptr);
  loadedRemark_ = QString::fromStdString(session_.values().remarks[kOrder][positionOf(Meter::Day)]);
  txtAnmerkung->setText(loadedRemark_);
  dirty_ = false;
  showMeters();
  markRead();
}

void frmMonatErfassen::showMeters() {
  bool hidden = false;
  bool any = false;
  for (Meter meter : kMeters) any = any || isInUse(meter);
  for (Meter meter : kMeters) {
    const bool offered = meter != Meter::Night || session_.values().nightShown;
    const bool shown = offered && (allMeters_ || !any || isInUse(meter));
    rows_[meter]->setShown(shown);
    hidden = hidden || (offered && !shown);
  }
  cmdWeitere->setVisible(hidden);
  showOutcomes();
}

void frmMonatErfassen::markRead() {
  for (int k = 0; k < kMonths; ++k) {
    const int month = yearbook::calendarMonth(session_.startMonth(kOrder), k);
    const QString name = monthName(month);
    const bool read = isRead(month);
    optMonat(k)->setText((read ? u"✓ "_s : QString()) + name.left(3));
    optMonat(k)->setToolTip(name + (read ? u", abgelesen"_s : u", noch nicht abgelesen"_s));
    optMonat(k)->setAccessibleName(optMonat(k)->toolTip());
  }
  lblAbgelesen->setText(isRead(month_) ? u"✓ abgelesen"_s : QString());
  lblAbgelesen->setMark(MarkedLabel::Mark::Quiet);
}

void frmMonatErfassen::showOutcomes() {
  base::Money sum;
  int doubts = 0;
  for (Meter meter : kMeters) {
    rows_[meter]->showOutcome();
    if (!rows_[meter]->isShown()) continue;
    sum += rows_[meter]->cost().value_or(base::Money());
    doubts += rows_[meter]->isDoubtful() ? 1 : 0;
  }
  lblSumme->setText(QString::fromStdString(formatMoney(sum)) + u" Euro"_s);
  lblZustand->setText(doubts == 0   ? QString()
                      : doubts == 1 ? u"1 Stand ist fraglich"_s
                                    : u"%1 Stände sind fraglich"_s.arg(doubts));
}

// --- storing ---

std::vector<readings::MeterEntries> frmMonatErfassen::entries() const {
  std::vector<readings::MeterEntries> all;
  for (Meter meter : kMeters) {
    const auto outcome = rows_[meter]->outcome();
    if (rows_[meter]->isShown() && outcome)
      all.push_back({meter, outcome->readings, outcome->change});
  }
  return all;
}

// A reading has no fraction; one that the year brought along may stay.
bool frmMonatErfassen::allWhole() {
  for (Meter meter : kMeters) {
    const auto units = yearbook::wholeUnitsOf(meter);
    MeterRow* row = rows_[meter];
    for (widgets::NumberField* field :
         {row->txtStand, row->txtAlterEndstand, row->txtNeuerAnfang}) {
      if (!field->isVisible() || !field->isModified() ||
          yearbook::isComplete(units, field->value()))
        continue;
      services_.prompts.tell(this, utf8(yearbook::wholeUnitsMessage(units)),
                             utf8(yearbook::kStartReadingTitle), dialogs::Icon::Information);
      field->setFocus();
      return false;
    }
  }
  return true;
}

bool frmMonatErfassen::takeOver() {
  if (!allWhole()) return false;
  for (Meter meter : kMeters) {
    const auto outcome = rows_[meter]->outcome();
    if (!rows_[meter]->isShown() || !outcome || outcome->problem.empty()) continue;
    rows_[meter]->txtStand->setFocus();
    return false;
  }
  const std::string remark = txtAnmerkung->text().toStdString();
  const int position = positionOf(Meter::Day);
  const auto writeRemark = [&](yearbook::YearRows& rows) -> base::Result<void> {
    if (txtAnmerkung->text() == loadedRemark_) return {};
    return rows.of(kOrder).setText(position, *factsOf(kOrder).remark, remark);
  };
  const std::string name = "Monat " + monthName(month_).toStdString() + " erfasst";
  if (!told(readings::takeOver(session_, {name}, entries(), writeRemark))) return false;
  load();
  chooseMonth(firstOpenMonth());
  return true;
}

bool frmMonatErfassen::mayClose() {
  if (!dirty_) return true;
  const bool wanted = services_.prompts.confirm(
      this,
      u"Der Monat %1 ist geändert.\nSollen die Stände übernommen werden?"_s.arg(monthName(month_)),
      u"Monat erfassen"_s);
  if (!wanted) {
    dirty_ = false;
    return true;
  }
  return takeOver();
}
