#pragma once

#include <string_view>

#include "base/File.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/FolderList.h"

// What the lists of the start and backup windows show of the disk.
namespace app {

// The files with the extension (".kwd").
widgets::FileList::Lister filesOf(const base::FileSystem& files, std::string_view extension);
// For choosing one of several copies of a year: "12 Monate Strom, 9 Wasser, Stand 21.11.2026
// 17:27", or why it cannot be looked into. Nothing is opened for writing.
widgets::FileList::Description describeCopy(base::FileSystem& files, const QString& path);
// For choosing a year: "bis Oktober, Guthaben 119,73 Euro" and when it was changed last.
widgets::FileList::Description describeYear(base::FileSystem& files, const QString& path);
// A name in which bytes were found that are no UTF-8: it cannot be given back to the system.
bool isUnreadableName(const QString& name);
// The subfolders that are not hidden.
widgets::FolderList::Lister subfoldersOf(const base::FileSystem& files);

// The folder where looking for a backup medium starts: the system drive, or the home folder where
// there are no drive letters.
QString firstBackupFolder();

// Fills the drive list, shows the folder in both lists. False when its drive cannot be read.
bool showFolder(widgets::DriveList& drives, widgets::FolderList& folders, const QString& folder);
// Shows the root of the chosen drive. False when it cannot be read; the drive before is back then.
bool changeDrive(widgets::DriveList& drives, widgets::FolderList& folders, const QString& root);

}  // namespace app
