#pragma once

#include <QString>

class QWidget;

// Choosing a file, a folder or a colour, as single calls that keep nothing between them. Paths have
// the system's separators; a cancelled dialog gives "".
namespace dialogs {

// filter: see FileFilter.h. A name that does not exist yet may be given; the user is asked first.
QString OpenFileDialog(QWidget* owner, const QString& filter, const QString& title,
                       const QString& initialFolder);
// The name comes completed by the extension (FileFilter.h). Asks before an existing file is chosen,
// by the name that it will have.
QString SaveFileDialog(QWidget* owner, const QString& filter, const QString& title,
                       const QString& initialFolder, const QString& extension = {});

// 0x00BBGGRR, -1 when cancelled. start is the colour shown first, in the same form; any value
// outside of 0 to 0xFFFFFF starts with black. The full choice is always open here.
int ChooseColorDialog(QWidget* owner, bool fullOpen, int start = 0);

struct FolderDialogOptions {
  bool statusText = false;      // a line with the chosen path; the dialog always has one
  bool newDialogStyle = false;  // the system's own dialog, which can be resized
  bool includeFiles = false;    // files are shown beside the folders
};
// Starts at the home folder when startFolder does not exist.
QString BrowseForFolderDialog(QWidget* owner, const QString& title, const QString& startFolder,
                              const FolderDialogOptions& options = {});

}  // namespace dialogs
