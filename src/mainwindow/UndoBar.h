#pragma once

#include "mainwindow/Bar.h"
#include "widgets/control.h"

namespace mainwindow {

// Below the menus: what a change of many values has done, and the way back. Stays until that is
// taken, the bar is closed or the year is left.
class UndoBar final : public Bar {
  Q_OBJECT
 public:
  explicit UndoBar(QWidget* parent);
  // "" hides it.
  void offer(const QString& text);

  QLabel* const lblGeaendert = widgets::control<QLabel>(this, "lblGeaendert");
  QPushButton* const cmdRueckgaengig = widgets::control<QPushButton>(this, "cmdRueckgaengig");
  QToolButton* const cmdHinweisZu = widgets::control<QToolButton>(this, "cmdHinweisZu");
};

}  // namespace mainwindow
