#include "widgets/ColorMark.h"

#include <QPainter>

namespace widgets {

QIcon colorMark(const QPalette& palette, QColor color) {
  constexpr int kRoom = 16, kMark = 10;
  QIcon icon;
  for (const int scale : {1, 2}) {
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
      QPixmap picture(kRoom * scale, kRoom * scale);
      picture.setDevicePixelRatio(scale);
      picture.fill(Qt::transparent);
      QPainter painter(&picture);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setBrush(color);
      painter.setPen(mode == QIcon::Selected ? QPen(palette.color(QPalette::HighlightedText), 1.4)
                                             : QPen(Qt::NoPen));
      painter.drawRoundedRect(QRectF(3, 3, kMark, kMark), 2, 2);
      icon.addPixmap(picture, mode);
    }
  }
  return icon;
}

}  // namespace widgets
