#include "app/ui/FileLists.h"

#include <QDateTime>
#include <QDir>
#include <string>

#include "app/YearFiles.h"

#include "base/Drives.h"
#include "yearbook/YearSummary.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

QStringList toQt(const std::vector<std::string>& names) {
  QStringList result;
  for (const std::string& name : names) result += QString::fromStdString(name);
  return result;
}

}  // namespace

widgets::FileList::Lister filesOf(const base::FileSystem& files, std::string_view extension) {
  return [&files, extension](const QString& folder) {
    return toQt(filesWithExtension(files, folder.toStdString(), extension));
  };
}

QString describeYear(base::FileSystem& files, const QString& path) {
  const auto summary = yearbook::summarizeYear(files, path.toStdString());
  if (!summary && summary.error().code == base::ErrorCode::InUse) return u"ist geöffnet"_s;
  QString content =
      summary ? QString::fromStdString(yearbook::describe(*summary)) : u"lässt sich nicht lesen"_s;
  const auto info = files.info(path.toStdString());
  if (!info) return content;
  const auto time =
      std::chrono::duration_cast<std::chrono::seconds>(info->modified.time_since_epoch());
  return content + u", Stand "_s +
         QDateTime::fromSecsSinceEpoch(time.count()).toString(u"dd.MM.yyyy HH:mm"_s);
}

widgets::FolderList::Lister subfoldersOf(const base::FileSystem& files) {
  return [&files](const QString& folder) -> std::optional<QStringList> {
    if (!files.list(folder.toStdString())) return std::nullopt;
    QStringList names = toQt(ListSubfolders(files, folder.toStdString()));
    names.removeIf([](const QString& name) { return name.startsWith(u'.'); });
    return names;
  };
}

QString firstBackupFolder() {
#ifdef _WIN32
  return u"C:\\"_s;
#else
  return QDir::homePath();
#endif
}

bool showFolder(widgets::DriveList& drives, widgets::FolderList& folders, const QString& folder) {
  drives.setDrives(toQt(base::driveRoots()));
  drives.showDriveOf(folder);
  return folders.setPath(drives.drive(), folder);
}

bool changeDrive(widgets::DriveList& drives, widgets::FolderList& folders, const QString& root) {
  if (folders.setPath(root, root)) return true;
  drives.showDriveOf(folders.path());
  return false;
}

}  // namespace app
