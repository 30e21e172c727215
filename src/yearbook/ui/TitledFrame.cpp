#include "yearbook/ui/TitledFrame.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

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
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

}  // namespace yearbook
