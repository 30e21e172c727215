#include "dialogs/HelpWindows.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "widgets/Pictures.h"
#include "widgets/control.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {

HelpWindow::HelpWindow(const Content& content, QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName(QLatin1String(content.name));
  setWindowTitle(content.caption);
  setWindowIcon(widgets::icon(u"hilfe"_s));
  setAttribute(Qt::WA_DeleteOnClose);

  auto* page = new QWidget;
  auto* picture = widgets::control<QLabel>(page, "picHilfe");
  picture->setPixmap(widgets::helpPicture(content.picture, devicePixelRatioF()));
  picture->setAccessibleName(content.description);
  auto* text = widgets::control<QLabel>(page, "lblHilfe");
  text->setTextFormat(Qt::RichText);
  text->setText(content.text);
  text->setWordWrap(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(16, 16, 16, 8);
  column->setSpacing(12);
  column->addWidget(picture, 0, Qt::AlignHCenter);
  column->addWidget(text);
  column->addStretch();

  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setWidget(page);
  auto* close = widgets::control<QPushButton>(this, "cmdSchliessen");
  close->setText(u"Fenster &schließen"_s);
  close->setAccessibleName(u"Fenster schließen"_s);
  close->setDefault(true);
  close->setMinimumSize(close->sizeHint() + QSize(20, 8));
  connect(close, &QPushButton::clicked, this, &QWidget::close);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 12, 12);
  rows->addWidget(area);
  rows->addWidget(close, 0, Qt::AlignRight);
  close->setFocus();
  // High enough for the text where the screen is; the page scrolls elsewhere.
  const int bar = area->verticalScrollBar()->sizeHint().width();
  const int width = page->minimumSizeHint().width() + bar + rows->contentsMargins().right();
  constexpr QSize kDecoration(16, 40);
  resize(QSize(width, qMin(page->heightForWidth(width) + 70, 680))
             .boundedTo(screen()->availableSize() - kDecoration));
}

void HelpWindow::showInFront() {
  show();
  raise();
  activateWindow();
}

void HelpWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Q_EMIT closed();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace dialogs

frmHilfe::frmHilfe(QWidget* parent)
    : HelpWindow({"frmHilfe", u"Kalvira - Hilfe"_s, u"hilfe-jahr"_s,
                  u"Ablauf: Jahr öffnen, jeden Monat Zählerstände eintragen, Kosten und Saldo "
                  "sehen, Übersicht drucken, Daten sichern"_s,
                  u"<p><b>1 Jahr öffnen.</b> Jede Datei (*.kwd) ist ein Abrechnungsjahr. Mit "
                  "<i>Neue Datei ANLEGEN</i> kommt ein weiteres Jahr dazu, "
                  "<i>Verbrauchserfassung öffnen</i> öffnet das ausgewählte.</p>"
                  "<p><b>2 Zählerstände eintragen.</b> Einmal im Monat den Zähler ablesen und den "
                  "Stand in der Eingabe des Zählers übernehmen; der Verbrauch ergibt sich aus dem "
                  "Stand davor. Preise, Grundgebühren, MwSt und Abschläge stehen daneben.</p>"
                  "<p><b>3 Kosten und Saldo sehen.</b> Jede Seite rechnet sofort mit; die "
                  "<i>Übersicht</i> stellt Kosten und Abschläge aller Zähler gegenüber. Die "
                  "<i>Hochrechnung</i> zeigt, wohin das Jahr führt.</p>"
                  "<p><b>4 Drucken.</b> Die Übersicht lässt sich drucken oder als HTML-Seite "
                  "speichern.</p>"
                  "<p><b>5 Sichern.</b> <i>Daten SICHERN</i> im Startfenster kopiert alle Jahre "
                  "auf einen anderen Datenträger. Jede Eingabe ist sofort gespeichert, ein eigenes "
                  "Speichern gibt es nicht.</p>"_s},
                 parent) {}

frmHilfeZaehlerWechs::frmHilfeZaehlerWechs(QWidget* parent)
    : HelpWindow(
          {"frmHilfeZaehlerWechs", u"Hilfe zum Zählerwechsel"_s, u"hilfe-zaehlerwechsel"_s,
           u"Bis zum Monat des Wechsels zählt der alte Zähler, vom Monat danach an der neue, "
           "gerechnet ab seinem Anfangsstand"_s,
           u"<p><b>1</b> Im Monat des Wechsels den <b>letzten Stand des alten Zählers</b> als "
           "Zählerstand eintragen.</p>"
           "<p><b>2</b> In der Zeile dieses Monats <i>Zählerwechsel</i> auswählen und den "
           "<b>Anfangszählerstand des neuen Zählers</b> eingeben.</p>"
           "<p><b>3</b> Ab dem folgenden Monat die Stände des neuen Zählers eintragen; sie "
           "stehen in der Spalte Zählerwechsel. Sein Verbrauch zählt ab dem "
           "Anfangszählerstand.</p>"
           "<p>Im Jahr ist ein Wechsel je Zähler möglich. <i>Zählerwechsel löschen</i> nimmt "
           "ihn zurück.</p>"_s},
          parent) {}
