#include "readings/ui/ColumnHeader.h"

#include <QPainter>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace readings {

ColumnHeader::ColumnHeader(QWidget* parent) : QLabel(parent) {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

QStringList ColumnHeader::headings() const {
  static const QRegularExpression gap(u" {2,}"_s);
  return text().split(gap, Qt::SkipEmptyParts);
}

int ColumnHeader::headingWidth(int index) const {
  return fontMetrics().horizontalAdvance(headings().value(index));
}

QSize ColumnHeader::minimumSizeHint() const {
  return {0, fontMetrics().height() + 2};
}

void ColumnHeader::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QStringList texts = headings();
  for (std::size_t i = 0; i < columns_.size() && i < static_cast<std::size_t>(texts.size()); ++i) {
    const int left = columns_[i]->x() - x();
    painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     texts[static_cast<qsizetype>(i)]);
  }
}

}  // namespace readings
