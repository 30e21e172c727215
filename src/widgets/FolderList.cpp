#include "widgets/FolderList.h"

#include <QDir>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>

namespace widgets {
namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kListedRole = Qt::UserRole + 1;

QString withSeparator(const QString& folder) {
  const QChar separator = QDir::separator();
  return folder.endsWith(separator) ? folder : folder + separator;
}

}  // namespace

FolderList::FolderList(QWidget* parent) : QTreeWidget(parent) {
  setColumnCount(1);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setExpandsOnDoubleClick(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(this, &QTreeWidget::itemExpanded, this, &FolderList::fill);
  // A click on the folder that is current already counts as a choice, too.
  connect(this, &QTreeWidget::itemClicked, this, [this] { Q_EMIT chosen(path()); });
  connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
    if (!selectedItems().isEmpty()) Q_EMIT chosen(path());
  });
}

QTreeWidgetItem* FolderList::addFolder(QTreeWidgetItem* parent, const QString& name,
                                       const QString& path) {
  auto* item = new QTreeWidgetItem(QStringList(name));
  item->setData(0, kPathRole, path);
  item->setIcon(
      0, style()->standardIcon(parent == nullptr ? QStyle::SP_DriveHDIcon : QStyle::SP_DirIcon));
  item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  if (parent == nullptr)
    addTopLevelItem(item);
  else
    parent->addChild(item);
  return item;
}

void FolderList::list(QTreeWidgetItem* item, const QStringList& names) {
  const QString path = item->data(0, kPathRole).toString();
  item->setData(0, kListedRole, true);
  for (const QString& name : names) addFolder(item, name, withSeparator(path + name));
  if (names.isEmpty())
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void FolderList::fill(QTreeWidgetItem* item) {
  if (!lister_ || item->data(0, kListedRole).toBool()) return;
  list(item, lister_(item->data(0, kPathRole).toString()).value_or(QStringList()));
}

bool FolderList::setPath(const QString& root, const QString& folder) {
  const auto names = lister_ ? lister_(withSeparator(root)) : std::nullopt;
  if (!names) return false;
  const QSignalBlocker quiet(this);
  clear();
  root_ = withSeparator(root);
  QTreeWidgetItem* item = addFolder(nullptr, QDir::toNativeSeparators(root_), root_);
  list(item, *names);
  item->setExpanded(true);
  const QString wanted = withSeparator(folder);
  while (item->data(0, kPathRole) != wanted) {
    fill(item);
    QTreeWidgetItem* next = nullptr;
    for (int i = 0; next == nullptr && i < item->childCount(); ++i)
      if (wanted.startsWith(item->child(i)->data(0, kPathRole).toString())) next = item->child(i);
    if (next == nullptr) break;
    item->setExpanded(true);
    item = next;
  }
  fill(item);
  item->setExpanded(true);
  setCurrentItem(item);
  shown_ = item->data(0, kPathRole).toString();
  scrollToItem(item, QAbstractItemView::PositionAtCenter);
  horizontalScrollBar()->setValue(0);
  return true;
}

QString FolderList::path() const {
  const QList<QTreeWidgetItem*> items = selectedItems();
  return items.isEmpty() ? shown_ : items.first()->data(0, kPathRole).toString();
}

void FolderList::refresh() {
  QTreeWidgetItem* item = currentItem();
  if (item == nullptr) return;
  const bool open = item->isExpanded();
  qDeleteAll(item->takeChildren());
  item->setData(0, kListedRole, false);
  item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  if (open) fill(item);
}

}  // namespace widgets
