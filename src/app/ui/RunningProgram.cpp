#include "app/ui/RunningProgram.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSysInfo>
#include <chrono>
#include <thread>

#include "base/Paths.h"
#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

constexpr std::chrono::milliseconds kPatience{4000};
constexpr int kLongestPath = 1 << 16;
constexpr std::string_view kMessageExtension = ".oeffnen";

// Each machine and display has its own: a window on another one would be seen by nobody.
QDir meetingPlace() {
  const QByteArray place = QSysInfo::machineHostName().toUtf8() + '\n' + qgetenv("DISPLAY") + '\n' +
                           qgetenv("WAYLAND_DISPLAY");
  const QByteArray key =
      QCryptographicHash::hash(place, QCryptographicHash::Sha256).toHex().left(12);
  const QString settings = QFileInfo(widgets::userSettings().fileName()).absolutePath();
  return QDir(settings + u"/laufend-"_s + QString::fromLatin1(key));
}

// Held as long as the program runs; the system lets go of it when the program dies.
base::Result<std::unique_ptr<base::File>> lockIn(const QDir& place, base::FileSystem& files) {
  return files.open(place.filePath(u"sperre"_s).toStdString(), base::OpenMode::Create);
}

// The paths of all messages that lie there.
std::vector<std::string> messagesIn(const QDir& place, const base::FileSystem& files) {
  const std::string folder = base::withSeparator(place.path().toStdString());
  std::vector<std::string> messages;
  for (const std::string& name : files.list(folder).value_or(std::vector<std::string>()))
    if (base::hasExtension(name, kMessageExtension)) messages.push_back(folder + name);
  return messages;
}

}  // namespace

bool RunningProgram::handOver(const std::string& path) const {
  const QDir place = meetingPlace();
  if (!place.exists()) return false;
  if (const auto lock = lockIn(place, files_); lock || lock.error().code != base::ErrorCode::InUse)
    return false;

  const QString message =
      place.filePath(QString::number(QCoreApplication::applicationPid()) +
                     QString::fromUtf8(kMessageExtension.data(), kMessageExtension.size()));
  QSaveFile file(message);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(QByteArray::fromStdString(path));
  if (!file.commit()) return false;
  constexpr std::chrono::milliseconds kPause{20};
  for (std::chrono::milliseconds waited{0}; waited < kPatience && !lockIn(place, files_);
       waited += kPause) {
    if (!QFile::exists(message)) return true;
    std::this_thread::sleep_for(kPause);
  }
  // Not taken, so it is ours again; gone in this moment, it was taken after all.
  return !QFile::remove(message);
}

void RunningProgram::listen(std::function<void(const std::string&)> opened) {
  const QDir place = meetingPlace();
  if (!QDir().mkpath(place.path())) return;
  auto lock = lockIn(place, files_);
  if (!lock) return;
  lock_ = std::move(*lock);
  opened_ = std::move(opened);
  // What nobody waits for any more.
  const auto oldest = std::chrono::system_clock::now() - kPatience;
  for (const std::string& message : messagesIn(place, files_))
    if (const auto info = files_.info(message); info && info->modified < oldest)
      base::ignore(files_.remove(message), "what stays is looked at by the next start");
  watcher_.addPath(place.path());
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, [this] { take(); });
  take();
}

void RunningProgram::take() {
  for (const std::string& message : messagesIn(meetingPlace(), files_)) {
    const auto path = files_.readText(message, kLongestPath);
    // Only what could be taken away counts as taken: the other one opens it otherwise.
    if (path && files_.remove(message) && !path->empty()) opened_(*path);
  }
}

}  // namespace app
