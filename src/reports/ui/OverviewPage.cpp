#include "reports/ui/OverviewPage.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

#include "dialogs/Prompts.h"
#include "reports/DetailTable.h"
#include "reports/Exports.h"
#include "reports/ui/PdfExport.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

constexpr int kGap = 4;  // below a button

}  // namespace

OverviewPage::OverviewPage(const dialogs::Services& services, const yearbook::YearSession& year,
                           QWidget* parent)
    : QFrame(parent), services_(services), year_(year) {
  setObjectName(u"Frame4"_s);
  buildLayout();
  grdDruck->installEventFilter(this);
  connect(cmdDrucken, &QPushButton::clicked, this, &OverviewPage::cmdDruckenClick);
  connect(cmdExpHtml, &QPushButton::clicked, this, &OverviewPage::cmdExpHtmlClick);
  connect(cmdVorschau, &QPushButton::clicked, this, &OverviewPage::cmdVorschauClick);
  connect(cmdPdf, &QPushButton::clicked, this, &OverviewPage::cmdPdfClick);
  connect(cmdKopieren, &QPushButton::clicked, grdDruck, &FlexGrid::copyToClipboard);
}

void OverviewPage::buildLayout() {
  captionAll({cmdDrucken, cmdVorschau, cmdExpHtml, cmdKopieren}, u"Übersicht"_s);
  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(kGap);
  captionPdf(cmdPdf);
  for (QPushButton* button : {cmdDrucken, cmdVorschau, cmdExpHtml, cmdPdf, cmdKopieren}) {
    button->setMinimumWidth(button->fontMetrics().averageCharWidth() * 20);
    buttons->addWidget(button);
  }
  for (QLabel* note : std::initializer_list<QLabel*>{lblStand, lblAusgabe}) {
    dressOutputNote(note);
    buttons->addWidget(note);
  }
  lblStand->setText(
      u"Die Tabelle zählt alles, was eingetragen ist: auch Abschläge, die noch kommen, und die "
      "Grundgebühr des ganzen Jahres. Ein Saldo mit Minus ist ein Guthaben."_s);
  lblStand->setToolTip(asOfLastReadingNote());
  buttons->addStretch();

  grdDruck->setAccessibleName(u"Jahresübersicht"_s);
  grdDruck->setFillsWidth(true);
  auto* row = new QHBoxLayout;
  row->addWidget(grdDruck, 1);
  row->addSpacing(12);
  row->addLayout(buttons);
  auto* page = new QVBoxLayout(this);
  page->addWidget(fraErgebnisse);
  page->addSpacing(4);
  page->addLayout(row, 1);
  for (QWidget* next : {static_cast<QWidget*>(grdDruck), static_cast<QWidget*>(cmdDrucken)})
    next->setFocusPolicy(Qt::StrongFocus);
}

void OverviewPage::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (!event->spontaneous()) rebuild();
}

void OverviewPage::rebuild() {
  const OverviewInput input = overviewInput(year_);
  grdDruck->setGrid(buildOverview(input, measureOn(*grdDruck)));
  const auto results = yearResults(input);
  fraErgebnisse->show(results);
  underWay_ = isUnderWay(results);
  showStand();
  sayBelow(lblAusgabe, pageNotice(htmlPage(), year_.path(), services_));
}

bool OverviewPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) showStand();
  return QFrame::eventFilter(watched, event);
}

// On a small screen the buttons take all the height; the cards' tooltips and the print say it too.
void OverviewPage::showStand() {
  const int buttons = cmdKopieren->geometry().bottom() - cmdDrucken->y();
  const int needed = lblStand->heightForWidth(cmdDrucken->width()) + kGap;
  lblStand->setVisible(underWay_ && buttons + needed < grdDruck->height());
}

GridPrinter OverviewPage::pages() const {
  return GridPrinter(grdDruck->grid(),
                     QString::fromStdString(documentName(services_.clock.today())),
                     kOverviewMargins, overviewWords(overviewInput(year_)));
}

std::string OverviewPage::htmlPage() const {
  return services_.paths.DataFolder + overviewPageName(year_.openedMonth());
}

void OverviewPage::cmdPdfClick() {
  sayWhere(lblAusgabe, savePdf(pages(), proposedName(year_.path(), "Übersicht"), services_, this));
}

void OverviewPage::cmdDruckenClick() {
  printGrid(pages(), services_, this, printerChoice);
}

void OverviewPage::cmdVorschauClick() {
  previewGrid(pages(), this);
}

void OverviewPage::cmdExpHtmlClick() {
  exportPage(grdDruck->grid(), htmlPage(), year_.path(), services_, this);
  sayBelow(lblAusgabe, {});
}

}  // namespace reports
