#include "mainwindow/LinkBar.h"

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

LinkBar::LinkBar(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraAblesen"_s);
  setAccessibleName(u"Was zu tun ist"_s);
  arrange(lblAblesen, cmdDorthin, cmdAblesenZu);
  cmdDorthin->setAccessibleName(u"Dorthin"_s);
  connect(cmdAblesenZu, &QToolButton::clicked, this, [this] {
    closed_ = lblAblesen->text();
    closeByHand();
  });
}

void LinkBar::offer(const QString& text, const QString& way, QAction* action) {
  action_ = action;
  const bool wanted = !text.isEmpty() && text != closed_;
  const bool news = wanted && text != lblAblesen->text();
  lblAblesen->setText(text);
  cmdDorthin->setText(QString(way).replace(u'&', u"&&"_s));
  if (!way.isEmpty()) cmdDorthin->setAccessibleName(way);
  cmdDorthin->setToolTip(way);
  want(wanted);
  if (news) announce(lblAblesen);
}

bool LinkBar::follow() {
  if (action_) action_->trigger();
  return action_ != nullptr;
}

}  // namespace mainwindow
