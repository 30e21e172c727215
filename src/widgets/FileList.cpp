#include "widgets/FileList.h"

#include <QSignalBlocker>

namespace widgets {

FileList::FileList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setTextElideMode(Qt::ElideMiddle);
  // A click on the name that is current already counts as a choice, too.
  connect(this, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { Q_EMIT chosen(item->text()); });
  connect(this, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
    if (item != nullptr && hasFocus()) Q_EMIT chosen(item->text());
  });
  connect(this, &QListWidget::itemActivated, this,
          [this](const QListWidgetItem* item) { Q_EMIT opened(item->text()); });
}

void FileList::setFolder(const QString& folder) {
  folder_ = folder;
  fill({});
}

void FileList::refresh() {
  fill(selectedName());
}

void FileList::fill(const QString& selected) {
  const QSignalBlocker quiet(this);
  clear();
  if (lister_ && !folder_.isEmpty()) addItems(lister_(folder_));
  setCurrentRow(-1);
  if (!selected.isEmpty()) selectName(selected);
}

QStringList FileList::names() const {
  QStringList result;
  for (int i = 0; i < count(); ++i) result += item(i)->text();
  return result;
}

QString FileList::selectedName() const {
  const QList<QListWidgetItem*> items = selectedItems();
  return items.isEmpty() ? QString() : items.first()->text();
}

bool FileList::selectName(const QString& name) {
  for (QListWidgetItem* item : findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive)) {
    const QSignalBlocker quiet(this);
    setCurrentItem(item);
    return true;
  }
  return false;
}

}  // namespace widgets
