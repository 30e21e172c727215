#pragma once

#include <QHash>
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

  // What is told of a file: a line below its name, and a few words at the right of the name.
  struct Description {
    QString content;
    QString aside;
  };
  using Describer = std::function<Description(const QString& path)>;

  explicit FileList(QWidget* parent = nullptr);
  void setLister(Lister lister) { lister_ = std::move(lister); }
  // Shows quiet lines with each name. They come one after the other once the names stand, and only
  // for names that are in view: it does not matter how many there are.
  void setDescriber(Describer describer);

  // Shows the folder; "" shows nothing. Nothing is selected afterwards.
  void setFolder(const QString& folder);
  const QString& folder() const { return folder_; }
  // Lists the folder anew; a selected name that is still there stays selected.
  void refresh();

  QStringList names() const;
  // "" when none is selected; of several the uppermost.
  QString selectedName() const;
  // From top to bottom.
  QStringList selectedNames() const;
  // Selects without chosen(); false when there is no such name (exact letter case).
  bool selectName(const QString& name);

 Q_SIGNALS:
  // A name was selected (not by selectName()), or the selected one was clicked again.
  void chosen(const QString& name);
  // Double-click or Enter.
  void opened(const QString& name);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fill(const QStringList& selected);
  void describeNext();
  QListWidgetItem* nextInView() const;
  void describe(QListWidgetItem* item, const Description& description) const;

  Lister lister_;
  Describer describer_;
  QTimer nextDescription_;
  // By path, what was told last: shown until it is told anew, so that nothing flickers.
  QHash<QString, Description> known_;
  QString folder_;
};

}  // namespace widgets
