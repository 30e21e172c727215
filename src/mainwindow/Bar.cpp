#include "mainwindow/Bar.h"

#include <QAccessible>
#include <QPainter>

namespace mainwindow {

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
