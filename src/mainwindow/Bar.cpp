#include "mainwindow/Bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

void Bar::arrange(QLabel* text, QPushButton* way, QToolButton* close) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 8, 3);
  text->setWordWrap(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  close->setText(u"✕"_s);
  close->setAutoRaise(true);
  close->setAccessibleName(u"Hinweis schließen"_s);
  close->setToolTip(close->accessibleName());
  row->addWidget(text, 1);
  row->addWidget(way);
  row->addWidget(close);
  hide();
}

void Bar::announce(QWidget* text) {
  QAccessibleEvent alert(text, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void Bar::paintEvent(QPaintEvent*) {
  constexpr int kStripe = 4;
  QPainter painter(this);
  const QColor accent = palette().color(QPalette::Active, QPalette::Highlight);
  QColor tint = accent;
  tint.setAlpha(34);
  painter.fillRect(rect(), tint);
  painter.fillRect(QRect(0, 0, kStripe, height()), accent);
}

}  // namespace mainwindow
