#include "yearbook/ui/TitledFrame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <algorithm>

#include "yearbook/ui/MeterMark.h"

namespace yearbook {

// A bold font of the frame itself would be handed down to everything in it.
void TitledFrame::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  option.fontMetrics = QFontMetrics(bold);
  if (meter_) {
    constexpr int kRoom = 14, kMark = 16;
    const int blank = std::max(1, option.fontMetrics.horizontalAdvance(u' '));
    option.text.prepend(QString((kRoom + blank - 1) / blank, u' '));
    const QRect label =
        style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
    // The mark has a margin of its own.
    const QRect mark(label.left() - 3, label.center().y() - kMark / 2 + 1, kMark, kMark);
    meterMark(*meter_, palette()).paint(&painter, mark);
  }
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

}  // namespace yearbook
