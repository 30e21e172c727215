#include "dialogs/CommonDialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QScreen>
#include <QTreeView>

#include "dialogs/FileFilter.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {
namespace {

QStringList nameFilters(const QString& filter) {
  QStringList result;
  for (const FilterEntry& entry : filterEntries(filter.toStdString())) {
    QStringList patterns;
    for (const std::string& pattern : entry.patterns) patterns += QString::fromStdString(pattern);
    result += QString::fromStdString(entry.description) + u" ("_s + patterns.join(u' ') + u')';
  }
  return result;
}

QString chosen(const QFileDialog& dialog) {
  const QStringList files = dialog.selectedFiles();
  return files.isEmpty() ? QString() : QDir::toNativeSeparators(files.first().trimmed());
}

// Qt's own dialog, where the system has none: it cuts dates and kinds of files.
void showColumnsWhole(QFileDialog& dialog) {
  const auto* list = dialog.findChild<QTreeView*>(u"treeView"_s);
  if (list == nullptr) return;
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  constexpr QSize kRoomy(800, 440);
  dialog.resize(dialog.size().expandedTo(kRoomy.boundedTo(dialog.screen()->availableSize())));
}

void prepareFileDialog(QFileDialog& dialog, const QString& filter) {
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(nameFilters(filter));
  // The descriptions name the patterns already.
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  showColumnsWhole(dialog);
}

bool agrees(QWidget* owner, const QString& question, const QString& title) {
  QMessageBox box(QMessageBox::Question, title, question, QMessageBox::Yes | QMessageBox::No,
                  owner);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace

QString OpenFileDialog(QWidget* owner, const QString& filter, const QString& title,
                       const QString& initialFolder) {
  QFileDialog dialog(owner, title, initialFolder);
  prepareFileDialog(dialog, filter);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  while (dialog.exec() == QDialog::Accepted) {
    QString path = chosen(dialog);
    const QString question = path + u"\nDie Datei existiert nicht. Soll sie angelegt werden?"_s;
    if (QFileInfo::exists(path) || agrees(owner, question, title)) return path;
  }
  return {};
}

QString SaveFileDialog(QWidget* owner, const QString& filter, const QString& title,
                       const QString& initialFolder, const QString& extension) {
  QFileDialog dialog(owner, title, initialFolder);
  prepareFileDialog(dialog, filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The dialog's own question would be about the name as it was typed.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  while (dialog.exec() == QDialog::Accepted) {
    QString path = QString::fromStdString(
        completedName(chosen(dialog).toStdString(), extension.toStdString()));
    const QString question = path + u"\nist schon vorhanden. Ersetzen?"_s;
    if (!QFileInfo::exists(path) || agrees(owner, question, title)) return path;
  }
  return {};
}

int ChooseColorDialog(QWidget* owner, bool /*fullOpen*/, int start) {
  // Qt keeps the custom colours from one dialog to the next.
  for (int i = 0; i < QColorDialog::customCount(); ++i) QColorDialog::setCustomColor(i, Qt::black);
  const bool valid = start >= 0 && start <= 0xFFFFFF;
  const QColor first =
      valid ? QColor(start & 0xFF, (start >> 8) & 0xFF, (start >> 16) & 0xFF) : QColor(Qt::black);
  QColorDialog dialog(first, owner);
  if (dialog.exec() != QDialog::Accepted) return -1;
  const QColor color = dialog.selectedColor();
  return color.red() | (color.green() << 8) | (color.blue() << 16);
}

QString BrowseForFolderDialog(QWidget* owner, const QString& title, const QString& startFolder,
                              const FolderDialogOptions& options) {
  const QString start = QFileInfo(startFolder).isDir() ? startFolder : QDir::homePath();
  QFileDialog dialog(owner, title, start);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly, !options.includeFiles);
  showColumnsWhole(dialog);
  return dialog.exec() == QDialog::Accepted ? chosen(dialog) : QString();
}

}  // namespace dialogs
