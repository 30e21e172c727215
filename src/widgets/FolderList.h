#pragma once

#include <QTreeWidget>
#include <functional>
#include <optional>

namespace widgets {

// The folders of one drive as a tree; the selected one is the path. Subfolders are listed when a
// folder is opened, never before.
class FolderList final : public QTreeWidget {
  Q_OBJECT
 public:
  // Names of the subfolders; nullopt when the folder cannot be read.
  using Lister = std::function<std::optional<QStringList>(const QString& folder)>;

  explicit FolderList(QWidget* parent = nullptr);
  void setLister(Lister lister) { lister_ = std::move(lister); }

  // Shows the drive root as the top and selects the folder below it, without chosen(). False when
  // the root cannot be read; what was shown stays then. Parts of the path that do not exist are
  // left out.
  bool setPath(const QString& root, const QString& folder);
  // The selected folder, ending with the separator.
  QString path() const;
  const QString& root() const { return root_; }
  // Lists the subfolders of the selected folder anew.
  void refresh();

 Q_SIGNALS:
  // A folder was selected (not by setPath()), or the selected one was clicked again.
  void chosen(const QString& path);

 private:
  void fill(QTreeWidgetItem* item);
  void list(QTreeWidgetItem* item, const QStringList& names);
  QTreeWidgetItem* addFolder(QTreeWidgetItem* parent, const QString& name, const QString& path);

  Lister lister_;
  QString root_;
  QString shown_;  // by setPath(); counts while nothing is selected
};

}  // namespace widgets
