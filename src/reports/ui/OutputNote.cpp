#include "reports/ui/OutputNote.h"

#include <QPainter>
#include <QTextLayout>

namespace reports {
namespace {

// The height of its lines.
int breakAnywhere(QTextLayout& text, int width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  text.setTextOption(option);
  qreal height = 0;
  text.beginLayout();
  for (QTextLine line = text.createLine(); line.isValid(); line = text.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  text.endLayout();
  return qCeil(height);
}

}  // namespace

int OutputNote::heightForWidth(int width) const {
  if (!isTooWide(width)) return QLabel::heightForWidth(width);
  QTextLayout lines(text(), font());
  return breakAnywhere(lines, width);
}

void OutputNote::paintEvent(QPaintEvent* event) {
  if (!isTooWide(width())) return QLabel::paintEvent(event);
  QTextLayout lines(text(), font());
  breakAnywhere(lines, width());
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  lines.draw(&painter, {});
}

}  // namespace reports
