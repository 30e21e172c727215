#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace mainwindow {

// A bar below the menus: a sentence, a way to go from there, and a button that closes it. A stripe
// and a tint, so that it stays quiet in light and dark. Hidden at first.
class Bar : public QFrame {
  Q_OBJECT
 protected:
  using QFrame::QFrame;
  void arrange(QLabel* text, QPushButton* way, QToolButton* close);
  // Read out to those who cannot see it come.
  void announce(QWidget* text);
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mainwindow
