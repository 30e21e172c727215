#include "readingbook/ui/frmTabelleEinlesen.h"

#include <QGridLayout>
#include <QHeaderView>
#include <algorithm>

#include "base/DateText.h"
#include "base/Paths.h"
#include "readings/ui/MeterLook.h"
#include "widgets/Rule.h"
#include "widgets/TonedCells.h"

using namespace Qt::Literals::StringLiterals;
using readingbook::TableColumns;
using readings::MarkedLabel;
using readings::utf8;

namespace {

constexpr std::uint64_t kLargestTable = 64 << 20;
constexpr int kShownLines = 500;
constexpr int kBoxLetters = 16;
enum Column { kLine, kDay, kMeter, kReading, kNote };

}  // namespace

frmTabelleEinlesen::frmTabelleEinlesen(const dialogs::Services& services,
                                       yearbook::YearSession& session, QWidget* parent)
    : EntryWindow("frmTabelleEinlesen", "Tabelle einlesen", services, session, parent) {
  arrange();
  connect(cboDatum, &QComboBox::activated, this, &frmTabelleEinlesen::showPreview);
  for (QComboBox* box : cboZaehler)
    connect(box, &QComboBox::activated, this, &frmTabelleEinlesen::showPreview);
  connect(cmdHilfe, &QPushButton::clicked, this, [this] { showHelp(); });
  connect(cmdUebernehmen, &QPushButton::clicked, this, &QDialog::accept);
}

void frmTabelleEinlesen::arrange() {
  auto* choice = new QGridLayout;
  choice->setHorizontalSpacing(12);
  const auto add = [&](int place, const QString& name, QComboBox* box) {
    auto* label = new QLabel(name, this);
    label->setBuddy(box);
    box->setMinimumContentsLength(kBoxLetters);
    box->setAccessibleName(u"Spalte "_s + QString(name).remove(u'&'));
    box->setToolTip(box->accessibleName());
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setColumnStretch(2 * (place % 3) + 1, 1);
    choice->addWidget(label, place / 3, 2 * (place % 3));
    choice->addWidget(box, place / 3, 2 * (place % 3) + 1);
  };
  add(0, u"&Datum"_s, cboDatum);
  for (int i = 0; i < cboZaehler.size(); ++i)
    add(i + 1, readings::spokenName(yearbook::kMeters[static_cast<std::size_t>(i)]), cboZaehler(i));
  readings::dressTable(grdVorschau, {u"Zeile"_s, u"Datum"_s, u"Zähler"_s, u"Stand"_s, u"Hinweis"_s},
                       {kDay, kMeter, kNote});
  grdVorschau->horizontalHeader()->setStretchLastSection(true);
  grdVorschau->setAccessibleName(u"Vorschau"_s);
  cmdUebernehmen->setText(u"Ü&bernehmen"_s);
  cmdUebernehmen->setToolTip(u"Die Ablesungen in das Ablesebuch eintragen"_s);
  cmdUebernehmen->setDefault(true);
  makeCloseButton(cmdSchliessen);
  cmdHilfe->setText(u"&Hilfe"_s);
  QFont big = lblDatei->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.25);
  lblDatei->setFont(big);
  lblDatei->setTextFormat(Qt::PlainText);
  lblWas->setText(
      u"Zu jedem Zähler die Spalte seiner Stände wählen. Gespeichert wird erst mit "
      u"Übernehmen, und bei einem Fehler nichts."_s);
  lblWas->setMark(MarkedLabel::Mark::Quiet);
  lblWas->setWordWrap(true);
  lblErgebnis->setWordWrap(true);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(16, 12, 16, 12);
  window->setSpacing(8);
  window->addWidget(lblDatei);
  window->addWidget(lblWas);
  window->addLayout(choice);
  window->addWidget(grdVorschau, 1);
  window->addWidget(lblErgebnis);
  window->addWidget(widgets::makeRule(this));
  window->addLayout(readings::buttonRow({cmdHilfe}, {cmdUebernehmen, cmdSchliessen}));
  tameButtons();
  resize(720, 440);
}

bool frmTabelleEinlesen::chooseFile() {
  const QString path =
      services_.prompts.openFile(this, u"Tabellen (*.csv, *.txt)|*.csv;*.txt|Alle Dateien|*.*"_s,
                                 u"Tabelle einlesen"_s, utf8(session_.dataFolder()));
  if (path.isEmpty()) return false;
  const auto bytes = services_.files.readText(path.toStdString(), kLargestTable);
  if (!bytes) {
    services_.prompts.tell(this, utf8(base::germanMessage(bytes.error())), windowTitle(),
                           dialogs::Icon::Warning);
    return false;
  }
  lblDatei->setText(utf8(base::fileName(path.toStdString())));
  rows_ = readingbook::readTable(*bytes);
  columns_ = readingbook::guessColumns(rows_, path.toStdString());
  offerColumns();
  showPreview();
  return true;
}

void frmTabelleEinlesen::offerColumns() {
  std::size_t width = 0;
  for (const auto& row : rows_) width = std::max(width, row.cells.size());
  const auto heading = std::find_if(rows_.begin(), rows_.end(), [this](const auto& row) {
    return row.line == columns_.headingLine;
  });
  const auto fill = [&](QComboBox* box, int chosen) {
    box->addItem(u"–"_s);
    for (std::size_t i = 0; i < width; ++i) {
      QString name = u"Spalte %1"_s.arg(i + 1);
      if (heading != rows_.end() && i < heading->cells.size())
        name += u": "_s + utf8(heading->cells[i]);
      box->addItem(name);
    }
    box->setCurrentIndex(chosen + 1);
  };
  fill(cboDatum, columns_.date);
  for (int i = 0; i < cboZaehler.size(); ++i)
    fill(cboZaehler(i), columns_.readings[yearbook::kMeters[static_cast<std::size_t>(i)]]);
}

void frmTabelleEinlesen::showPreview() {
  columns_.date = cboDatum->currentIndex() - 1;
  for (int i = 0; i < cboZaehler.size(); ++i)
    columns_.readings[yearbook::kMeters[static_cast<std::size_t>(i)]] =
        cboZaehler(i)->currentIndex() - 1;
  const auto table = readingsOf(rows_, columns_);
  import_ = {};
  if (auto import = readingbook::previewImport(session_, table))
    import_ = std::move(*import);
  else
    import_.problems = {{0, base::germanReason(import.error())}};
  if (!columns_.anyMeter()) import_.problems.clear();  // nothing has been looked for yet
  grdVorschau->setRowCount(0);
  for (const auto& problem : import_.problems) showProblem(problem);
  for (const auto& entry : table.entries) {
    if (grdVorschau->rowCount() >= kShownLines) break;
    showEntry(entry);
  }
  for (const int column : {kLine, kDay, kMeter, kReading})
    grdVorschau->resizeColumnToContents(column);
  showOutcome();
}

int frmTabelleEinlesen::addLine(const QStringList& texts) {
  const int line = grdVorschau->rowCount();
  grdVorschau->insertRow(line);
  for (int column = 0; column < texts.size(); ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    item->setTextAlignment(Qt::AlignVCenter |
                           (column == kReading ? Qt::AlignRight : Qt::AlignLeft));
    grdVorschau->setItem(line, column, item);
  }
  return line;
}

void frmTabelleEinlesen::showProblem(const readingbook::TableProblem& problem) {
  const QString text = u"✕ "_s + utf8(problem.reason);
  const int line =
      addLine({problem.line > 0 ? QString::number(problem.line) : QString(), {}, {}, {}, text});
  QTableWidgetItem* note = grdVorschau->item(line, kNote);
  note->setData(widgets::kToneRole, int(widgets::Tone::Error));
  note->setToolTip(text);
}

void frmTabelleEinlesen::showEntry(const readingbook::TableEntry& row) {
  QString note = utf8(row.entry.remark);
  if (row.entry.newStart)
    note = u"Zählerwechsel, neuer Anfang %1. "_s.arg(
               utf8(readingbook::formatReading(*row.entry.newStart))) +
           note;
  const int line = addLine({QString::number(row.line), utf8(base::formatDate(row.entry.date)),
                            readings::spokenName(row.meter),
                            utf8(readingbook::formatReading(row.entry.reading)), note});
  grdVorschau->item(line, kMeter)->setIcon(readings::markOf(row.meter, palette()));
}

void frmTabelleEinlesen::showOutcome() {
  const auto failed = import_.problems.size();
  cmdUebernehmen->setEnabled(failed == 0 && import_.added > 0);
  QString text =
      import_.added == 1 ? u"1 Ablesung ist neu"_s : u"%1 Ablesungen sind neu"_s.arg(import_.added);
  if (import_.alreadyThere > 0) text += u", %1 stehen schon im Buch"_s.arg(import_.alreadyThere);
  if (failed > 0)
    text = (failed == 1 ? u"1 Fehler"_s : u"%1 Fehler"_s.arg(failed)) +
           u", so wird nichts übernommen"_s;
  if (!columns_.anyMeter()) text = u"Noch ist keinem Zähler eine Spalte zugeordnet"_s;
  lblErgebnis->setText(text + u'.');
  lblErgebnis->setMark(failed == 0 ? MarkedLabel::Mark::Quiet : MarkedLabel::Mark::Error);
}
