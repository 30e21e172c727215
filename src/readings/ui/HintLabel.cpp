#include "readings/ui/HintLabel.h"

#include <QEvent>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace readings {

void HintLabel::setUsualText(const QString& text) {
  usual_ = text;
  updateGeometry();
}

QSize HintLabel::sizeHint() const {
  const QSize own = QLabel::sizeHint();
  return own.expandedTo({fontMetrics().horizontalAdvance(usual_), 0});
}

QSize HintLabel::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(u"ergibt …"_s), QLabel::sizeHint().height()};
}

bool HintLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip)
    setToolTip(QLabel::sizeHint().width() > width() ? text() : QString());
  return MarkedLabel::event(event);
}

void HintLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

}  // namespace readings
