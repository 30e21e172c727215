#include "mainwindow/UndoBar.h"

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

UndoBar::UndoBar(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraGeaendert"_s);
  setAccessibleName(u"Geändert"_s);
  arrange(lblGeaendert, cmdRueckgaengig, cmdHinweisZu);
  cmdRueckgaengig->setText(u"&Rückgängig"_s);
  cmdRueckgaengig->setAccessibleName(u"Rückgängig"_s);
  cmdRueckgaengig->setToolTip(u"Was vorher da war, kommt zurück (Strg+Z)"_s);
  cmdHinweisZu->setToolTip(u"Hinweis schließen; zurück geht es weiter mit Strg+Z"_s);
  connect(cmdHinweisZu, &QToolButton::clicked, this, &UndoBar::closeByHand);
}

void UndoBar::offer(const QString& text) {
  if (text == lblGeaendert->text() && isWanted() == !text.isEmpty()) return;
  lblGeaendert->setText(text);
  want(!text.isEmpty());
  if (text.isEmpty()) return;
  announce(lblGeaendert);
}

}  // namespace mainwindow
