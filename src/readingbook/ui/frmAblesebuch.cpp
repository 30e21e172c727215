#include "readingbook/ui/frmAblesebuch.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QStackedLayout>
#include <algorithm>

#include "base/DateText.h"
#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "readingbook/ui/frmTabelleEinlesen.h"
#include "readings/ui/MeterLook.h"
#include "widgets/Rule.h"
#include "widgets/Segment.h"
#include "widgets/TonedCells.h"

using namespace Qt::Literals::StringLiterals;
using readingbook::Entry;
using readingbook::kMonths;
using readingbook::Meter;
using readings::MarkedLabel;
using readings::utf8;

namespace {

enum EntryColumn { kDay, kReading, kSince, kRemark, kEntryColumns };
enum MonthColumn { kMonth, kStored, kFromBook, kDifference, kMonthColumns };

QString reading(readingbook::Thousandths value) {
  return QString::fromStdString(readingbook::formatReading(value));
}
QString units(double value) {
  return QString::fromStdString(base::formatShort(value, 3, true));
}

QTableWidgetItem* cell(const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
  auto* item = new QTableWidgetItem(text);
  item->setTextAlignment(alignment | Qt::AlignVCenter);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

QLabel* headLine(QLabel* label) {
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

}  // namespace

frmAblesebuch::frmAblesebuch(const dialogs::Services& services, yearbook::YearSession& session,
                             QWidget* parent)
    : EntryWindow("frmAblesebuch", "Ablesebuch", services, session, parent) {
  setWindowTitle(u"Ablesebuch – "_s +
                 QString::fromStdString(base::baseName(base::fileName(session.path()))));
  setTexts();
  arrange();
  connectControls();
  load();
  optZaehler(0)->setChecked(true);
  showMeter();
}

// --- making ---

void frmAblesebuch::setTexts() {
  cmdEintragen->setText(u"&Eintragen"_s);
  cmdLoeschen->setText(u"Ablesung &löschen"_s);
  cmdHilfe->setText(u"&Hilfe"_s);
  cmdTabelle->setText(u"&Tabelle einlesen…"_s);
  cmdUebernehmen->setText(u"In die Monate ü&bernehmen"_s);
  cmdUebernehmen->setToolTip(u"Die angehakten Monate speichern"_s);
  makeCloseButton(cmdSchliessen);
  chkWechsel->setText(u"Zähler &gewechselt"_s);
  chkWechsel->setAccessibleName(u"Zähler gewechselt"_s);
  chkWechsel->setToolTip(u"Der Stand ist der letzte des alten Zählers"_s);
  lblNeuerAnfang->setText(u"&neuer Anfang"_s);
  lblNeuerAnfang->setBuddy(txtNeuerAnfang);
  txtDatum->setAccessibleName(u"Datum"_s);
  txtStand->setAccessibleName(u"Stand"_s);
  txtNeuerAnfang->setAccessibleName(u"Anfangsstand des neuen Zählers"_s);
  txtAnmerkung->setAccessibleName(u"Anmerkung"_s);
  lblFehler->setMark(MarkedLabel::Mark::Error);
  lblFehler->setWordWrap(true);
  lblVerteilung->setMark(MarkedLabel::Mark::Quiet);
  lblVerteilung->setWordWrap(true);
  lblZustand->setMark(MarkedLabel::Mark::Quiet);
  grdAblesungen->setAccessibleName(u"Ablesungen"_s);
  grdMonate->setAccessibleName(u"Monatsstände daraus"_s);
}

void frmAblesebuch::arrange() {
  auto* meters = new QHBoxLayout;
  meters->setSpacing(2);
  auto* group = new QButtonGroup(this);
  for (int i = 0; i < optZaehler.size(); ++i) {
    QToolButton* button = optZaehler(i);
    const QString name = readings::spokenName(yearbook::kMeters[static_cast<std::size_t>(i)]);
    button->setText(name);
    button->setIcon(readings::markOf(yearbook::kMeters[static_cast<std::size_t>(i)], palette()));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAccessibleName(name);
    button->setToolTip(u"Ablesungen "_s + name);
    button->setCheckable(true);
    widgets::showChosen(button);
    button->setFocusPolicy(Qt::StrongFocus);
    group->addButton(button, i);
    meters->addWidget(button);
  }
  optZaehler(static_cast<int>(Meter::Night))->setVisible(session_.values().nightShown);
  meters->addStretch();
  auto* sides = new QHBoxLayout;
  sides->setSpacing(16);
  sides->addLayout(arrangeEntries(), 1);
  sides->addLayout(arrangeMonths(), 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(cmdHilfe);
  buttons->addWidget(cmdTabelle);
  buttons->addStretch();
  buttons->addWidget(lblZustand);
  buttons->addWidget(cmdUebernehmen);
  buttons->addWidget(cmdSchliessen);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(16, 12, 16, 12);
  window->setSpacing(8);
  window->addLayout(meters);
  window->addLayout(sides, 1);
  window->addWidget(widgets::makeRule(this));
  window->addLayout(buttons);
  tameButtons();
  resize(960, 520);
}

QVBoxLayout* frmAblesebuch::arrangeEntries() {
  constexpr int kDigits = 8;
  readings::dressTable(grdAblesungen,
                       {u"Datum"_s, u"Stand"_s, u"seit der letzten"_s, u"Anmerkung"_s}, {kRemark});
  grdAblesungen->horizontalHeader()->setStretchLastSection(true);
  for (widgets::NumberField* field : {txtStand, txtNeuerAnfang}) {
    field->setDecimals(0, 3);
    readings::setDigits(field, kDigits);
  }
  txtDatum->setFixedWidth(txtStand->width() + 8);
  auto* entry = new QGridLayout;
  entry->setHorizontalSpacing(8);
  const auto labelled = [this](const QString& text, QWidget* field) {
    auto* label = new QLabel(text, this);
    label->setBuddy(field);
    return label;
  };
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{labelled(u"&Datum"_s, txtDatum), txtDatum,
                                       labelled(u"Sta&nd"_s, txtStand), txtStand, lblEinheit})
    line->addWidget(widget);
  line->addWidget(chkWechsel, 1);
  entry->addLayout(line, 0, 0, 1, 4);
  entry->addWidget(lblNeuerAnfang, 1, 0);
  entry->addWidget(txtNeuerAnfang, 1, 1, 1, 3, Qt::AlignLeft);
  entry->addWidget(labelled(u"An&merkung"_s, txtAnmerkung), 2, 0);
  entry->addWidget(txtAnmerkung, 2, 1, 1, 2);
  entry->addWidget(cmdEintragen, 2, 3);
  entry->setColumnStretch(2, 1);
  lblFehler->setMinimumHeight(2 * fontMetrics().height());
  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  auto* head = new QHBoxLayout;
  head->addWidget(headLine(lblAblesungen), 1);
  head->addWidget(cmdLoeschen);
  side->addLayout(head);
  auto* area = new QWidget(this);
  pages_ = new QStackedLayout(area);
  pages_->addWidget(grdAblesungen);
  pages_->addWidget(makeEmptyPage());
  side->addWidget(area, 1);
  side->addLayout(entry);
  side->addWidget(lblFehler);
  return side;
}

// In the place of an empty table.
QWidget* frmAblesebuch::makeEmptyPage() {
  auto* page = new QWidget(this);
  auto* text = new MarkedLabel(page);
  text->setText(u"Noch keine Ablesung."_s);
  text->setMark(MarkedLabel::Mark::Quiet);
  cmdErste->setText(u"E&rste Ablesung eintragen"_s);
  cmdErste->setToolTip(u"Zum Datum"_s);
  auto* column = new QVBoxLayout(page);
  column->addStretch();
  column->addWidget(text, 0, Qt::AlignHCenter);
  column->addWidget(cmdErste, 0, Qt::AlignHCenter);
  column->addStretch();
  return page;
}

QVBoxLayout* frmAblesebuch::arrangeMonths() {
  readings::dressTable(grdMonate,
                       {u"Monat"_s, u"gespeichert"_s, u"aus dem Buch"_s, u"Unterschied"_s});
  grdMonate->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  // It has what is left, and all columns are in sight in a narrow window too.
  grdMonate->horizontalHeader()->setSectionResizeMode(kDifference, QHeaderView::Stretch);
  auto* side = new QVBoxLayout;
  side->setSpacing(8);
  QLabel* head = headLine(new QLabel(u"Monatsstände daraus"_s, this));
  head->setMinimumHeight(cmdLoeschen->sizeHint().height());  // in line with the other side
  side->addWidget(head);
  side->addWidget(grdMonate, 1);
  side->addWidget(lblVerteilung);
  return side;
}

void frmAblesebuch::connectControls() {
  for (QToolButton* button : optZaehler)
    connect(button, &QToolButton::clicked, this, [this] { showMeter(); });
  connect(chkWechsel, &QCheckBox::toggled, this, [this](bool changed) {
    lblNeuerAnfang->setVisible(changed);
    txtNeuerAnfang->setVisible(changed);
  });
  lblNeuerAnfang->hide();
  txtNeuerAnfang->hide();
  QWidget* order[] = {txtDatum, txtStand, chkWechsel, txtNeuerAnfang, txtAnmerkung, cmdEintragen};
  for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
  connect(cmdErste, &QPushButton::clicked, this, [this] { txtDatum->setFocus(); });
  connect(cmdEintragen, &QPushButton::clicked, this, &frmAblesebuch::enter);
  connect(cmdLoeschen, &QPushButton::clicked, this, &frmAblesebuch::removeSelected);
  connect(cmdTabelle, &QPushButton::clicked, this, &frmAblesebuch::readTable);
  connect(cmdUebernehmen, &QPushButton::clicked, this, &frmAblesebuch::takeOver);
  connect(cmdHilfe, &QPushButton::clicked, this, [this] { showHelp(); });
  connect(grdMonate, &QTableWidget::itemChanged, this, &frmAblesebuch::monthTicked);
  connect(grdAblesungen, &QTableWidget::itemSelectionChanged, this,
          [this] { cmdLoeschen->setEnabled(!grdAblesungen->selectedItems().isEmpty()); });
}

// --- showing ---

Meter frmAblesebuch::meter() const {
  for (int i = 0; i < optZaehler.size(); ++i)
    if (optZaehler(i)->isChecked()) return yearbook::kMeters[static_cast<std::size_t>(i)];
  return Meter::Day;
}

std::optional<int> frmAblesebuch::calendarYear(std::optional<base::Date> typed) const {
  const auto first = book_.firstDay();
  return readingbook::calendarYear(session_, first ? first : typed);
}

void frmAblesebuch::load() {
  auto book = readingbook::readBook(session_);
  // What cannot be read must not be replaced by what is typed now.
  for (QWidget* entry :
       std::initializer_list<QWidget*>{txtDatum, txtStand, chkWechsel, txtNeuerAnfang, txtAnmerkung,
                                       cmdEintragen, cmdErste, cmdTabelle})
    entry->setEnabled(book.has_value());
  if (!book) return showProblem(utf8(base::germanMessage(book.error())));
  book_ = std::move(*book);
  if (book_.kept().empty()) return showProblem({});
  const auto kept = book_.kept().size();
  const QString reason = utf8(book_.kept().front().reason);
  showProblem(
      kept == 1 ? u"Eine Zeile der Datei zählt nicht mit; sie bleibt darin stehen: %1"_s.arg(reason)
                : u"%1 Zeilen der Datei zählen nicht mit; sie bleiben darin stehen. Die erste: %2"_s
                      .arg(kept)
                      .arg(reason));
}

void frmAblesebuch::showMeter() {
  const QString name = readings::spokenName(meter());
  const QString unit = utf8(factsOf(meter()).unit);
  lblAblesungen->setText(u"Ablesungen "_s + name);
  lblEinheit->setText(unit);
  grdAblesungen->horizontalHeaderItem(kReading)->setText(u"Stand "_s + unit);
  showEntries();
  showMonths();
}

void frmAblesebuch::showEntries() {
  const auto& entries = book_.of(meter());
  grdAblesungen->setRowCount(static_cast<int>(entries.size()));
  const QString unit = utf8(factsOf(meter()).unit);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const Entry& entry = entries[i];
    const int line = static_cast<int>(i);
    grdAblesungen->setItem(line, kDay, cell(utf8(base::formatDate(entry.date))));
    grdAblesungen->setItem(line, kReading, cell(reading(entry.reading), Qt::AlignRight));
    QString since;
    if (i > 0)
      since = u"%1 %2 in %3 Tagen"_s.arg(reading(entry.reading - entries[i - 1].atEnd()), unit)
                  .arg(base::daysBetween(entries[i - 1].date, entry.date));
    grdAblesungen->setItem(line, kSince, cell(since, Qt::AlignRight));
    QString remark = utf8(entry.remark);
    if (entry.newStart)
      remark = u"Zählerwechsel, neuer Anfang %1. "_s.arg(reading(*entry.newStart)) + remark;
    grdAblesungen->setItem(line, kRemark, cell(remark));
    grdAblesungen->item(line, kRemark)->setToolTip(remark);
  }
  for (const int column : {kDay, kReading, kSince}) grdAblesungen->resizeColumnToContents(column);
  grdAblesungen->scrollToBottom();
  pages_->setCurrentIndex(entries.empty() ? 1 : 0);
  cmdLoeschen->setEnabled(false);
}

void frmAblesebuch::showMonths() {
  filling_ = true;
  grdMonate->setRowCount(0);
  grdMonate->setRowCount(kMonths + 1);
  const auto year = calendarYear();
  plan_ = {};
  if (year)
    plan_ = readingbook::planMonths(session_, book_, meter(), *year);
  else
    for (int k = 0; k < kMonths; ++k)
      plan_.months[k].stored = readingbook::storedMeter(session_, meter()).readings[k];
  const readingbook::Taken first = newOnly(plan_);
  addMonthLine(0, u"Anfangsstand"_s, plan_.start, first.start);
  const auto names = session_.monthNames(utilityOf(meter()));
  for (int k = 0; k < kMonths; ++k)
    addMonthLine(k + 1, utf8(names[k]), plan_.months[k], first.months[k]);
  filling_ = false;
  QString text = meter() == Meter::Gas ? u"Zwischen zwei Ablesungen nach Gradtagzahlen verteilt."_s
                                       : u"Zwischen zwei Ablesungen nach Tagen verteilt."_s;
  if (plan_.changeDiffers && plan_.change.position < kMonths)
    text +=
        u" Zählerwechsel im %1: gespeichert wird der Stand, den der alte Zähler am Monatsende "
        u"hätte; die Monate gehören zusammen."_s.arg(utf8(names[plan_.change.position]));
  if (!plan_.refusal.empty()) text += u" ✕ "_s + utf8(plan_.refusal);
  lblVerteilung->setText(text);
  showState();
}

void frmAblesebuch::addMonthLine(int line, const QString& name,
                                 const readingbook::PlannedReading& planned, bool ticked) {
  QTableWidgetItem* month = cell(name);
  if (planned.differs()) {
    month->setFlags(month->flags() | Qt::ItemIsUserCheckable);
    month->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
  }
  grdMonate->setItem(line, kMonth, month);
  grdMonate->setItem(line, kStored,
                     cell(planned.stored != 0 ? units(planned.stored) : QString(), Qt::AlignRight));
  grdMonate->setItem(line, kFromBook,
                     cell(planned.fromBook ? units(*planned.fromBook) : QString(), Qt::AlignRight));
  QString difference;
  if (planned.fromBook && planned.stored == 0 && *planned.fromBook != 0)
    difference = u"neu"_s;
  else if (planned.fromBook) {
    const double by = *planned.fromBook - planned.stored;
    difference = (by > 0 ? u"+"_s : QString()) + units(by);
  }
  grdMonate->setItem(line, kDifference, cell(difference, Qt::AlignRight));
  if (planned.differs()) return;
  for (int column = 0; column < kMonthColumns; ++column)
    grdMonate->item(line, column)->setData(widgets::kToneRole, int(widgets::Tone::Quiet));
}

// With another meter change the months go together.
void frmAblesebuch::monthTicked(QTableWidgetItem* item) {
  if (filling_) return;
  if (plan_.changeDiffers && item->column() == kMonth && item->row() > 0) {
    filling_ = true;
    for (int k = 0; k < kMonths; ++k)
      if (plan_.months[k].differs())
        grdMonate->item(k + 1, kMonth)->setCheckState(item->checkState());
    filling_ = false;
  }
  showState();
}

readingbook::Taken frmAblesebuch::ticked() const {
  const auto isTicked = [this](int line, const readingbook::PlannedReading& planned) {
    return planned.differs() && grdMonate->item(line, kMonth)->checkState() == Qt::Checked;
  };
  readingbook::Taken taken;
  taken.start = isTicked(0, plan_.start);
  for (int k = 0; k < kMonths; ++k) taken.months[k] = isTicked(k + 1, plan_.months[k]);
  return taken;
}

void frmAblesebuch::showState() {
  const readingbook::Taken taken = ticked();
  const auto months = std::count(taken.months.begin(), taken.months.end(), true);
  QString text;
  if (months > 0) text = months == 1 ? u"1 Monat angehakt"_s : u"%1 Monate angehakt"_s.arg(months);
  if (months == 0 && taken.start) text = u"Anfangsstand angehakt"_s;
  lblZustand->setText(text);
  cmdUebernehmen->setEnabled((months > 0 || taken.start) && plan_.refusal.empty());
}

void frmAblesebuch::showProblem(const QString& text) {
  lblFehler->setText(text.isEmpty() ? QString() : u"✕ "_s + text);
  txtDatum->setAccessibleDescription(text);
}

// --- storing ---

void frmAblesebuch::enter() {
  const auto date = txtDatum->date();
  if (!date || !txtStand->value()) {
    showProblem(!date ? u"Das Datum ist keines: Tag, Monat und Jahr, wie 31.12.2025."_s
                      : u"Der Stand fehlt."_s);
    (date ? static_cast<QWidget*>(txtStand) : txtDatum)->setFocus();
    return;
  }
  Entry entry{*date, -1, {}, txtAnmerkung->text().toStdString()};
  entry.reading = readingbook::toThousandths(*txtStand->value()).value_or(-1);
  if (chkWechsel->isChecked())
    entry.newStart = readingbook::toThousandths(txtNeuerAnfang->valueOrZero()).value_or(-1);
  const auto year = calendarYear(date);
  readingbook::ReadingBook changed = book_;
  const auto added =
      changed.add(meter(), entry, readingbook::permittedDays(session_, *year)[meter()]);
  if (!added) {
    showProblem(utf8(added.error().detail));
    txtStand->setFocus();
    return;
  }
  const std::string name =
      "Ablesung " + std::string(factsOf(meter()).name) + " vom " + base::formatDate(*date);
  if (!told(readingbook::storeBook(session_, changed, name))) return;
  book_ = std::move(changed);
  showProblem({});
  for (widgets::EntryField* field :
       std::initializer_list<widgets::EntryField*>{txtDatum, txtAnmerkung})
    field->clear();
  txtStand->setValue(std::nullopt);
  txtNeuerAnfang->setValue(std::nullopt);
  chkWechsel->setChecked(false);
  showMeter();
  txtDatum->setFocus();
}

void frmAblesebuch::removeSelected() {
  const int line = grdAblesungen->currentRow();
  const auto& entries = book_.of(meter());
  if (line < 0 || line >= static_cast<int>(entries.size())) return;
  const base::Date date = entries[static_cast<std::size_t>(line)].date;
  readingbook::ReadingBook changed = book_;
  changed.remove(meter(), date);
  const std::string name = "Ablesung " + std::string(factsOf(meter()).name) + " vom " +
                           base::formatDate(date) + " gelöscht";
  if (!told(readingbook::storeBook(session_, changed, name))) return;
  book_ = std::move(changed);
  showMeter();
}

void frmAblesebuch::readTable() {
  frmTabelleEinlesen window(services_, session_, this);
  if (!window.chooseFile() || window.exec() != QDialog::Accepted) return;
  if (!told(readingbook::storeBook(session_, window.book(), "Tabelle eingelesen"))) return;
  book_ = window.book();
  showMeter();
}

void frmAblesebuch::takeOver() {
  const std::string name = "Aus dem Ablesebuch, " + std::string(factsOf(meter()).name);
  told(readingbook::takeOverMonths(session_, {{meter(), plan_, ticked()}}, name));
  showMonths();
}
