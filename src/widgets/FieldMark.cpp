#include "widgets/FieldMark.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

#include "widgets/LateIcon.h"

using namespace Qt::Literals::StringLiterals;

namespace widgets {
namespace {

// Drawn, for not every font has the signs.
QIcon sign(Tone tone, const QLineEdit& field) {
  constexpr int kSize = 16;
  const double ratio = field.devicePixelRatioF();
  QPixmap picture(QSize(kSize, kSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(
      QPen(toneOf(tone, field.palette()), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  if (tone == Tone::Error) {
    painter.drawLine(QPointF(4, 4), QPointF(12, 12));
    painter.drawLine(QPointF(12, 4), QPointF(4, 12));
  } else {
    painter.drawPolygon(QPolygonF({{8, 2}, {14.5, 13.5}, {1.5, 13.5}}));
    painter.drawLine(QPointF(8, 6.5), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 11.7));
  }
  return picture;
}

}  // namespace

void markField(QLineEdit* field, Tone tone, const QString& words) {
  const QString name = u"actZweifel"_s;
  auto* mark = field->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
  if (words == (mark ? mark->toolTip() : QString())) return;
  delete mark;
  field->setAccessibleDescription(words);
  if (words.isEmpty()) return;
  // In the colours of the theme that there is when it is drawn.
  const QIcon drawn(new LateIcon([tone, field](const QSize&) { return sign(tone, *field); }));
  mark = field->addAction(drawn, QLineEdit::LeadingPosition);
  mark->setObjectName(name);
  mark->setToolTip(words);
  for (QObject* shown : mark->associatedObjects())
    if (auto* button = qobject_cast<QToolButton*>(shown)) {
      button->setObjectName(name + u'_' + field->objectName());
      button->setAccessibleName(words);
    }
}

}  // namespace widgets
