#pragma once

#include <QLabel>

namespace mainwindow {

// A quiet line above the pages; hidden while there is nothing to say.
class Notice final : public QLabel {
  Q_OBJECT
 public:
  explicit Notice(QWidget* parent);
  // "" hides it.
  void say(const QString& text);
  // Below what it says already.
  void add(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mainwindow
