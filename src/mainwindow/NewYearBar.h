#pragma once

#include "mainwindow/Bar.h"
#include "widgets/control.h"

namespace mainwindow {

// A year was made while another one is open: the way to it, for what is typed here goes into the
// old one.
class NewYearBar final : public Bar {
  Q_OBJECT
 public:
  explicit NewYearBar(QWidget* parent);
  void offer(const std::string& path);
  const std::string& path() const { return path_; }

  QLabel* const lblNeuesJahr = widgets::control<QLabel>(this, "lblNeuesJahr");
  QPushButton* const cmdNeuesJahr = widgets::control<QPushButton>(this, "cmdNeuesJahr");
  QToolButton* const cmdNeuesJahrZu = widgets::control<QToolButton>(this, "cmdNeuesJahrZu");

 private:
  std::string path_;
};

}  // namespace mainwindow
