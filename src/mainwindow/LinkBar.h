#pragma once

#include <QAction>

#include "mainwindow/Bar.h"
#include "widgets/control.h"

namespace mainwindow {

// One sentence about what may be done next, and the way there. Once closed it does not come back
// with the same sentence.
class LinkBar final : public Bar {
  Q_OBJECT
 public:
  explicit LinkBar(QWidget* parent);
  // "" hides it.
  void offer(const QString& text, const QString& way, QAction* action);
  // False when the offer names no action.
  bool follow();

  QLabel* const lblAblesen = widgets::control<QLabel>(this, "lblAblesen");
  QPushButton* const cmdDorthin = widgets::control<QPushButton>(this, "cmdDorthin");
  QToolButton* const cmdAblesenZu = widgets::control<QToolButton>(this, "cmdAblesenZu");

 private:
  QAction* action_ = nullptr;
  QString closed_;
};

}  // namespace mainwindow
