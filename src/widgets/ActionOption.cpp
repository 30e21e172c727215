#include "widgets/ActionOption.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTimer>

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

// To a screen reader it is what it does: a button. Checking it, which a reader would do with an
// option, starts nothing.
class SpokenAction final : public QAccessibleWidget {
 public:
  explicit SpokenAction(ActionOption* button)
      : QAccessibleWidget(button, QAccessible::PushButton), button_(button) {}

  QString text(QAccessible::Text kind) const override {
    const QString spoken = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && spoken.isEmpty() ? button_->text().remove(u'&') : spoken;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  // What it starts can be a window, which closes long after the reader wants its answer.
  void doAction(const QString& name) override {
    if (name == pressAction())
      QTimer::singleShot(0, button_, &QAbstractButton::click);
    else
      QAccessibleWidget::doAction(name);
  }

 private:
  ActionOption* button_;
};

QAccessibleInterface* makeSpoken(const QString&, QObject* object) {
  auto* button = qobject_cast<ActionOption*>(object);
  return button ? new SpokenAction(button) : nullptr;
}

}  // namespace

ActionOption::ActionOption(QWidget* parent) : QRadioButton(parent) {
  [[maybe_unused]] static const bool once = [] {
    QAccessible::installFactory(makeSpoken);
    return true;
  }();
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
