#include "mainwindow/Notice.h"

#include <QPainter>

namespace mainwindow {

Notice::Notice(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("lblHinweis"));
  setAccessibleName(QStringLiteral("Hinweis"));
  setContentsMargins(10, 4, 10, 4);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  hide();
}

void Notice::say(const QString& text) {
  setText(text);
  setVisible(!text.isEmpty());
}

void Notice::add(const QString& text) {
  say(this->text().isEmpty() ? text : this->text() + u'\n' + text);
}

// A tint of the ground, so that it stays quiet in light and dark.
void Notice::paintEvent(QPaintEvent* event) {
  QColor color = palette().color(QPalette::Active, QPalette::Highlight);
  color.setAlpha(60);
  QPainter(this).fillRect(rect(), color);
  QLabel::paintEvent(event);
}

}  // namespace mainwindow
