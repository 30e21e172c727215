#include "widgets/ColorMark.h"

#include <QPainter>

namespace widgets {

QIcon colorMark(const QPalette& palette, QColor color, QMargins room) {
  const QRect mark(room.left(), room.top(), 10, 10);
  QIcon icon;
  for (const int scale : {1, 2}) {
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
      QPixmap picture(mark.marginsAdded(room).size() * scale);
      picture.setDevicePixelRatio(scale);
      picture.fill(Qt::transparent);
      QPainter painter(&picture);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setBrush(color);
      painter.setPen(mode == QIcon::Selected ? QPen(palette.color(QPalette::HighlightedText), 1.4)
                                             : QPen(Qt::NoPen));
      painter.drawRoundedRect(mark, 2, 2);
      icon.addPixmap(picture, mode);
    }
  }
  return icon;
}

}  // namespace widgets
