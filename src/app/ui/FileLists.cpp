#include "app/ui/FileLists.h"

#include <QDateTime>
#include <QDir>
#include <string>

#include "analysis/AllYears.h"
#include "app/YearFiles.h"
#include "base/Drives.h"
#include "base/Paths.h"
#include "yearbook/FlatRate.h"
#include "yearbook/YearSummary.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

QStringList toQt(const std::vector<std::string>& names) {
  QStringList result;
  for (const std::string& name : names) result += QString::fromStdString(name);
  return result;
}

QString whyUnread(const base::Error& error, const QString& path) {
  if (isUnreadableName(path)) return u"Name nicht in UTF-8, bitte zuerst umbenennen"_s;
  return error.code == base::ErrorCode::InUse ? u"ist geöffnet"_s : u"lässt sich nicht lesen"_s;
}

// "" when nobody knows.
QString changeOf(const base::FileSystem& files, const QString& path, const QString& format) {
  const auto info = files.info(path.toStdString());
  if (!info) return {};
  const auto time =
      std::chrono::duration_cast<std::chrono::seconds>(info->modified.time_since_epoch());
  return QDateTime::fromSecsSinceEpoch(time.count()).toString(format);
}

}  // namespace

widgets::FileList::Lister filesOf(const base::FileSystem& files, std::string_view extension) {
  return [&files, extension](const QString& folder) {
    return toQt(filesWithExtension(files, folder.toStdString(), extension));
  };
}

widgets::FileList::Description describeCopy(base::FileSystem& files, const QString& path) {
  const auto summary = yearbook::summarizeYear(files, path.toStdString());
  if (!summary) return {whyUnread(summary.error(), path), {}};
  const QString content = QString::fromStdString(yearbook::describe(*summary));
  const QString changed = changeOf(files, path, u"dd.MM.yyyy HH:mm"_s);
  return {changed.isEmpty() ? content : content + u", Stand "_s + changed, {}};
}

widgets::FileList::Description describeYear(base::FileSystem& files, const QString& path) {
  const std::string file = path.toStdString();
  const auto year = analysis::readYear(
      files, file, yearbook::readFlatRate(files, std::string(base::folderOf(file))));
  const QString changed = changeOf(files, path, u"dd.MM.yyyy"_s);
  const QString content =
      year ? QString::fromStdString(analysis::standOf(*year)) : whyUnread(year.error(), path);
  return {content, changed.isEmpty() ? QString() : u"geändert "_s + changed};
}

bool isUnreadableName(const QString& name) {
  return name.contains(QChar::ReplacementCharacter);
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
