#include "mainwindow/UndoBar.h"

#include <QHBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

UndoBar::UndoBar(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraGeaendert"_s);
  setAccessibleName(u"Geändert"_s);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 8, 3);
  lblGeaendert->setWordWrap(true);
  lblGeaendert->setTextInteractionFlags(Qt::TextSelectableByMouse);
  cmdRueckgaengig->setText(u"&Rückgängig"_s);
  cmdRueckgaengig->setAccessibleName(u"Rückgängig"_s);
  cmdRueckgaengig->setToolTip(u"Was vorher da war, kommt zurück (Strg+Z)"_s);
  cmdHinweisZu->setText(u"✕"_s);
  cmdHinweisZu->setAutoRaise(true);
  cmdHinweisZu->setToolTip(u"Hinweis schließen; zurück geht es weiter mit Strg+Z"_s);
  cmdHinweisZu->setAccessibleName(u"Hinweis schließen"_s);
  row->addWidget(lblGeaendert, 1);
  row->addWidget(cmdRueckgaengig);
  row->addWidget(cmdHinweisZu);
  connect(cmdHinweisZu, &QToolButton::clicked, this, &QWidget::hide);
  hide();
}

void UndoBar::offer(const QString& text) {
  if (text == lblGeaendert->text() && isVisible() == !text.isEmpty()) return;
  lblGeaendert->setText(text);
  setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  announce(lblGeaendert);
}

}  // namespace mainwindow
