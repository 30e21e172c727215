#include "widgets/FileList.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace widgets {

FileList::FileList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setSpacing(1);
  setTextElideMode(Qt::ElideMiddle);
  // A click on the name that is current already counts as a choice, too.
  connect(this, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* item) { Q_EMIT chosen(item->text()); });
  connect(this, &QListWidget::itemSelectionChanged, this, [this] {
    if (const QString name = selectedName(); !name.isEmpty()) Q_EMIT chosen(name);
  });
  // Not itemActivated(): some desktops activate by a single click.
  connect(this, &QListWidget::itemDoubleClicked, this,
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

void FileList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
  const QString name = selectedName();
  if (enter && !name.isEmpty())
    Q_EMIT opened(name);
  else if ((enter || arrow) && name.isEmpty() && currentItem() != nullptr)
    // The name with the focus looks as if it were the choice; the first key makes it that.
    currentItem()->setSelected(true);
  else
    QListWidget::keyPressEvent(event);
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
