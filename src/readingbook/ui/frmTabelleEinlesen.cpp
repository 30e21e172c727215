#include "readingbook/ui/frmTabelleEinlesen.h"

#include <QGridLayout>
#include <QHeaderView>
#include <algorithm>

#include "base/DateText.h"
#include "readings/ui/MeterRow.h"
#include "widgets/Rule.h"

using namespace Qt::Literals::StringLiterals;
using readingbook::TableColumns;
using readings::MarkedLabel;
using readings::utf8;

namespace {

constexpr std::uint64_t kLargestTable = 64 << 20;
constexpr int kShownLines = 500;

}  // namespace

frmTabelleEinlesen::frmTabelleEinlesen(const dialogs::Services& services,
                                       yearbook::YearSession& session, QWidget* parent)
    : EntryWindow("frmTabelleEinlesen", "Tabelle einlesen", services, session, parent) {
  arrange();
  connect(cboDatum, &QComboBox::activated, this, &frmTabelleEinlesen::showPreview);
  for (QComboBox* box : cboZaehler)
    connect(box, &QComboBox::activated, this, &frmTabelleEinlesen::showPreview);
  connect(cmdUebernehmen, &QPushButton::clicked, this, &QDialog::accept);
}

void frmTabelleEinlesen::arrange() {
  auto* choice = new QGridLayout;
  choice->setHorizontalSpacing(12);
  const auto add = [&](int place, const QString& name, QComboBox* box) {
    auto* label = new QLabel(name, this);
    label->setBuddy(box);
    box->setAccessibleName(u"Spalte "_s + QString(name).remove(u'&'));
    box->setToolTip(box->accessibleName());
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    choice->addWidget(label, place / 3, 2 * (place % 3));
    choice->addWidget(box, place / 3, 2 * (place % 3) + 1);
  };
  add(0, u"&Datum"_s, cboDatum);
  for (int i = 0; i < cboZaehler.size(); ++i)
    add(i + 1, readings::spokenName(yearbook::kMeters[static_cast<std::size_t>(i)]), cboZaehler(i));
  grdVorschau->setColumnCount(5);
  grdVorschau->setHorizontalHeaderLabels(
      {u"Zeile"_s, u"Datum"_s, u"Zähler"_s, u"Stand"_s, u"Hinweis"_s});
  grdVorschau->verticalHeader()->hide();
  grdVorschau->setShowGrid(false);
  grdVorschau->setTabKeyNavigation(false);
  grdVorschau->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdVorschau->horizontalHeader()->setStretchLastSection(true);
  grdVorschau->setAccessibleName(u"Vorschau"_s);
  cmdUebernehmen->setText(u"Ü&bernehmen"_s);
  cmdUebernehmen->setToolTip(u"Die Ablesungen in das Ablesebuch eintragen"_s);
  cmdUebernehmen->setDefault(true);
  makeCloseButton(cmdSchliessen);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(16, 12, 16, 12);
  window->setSpacing(8);
  window->addLayout(choice);
  window->addWidget(grdVorschau, 1);
  window->addWidget(lblErgebnis);
  window->addWidget(widgets::makeRule(this));
  window->addLayout(readings::buttonRow({}, {cmdUebernehmen, cmdSchliessen}));
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
  if (auto import = readingbook::previewImport(session_, table)) import_ = std::move(*import);
  grdVorschau->setRowCount(0);
  const auto addLine = [this](const QStringList& texts) {
    const int line = grdVorschau->rowCount();
    grdVorschau->insertRow(line);
    for (int column = 0; column < texts.size(); ++column)
      grdVorschau->setItem(line, column, new QTableWidgetItem(texts[column]));
  };
  for (const auto& problem : import_.problems)
    addLine({problem.line > 0 ? QString::number(problem.line) : QString(),
             {},
             {},
             {},
             u"✕ "_s + utf8(problem.reason)});
  for (const auto& row : table.entries) {
    if (grdVorschau->rowCount() >= kShownLines) break;
    const QString change = row.entry.newStart
                               ? u"Zählerwechsel, neuer Anfang "_s +
                                     utf8(readingbook::formatReading(*row.entry.newStart))
                               : QString();
    addLine({QString::number(row.line), utf8(base::formatDate(row.entry.date)),
             readings::spokenName(row.meter), utf8(readingbook::formatReading(row.entry.reading)),
             change});
  }
  grdVorschau->resizeColumnsToContents();
  const bool sound = import_.problems.empty() && import_.added > 0;
  cmdUebernehmen->setEnabled(sound);
  QString text = u"%1 Ablesungen sind neu"_s.arg(import_.added);
  if (import_.alreadyThere > 0) text += u", %1 stehen schon im Buch"_s.arg(import_.alreadyThere);
  if (!import_.problems.empty())
    text = u"%1 Zeilen können nicht übernommen werden; dann wird nichts übernommen"_s.arg(
        import_.problems.size());
  lblErgebnis->setText(text + u'.');
  lblErgebnis->setMark(import_.problems.empty() ? MarkedLabel::Mark::Quiet
                                                : MarkedLabel::Mark::Doubt);
}
