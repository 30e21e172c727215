#pragma once

#include <QObject>
#include <functional>
#include <string>

class QDropEvent;
class QWidget;

namespace app {

// Opens a year file that is dropped anywhere onto a window, before a field below the pointer takes
// its name for text. Other things fall where they fell before.
class YearDrop final : public QObject {
  Q_OBJECT
 public:
  YearDrop(QWidget* window, std::function<void(const std::string& path)> opened);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* window_;
  std::function<void(const std::string&)> opened_;
};

}  // namespace app
