#include "mainwindow/NoticeBar.h"

#include <QHBoxLayout>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

NoticeBar::NoticeBar(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraHinweis"_s);
  setAccessibleName(u"Hinweis"_s);
  lblHinweis->setAccessibleName(u"Hinweis"_s);
  lblHinweis->setWordWrap(true);
  lblHinweis->setTextFormat(Qt::PlainText);
  lblHinweis->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblNochHinweise->setForegroundRole(QPalette::PlaceholderText);
  captionClose(cmdGelesen);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 8, 3);
  row->addWidget(lblHinweis, 1);
  row->addWidget(lblNochHinweise);
  row->addWidget(cmdGelesen);
  connect(cmdGelesen, &QToolButton::clicked, this, [this] {
    waiting_.erase(waiting_.begin());
    showFirst();
    if (waiting_.empty()) closeByHand();
  });
}

void NoticeBar::say(NoticeFrom from, const QString& text) {
  std::erase_if(waiting_, [&](const Notice& notice) { return notice.from == from; });
  const auto after = [&](const Notice& notice) { return notice.from > from; };
  if (!text.isEmpty())
    waiting_.insert(std::find_if(waiting_.begin(), waiting_.end(), after), {from, text});
  showFirst();
}

void NoticeBar::showFirst() {
  const QString text = waiting_.empty() ? QString() : waiting_.front().text;
  const int more = int(waiting_.size()) - 1;
  const bool news = !text.isEmpty() && text != lblHinweis->text();
  lblHinweis->setText(text);
  lblNochHinweise->setText(more == 1 ? u"noch 1 Hinweis"_s : u"noch %1 Hinweise"_s.arg(more));
  lblNochHinweise->setVisible(more > 0);
  want(!text.isEmpty());
  if (news) announce(lblHinweis);
}

}  // namespace mainwindow
