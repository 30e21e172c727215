#include "widgets/ActionOption.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace widgets {
namespace {

QStyleOptionButton asPushButton(const QRadioButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  option.icon = button.icon();
  option.iconSize = button.iconSize();
  option.state |= button.isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
  return option;
}

}  // namespace

ActionOption::ActionOption(QWidget* parent) : QRadioButton(parent) {
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize ActionOption::sizeHint() const {
  const QStyleOptionButton option = asPushButton(*this);
  QSize content = fontMetrics().size(Qt::TextShowMnemonic, text());
  if (!icon().isNull()) {
    content.rwidth() += iconSize().width() + 8;
    content.setHeight(qMax(content.height(), iconSize().height()));
  }
  return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

void ActionOption::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButton, asPushButton(*this));
}

void ActionOption::keyPressEvent(QKeyEvent* event) {
  // Arrow keys would select, and thereby start, the neighbour.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Left)
    focusPreviousChild();
  else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Right)
    focusNextChild();
  else
    QRadioButton::keyPressEvent(event);
}

}  // namespace widgets
