#include "reports/ui/DetailPage.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/SaveAs.h"
#include "reports/Exports.h"
#include "reports/GridText.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

constexpr PrintMargins kMargins = {540, 540};

}  // namespace

DetailPage::DetailPage(const dialogs::Services& services, const yearbook::YearSession& year,
                       QWidget* parent)
    : QFrame(parent), services_(services), year_(year) {
  setObjectName(u"fraDrucke"_s);
  setCaptions();
  buildLayout();
  for (QCheckBox* box : boxes()) {
    box->setChecked(true);
    connect(box, &QCheckBox::toggled, this, &DetailPage::boxTicked);
  }
  connect(cmdTabelle, &QPushButton::clicked, this, &DetailPage::cmdTabelleClick);
  connect(Command11, &QPushButton::clicked, this, &DetailPage::Command11Click);
  connect(Command10, &QPushButton::clicked, this, &DetailPage::Command10Click);
  connect(cmdVorschauAlle, &QPushButton::clicked, this, &DetailPage::cmdVorschauAlleClick);
  connect(cmdCsv, &QPushButton::clicked, this, &DetailPage::cmdCsvClick);
  connect(cmdPdf, &QPushButton::clicked, this, &DetailPage::cmdPdfClick);
  connect(cmdKopierenAlle, &QPushButton::clicked, this, [this] {
    if (followTicks()) grdDruckAlle->copyToClipboard();
  });
}

std::array<QPushButton*, 6> DetailPage::outputs() const {
  return {Command11, cmdVorschauAlle, Command10, cmdPdf, cmdCsv, cmdKopierenAlle};
}

PerMeter<QCheckBox*> DetailPage::boxes() const {
  return {chkStrom, chkStromNS, chkWasser, chkAbwasser, chkGas};
}

MeterChoice DetailPage::ticked() const {
  MeterChoice choice{};
  const auto all = boxes();
  for (Meter meter : yearbook::kMeters) choice[meter] = all[meter]->isChecked();
  return choice;
}

void DetailPage::setCaptions() {
  caption(chkStrom, u"Strom"_s);
  caption(chkStromNS, u"Nachtstrom"_s);
  caption(chkWasser, u"Wasser"_s);
  caption(chkAbwasser, u"Abwasser"_s);
  caption(chkGas, u"Gas"_s);
  caption(cmdTabelle, u"Werte in Tabelle aktualisieren"_s,
          u"Baut die Tabelle aus den angekreuzten Zählern neu auf"_s);
  captionAll({Command11, cmdVorschauAlle, Command10, cmdKopierenAlle}, u"Tabelle"_s);
  captionPdf(cmdPdf);
  caption(cmdCsv, u"Als &CSV speichern…"_s,
          u"Für Tabellenkalkulationen, alle Stellen der Beträge"_s);
  grdDruckAlle->setAccessibleName(u"Monate der angekreuzten Zähler"_s);
}

void DetailPage::buildLayout() {
  auto* choice = new QHBoxLayout;
  for (QCheckBox* box : boxes()) choice->addWidget(box);
  choice->addSpacing(12);
  choice->addWidget(cmdTabelle);
  choice->addStretch();

  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(4);
  for (QPushButton* button : outputs()) {
    button->setMinimumWidth(button->fontMetrics().averageCharWidth() * 20);
    buttons->addWidget(button);
  }
  dressOutputNote(lblAusgabe);
  buttons->addWidget(lblAusgabe);
  buttons->addStretch();

  auto* row = new QHBoxLayout;
  row->addWidget(grdDruckAlle, 1);
  row->addSpacing(12);
  row->addLayout(buttons);
  row->addStretch();
  auto* page = new QVBoxLayout(this);
  page->addLayout(choice);
  page->addLayout(row, 1);
}

void DetailPage::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (event->spontaneous()) return;
  followNightTariff();
  cmdTabelleClick();
}

// A household without a night tariff need not take its empty block out of every print-out. What is
// ticked by hand stays until the tariff is shown or hidden again.
void DetailPage::followNightTariff() {
  const bool shown = year_.values().nightShown;
  if (shown != nightShown_) chkStromNS->setChecked(shown);
  nightShown_ = shown;
}

void DetailPage::cmdTabelleClick() {
  const MeterChoice choice = ticked();
  grdDruckAlle->setGrid(buildDetailTable(detailInput(year_, services_.clock.today()), choice,
                                         measureOn(*grdDruckAlle)));
  const bool anyBlock = std::find(choice.begin(), choice.end(), true) != choice.end();
  for (QPushButton* button : outputs()) button->setEnabled(anyBlock);
  outdated_ = false;
  sayBelow(lblAusgabe, pageNotice(htmlPage(), year_.path(), services_));
}

void DetailPage::boxTicked() {
  outdated_ = true;
  sayBelow(lblAusgabe, u"Die Tabelle zeigt noch nicht, was angekreuzt ist."_s);
}

// What is put out is what is ticked; false when that is nothing.
bool DetailPage::followTicks() {
  if (outdated_) cmdTabelleClick();
  return Command11->isEnabled();
}

GridPrinter DetailPage::pages() const {
  return GridPrinter(grdDruckAlle->grid(),
                     QString::fromStdString(documentName(services_.clock.today())), kMargins,
                     PageWords{footerOf(year_.path()), {}});
}

std::string DetailPage::htmlPage() const {
  return services_.paths.DataFolder + detailPageName(year_.openedMonth());
}

void DetailPage::Command11Click() {
  if (followTicks()) printGrid(pages(), services_, this, printerChoice);
}

void DetailPage::cmdVorschauAlleClick() {
  if (followTicks()) previewGrid(pages(), this);
}

void DetailPage::Command10Click() {
  if (!followTicks()) return;
  exportPage(grdDruckAlle->grid(), htmlPage(), year_.path(), services_, this);
  sayBelow(lblAusgabe, {});
}

void DetailPage::cmdPdfClick() {
  if (!followTicks()) return;
  sayWhere(lblAusgabe, savePdf(pages(), proposedName(year_.path(), "Monate"), services_, this));
}

void DetailPage::cmdCsvClick() {
  if (!followTicks()) return;
  const QString name = QString::fromStdString(proposedName(year_.path(), "Monate")) + u".csv"_s;
  sayWhere(lblAusgabe,
           dialogs::saveAs(
               {u"CSV-Tabelle (*.csv)|*.csv"_s, u"Tabelle als CSV speichern"_s, name, u".csv"_s},
               QByteArray::fromStdString(toCsv(grdDruckAlle->grid())), services_, this));
}

}  // namespace reports
