#include "mainwindow/Bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

Bar::Bar(QWidget* parent) : QFrame(parent) {
  hide();
}

void Bar::want(bool wanted) {
  if (wanted == wanted_) return;
  wanted_ = wanted;
  Q_EMIT wantedChanged();
}

void Bar::closeByHand() {
  want(false);
  Q_EMIT closedByHand();
}

void Bar::captionClose(QToolButton* close) {
  close->setText(u"✕"_s);
  close->setAutoRaise(true);
  close->setAccessibleName(u"Hinweis schließen"_s);
  close->setToolTip(close->accessibleName());
}

void Bar::arrange(QLabel* text, QPushButton* way, QToolButton* close) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 8, 3);
  text->setWordWrap(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  captionClose(close);
  row->addWidget(text, 1);
  row->addWidget(way);
  row->addWidget(close);
}

void Bar::announce(QWidget* text) {
  toAnnounce_ = text;
  if (!isVisible()) return;
  QAccessibleEvent alert(std::exchange(toAnnounce_, nullptr), QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void Bar::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  if (toAnnounce_ != nullptr) announce(toAnnounce_);
}

void Bar::paintEvent(QPaintEvent*) {
  constexpr int kStripe = 4;
  QPainter painter(this);
  if (widgets::isHighContrast(palette())) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    return;
  }
  const QColor accent = palette().color(QPalette::Active, QPalette::Highlight);
  QColor tint = accent;
  tint.setAlpha(34);
  painter.fillRect(rect(), tint);
  painter.fillRect(QRect(0, 0, kStripe, height()), accent);
}

BarPlace::BarPlace(QWidget* parent, const QList<Bar*>& bars) : QWidget(parent), bars_(bars) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  for (Bar* bar : bars_) {
    rows->addWidget(bar);
    connect(bar, &Bar::wantedChanged, this, &BarPlace::showFirst);
    connect(bar, &Bar::closedByHand, this, &BarPlace::settle);
  }
  showFirst();
}

void BarPlace::settle() {
  int highest = 0;
  for (const Bar* bar : bars_) {
    if (!bar->isWanted()) continue;
    const int wrapped = bar->layout()->heightForWidth(width());
    highest = std::max(highest, wrapped < 0 ? bar->layout()->sizeHint().height() : wrapped);
  }
  setMinimumHeight(highest);
}

bool BarPlace::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) settle();
  return QWidget::event(event);
}

void BarPlace::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // Narrower or wider, texts take more or fewer lines.
  if (event->oldSize().width() != width()) return settle();
  setMinimumHeight(height());
}

void BarPlace::showFirst() {
  const auto first =
      std::find_if(bars_.begin(), bars_.end(), [](Bar* bar) { return bar->isWanted(); });
  Bar* const shown = first == bars_.end() ? nullptr : *first;
  // Before the other one comes: two at a time would be as high as both.
  for (Bar* bar : bars_)
    if (bar != shown) bar->hide();
  if (shown) shown->show();
}

}  // namespace mainwindow
