#include "app/ui/YearDrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {
namespace {

// "" when it is anything else than one year.
std::string yearIn(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
  const std::string path = base::fromPath(base::toPath(urls.first().toLocalFile().toStdString()));
  return base::hasExtension(path, kYearExtension) ? path : std::string();
}

}  // namespace

YearDrop::YearDrop(QWidget* window, std::function<void(const std::string&)> opened)
    : QObject(window), window_(window), opened_(std::move(opened)) {
  window->setAcceptDrops(true);
  qApp->installEventFilter(this);
}

bool YearDrop::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != window_) return false;
  auto* drop = static_cast<QDropEvent*>(event);
  const std::string path = yearIn(*drop);
  if (path.empty()) return false;
  // The file is looked at, not moved away.
  drop->setDropAction(Qt::CopyAction);
  drop->accept();
  // Later: the other program waits for the end of the drag.
  if (type == QEvent::Drop) QTimer::singleShot(0, this, [this, path] { opened_(path); });
  return true;
}

}  // namespace app
