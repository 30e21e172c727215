#include "widgets/LateIcon.h"

#include <QPainter>

namespace widgets {

QPixmap LateIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  return source_(size).pixmap(size, 1.0, mode, state);
}

void LateIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
  const qreal scale = painter->device()->devicePixelRatioF();
  painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
}

}  // namespace widgets
