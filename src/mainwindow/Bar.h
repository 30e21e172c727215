#pragma once

#include <QFrame>

namespace mainwindow {

// The ground of a bar below the menus: a stripe and a tint, so that it stays quiet in light and
// dark.
class Bar : public QFrame {
  Q_OBJECT
 protected:
  using QFrame::QFrame;
  // Read out to those who cannot see it come.
  void announce(QWidget* text);
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mainwindow
