#include "reports/ui/OverviewPage.h"

#include <QHBoxLayout>
#include <QShowEvent>
#include <QVBoxLayout>

#include "dialogs/Prompts.h"
#include "reports/DetailTable.h"
#include "reports/Exports.h"
#include "reports/PlainSummary.h"

using namespace Qt::StringLiterals;

namespace reports {

OverviewPage::OverviewPage(const dialogs::Services& services, Provider provider, QWidget* parent)
    : QFrame(parent), services_(services), provider_(std::move(provider)) {
  setObjectName(u"Frame4"_s);
  buildLayout();
  connect(cmdDrucken, &QPushButton::clicked, this, &OverviewPage::cmdDruckenClick);
  connect(cmdExpHtml, &QPushButton::clicked, this, &OverviewPage::cmdExpHtmlClick);
  connect(cmdVorschau, &QPushButton::clicked, this, &OverviewPage::cmdVorschauClick);
  connect(cmdKopieren, &QPushButton::clicked, grdDruck, &FlexGrid::copyToClipboard);
}

void OverviewPage::buildLayout() {
  struct Caption {
    QPushButton* button;
    QString text;
    QString hint;
  };
  const Caption captions[] = {
      {cmdDrucken, u"&Drucken"_s, u"Übersicht drucken"_s},
      {cmdVorschau, u"Vo&rschau"_s, u"Zeigt die Seiten, wie sie gedruckt werden"_s},
      {cmdExpHtml, u"&Export HTML"_s,
       u"Speichert die Übersicht als HTML-Seite im Datenordner und öffnet sie"_s},
      {cmdKopieren, u"Tabelle &kopieren"_s,
       u"Kopiert die Tabelle, zum Einfügen in eine Tabellenkalkulation"_s}};
  auto* buttons = new QVBoxLayout;
  for (const Caption& caption : captions) {
    caption.button->setText(caption.text);
    caption.button->setToolTip(caption.hint);
    caption.button->setAccessibleName(QString(caption.text).remove(u'&'));
    caption.button->setMinimumWidth(caption.button->fontMetrics().averageCharWidth() * 20);
    buttons->addWidget(caption.button);
  }
  buttons->addStretch();

  grdDruck->setAccessibleName(u"Jahresübersicht"_s);
  lblKlartext->setAccessibleName(u"Ergebnis in Worten"_s);
  lblKlartext->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lblKlartext->setWordWrap(true);

  auto* row = new QHBoxLayout;
  row->addWidget(grdDruck, 1);
  row->addSpacing(12);
  row->addLayout(buttons);
  row->addStretch();
  auto* page = new QVBoxLayout(this);
  page->addLayout(row, 1);
  page->addWidget(lblKlartext);
  for (QWidget* next : {static_cast<QWidget*>(grdDruck), static_cast<QWidget*>(cmdDrucken)})
    next->setFocusPolicy(Qt::StrongFocus);
}

void OverviewPage::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (!event->spontaneous()) rebuild();
}

void OverviewPage::rebuild() {
  const OverviewInput input = provider_();
  openedMonth_ = input.currentMonth;
  grdDruck->setGrid(buildOverview(input, measureOn(*grdDruck)));
  QStringList sentences;
  for (const std::string& sentence : plainSummary(input))
    sentences.append(QString::fromStdString(sentence));
  lblKlartext->setText(sentences.join(u'\n'));
}

GridPrinter OverviewPage::pages() const {
  return GridPrinter(grdDruck->grid(),
                     QString::fromStdString(documentName(services_.clock.today())),
                     kOverviewMargins);
}

void OverviewPage::cmdDruckenClick() {
  printGrid(pages(), services_, this, printerChoice);
}

void OverviewPage::cmdVorschauClick() {
  previewGrid(pages(), this);
}

void OverviewPage::cmdExpHtmlClick() {
  exportPage(grdDruck->grid(), services_.paths.DataFolder + overviewPageName(openedMonth_),
             services_, this);
}

}  // namespace reports
