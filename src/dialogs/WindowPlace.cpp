#include "dialogs/WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {
namespace {

class PlaceKeeper final : public QObject {
 public:
  explicit PlaceKeeper(QWidget& window) : QObject(&window), window_(window) {
    window.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && !event->spontaneous()) {
      if (event->type() == QEvent::Show && !shown_) restore();
      if (event->type() == QEvent::Hide)
        widgets::userSettings().setValue(key(), window_.saveGeometry());
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QString key() const { return u"Fenster/"_s + window_.objectName() + u"/Platz"_s; }

  void restore() {
    shown_ = true;
    window_.restoreGeometry(widgets::userSettings().value(key()).toByteArray());
    if (window_.windowState().testAnyFlags(Qt::WindowMaximized | Qt::WindowFullScreen)) return;
    // The screen may be a smaller one than last time.
    const QScreen* at = QGuiApplication::screenAt(window_.geometry().center());
    const QRect room = (at ? at : window_.screen())->availableGeometry();
    window_.resize(window_.size().boundedTo(room.size() - kDecoration));
  }

  QWidget& window_;
  bool shown_ = false;
};

}  // namespace

void keepPlace(QWidget& window) {
  new PlaceKeeper(window);
}

}  // namespace dialogs
