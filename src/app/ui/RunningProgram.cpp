#include "app/ui/RunningProgram.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSysInfo>
#include <QThread>

#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

constexpr qint64 kPatience = 4000;  // milliseconds
constexpr int kLongestPath = 1 << 16;

const QString& messagePattern() {
  static const QString pattern = u"*.oeffnen"_s;
  return pattern;
}

// Each machine and display has its own: a window on another one would be seen by nobody.
QDir meetingPlace() {
  const QByteArray place = QSysInfo::machineHostName().toUtf8() + '\n' + qgetenv("DISPLAY") + '\n' +
                           qgetenv("WAYLAND_DISPLAY");
  const QByteArray key =
      QCryptographicHash::hash(place, QCryptographicHash::Sha256).toHex().left(12);
  const QString settings = QFileInfo(widgets::userSettings().fileName()).absolutePath();
  return QDir(settings + u"/laufend-"_s + QString::fromLatin1(key));
}

std::unique_ptr<QLockFile> lockIn(const QDir& place) {
  auto lock = std::make_unique<QLockFile>(place.filePath(u"sperre"_s));
  // However long the program runs; one that has died is noticed by its number.
  lock->setStaleLockTime(0);
  return lock;
}

}  // namespace

bool RunningProgram::handOver(const std::string& path) {
  const QDir place = meetingPlace();
  if (!place.exists()) return false;
  const auto lock = lockIn(place);
  if (lock->tryLock()) return false;
  if (lock->error() != QLockFile::LockFailedError) return false;

  const QString message =
      place.filePath(QString::number(QCoreApplication::applicationPid()) + messagePattern().mid(1));
  QSaveFile file(message);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(QByteArray::fromStdString(path));
  if (!file.commit()) return false;
  constexpr unsigned long kPause = 20;
  for (qint64 waited = 0; waited < kPatience && !lock->tryLock(); waited += kPause) {
    if (!QFile::exists(message)) return true;
    QThread::msleep(kPause);
  }
  // Not taken, so it is ours again; gone in this moment, it was taken after all.
  return !QFile::remove(message);
}

void RunningProgram::listen(std::function<void(const std::string&)> opened) {
  const QDir place = meetingPlace();
  if (!QDir().mkpath(place.path())) return;
  auto lock = lockIn(place);
  if (!lock->tryLock()) return;
  lock_ = std::move(lock);
  opened_ = std::move(opened);
  // What nobody waits for any more.
  const QDateTime oldest = QDateTime::currentDateTime().addMSecs(-kPatience);
  for (const QFileInfo& message : place.entryInfoList({messagePattern()}, QDir::Files))
    if (message.lastModified() < oldest) QFile::remove(message.filePath());
  watcher_.addPath(place.path());
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, [this] { take(); });
  take();
}

void RunningProgram::take() {
  const QDir place = meetingPlace();
  for (const QString& name : place.entryList({messagePattern()}, QDir::Files)) {
    QFile message(place.filePath(name));
    if (!message.open(QIODevice::ReadOnly)) continue;
    const std::string path = message.read(kLongestPath).toStdString();
    message.close();
    // Only what could be taken away counts as taken: the other one opens it otherwise.
    if (message.remove() && !path.empty()) opened_(path);
  }
}

}  // namespace app
