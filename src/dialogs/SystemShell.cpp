#include "dialogs/SystemShell.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "dialogs/SoundPlayer.h"

namespace dialogs {

SystemShell::SystemShell() : player_(makeSoundPlayer()) {}
SystemShell::~SystemShell() = default;

bool SystemShell::startProgram(const QString& path) {
  return QProcess::startDetached(path, {}, QDir::currentPath());
}

bool SystemShell::openDocument(const QString& path) {
  return QFileInfo::exists(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void SystemShell::playSound(const QString& path) {
  if (QFileInfo(path).isFile()) player_->play(path);
}

}  // namespace dialogs
