#pragma once

#include <QListWidget>
#include <QTimer>
#include <functional>

namespace widgets {

// The names of one folder's files, sorted, as one column. Which files those are is the caller's
// matter: it gives a function that lists the names of a folder.
class FileList final : public QListWidget {
  Q_OBJECT
 public:
  using Lister = std::function<QStringList(const QString& folder)>;

  // A line about a file, by its path.
  using Describer = std::function<QString(const QString& path)>;

  explicit FileList(QWidget* parent = nullptr);
  void setLister(Lister lister) { lister_ = std::move(lister); }
  // Shows a quiet line below each name. The lines come one after the other once the names stand.
  void setDescriber(Describer describer);

  // Shows the folder; "" shows nothing. Nothing is selected afterwards.
  void setFolder(const QString& folder);
  const QString& folder() const { return folder_; }
  // Lists the folder anew; a selected name that is still there stays selected.
  void refresh();

  QStringList names() const;
  // "" when none is selected.
  QString selectedName() const;
  // Selects without chosen(); false when there is no such name (exact letter case).
  bool selectName(const QString& name);

 Q_SIGNALS:
  // A name was selected (not by selectName()), or the selected one was clicked again.
  void chosen(const QString& name);
  // Double-click or Enter.
  void opened(const QString& name);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fill(const QString& selected);
  void describeNext();
  Lister lister_;
  Describer describer_;
  QTimer nextDescription_;
  QString folder_;
};

}  // namespace widgets
