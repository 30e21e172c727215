#include "widgets/FileList.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "base/Paths.h"

namespace widgets {
namespace {

constexpr int kDescription = Qt::UserRole;

// The name as the style draws it, in the upper half; the description below it.
class TwoLines final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize one = QStyledItemDelegate::sizeHint(option, index);
    return {one.width(), one.height() + option.fontMetrics.lineSpacing()};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem upper = option;
    upper.displayAlignment = Qt::AlignLeft | Qt::AlignTop;
    QStyledItemDelegate::paint(painter, upper, index);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    QColor color = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    constexpr float kQuiet = 0.75F;
    color.setAlphaF(selected ? 1.0F : kQuiet);
    constexpr int kMargin = 3;
    const QRect lower = option.rect.adjusted(kMargin, option.rect.height() / 2, -kMargin, 0);
    const QString text = index.data(kDescription).toString();
    painter->save();
    painter->setPen(color);
    painter->setFont(option.font);
    painter->drawText(lower, Qt::AlignLeft | Qt::AlignTop,
                      option.fontMetrics.elidedText(text, Qt::ElideRight, lower.width()));
    painter->restore();
  }
};

}  // namespace

FileList::FileList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setSpacing(1);
  setTextElideMode(Qt::ElideMiddle);
  nextDescription_.setSingleShot(true);
  connect(&nextDescription_, &QTimer::timeout, this, &FileList::describeNext);
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

void FileList::setDescriber(Describer describer) {
  describer_ = std::move(describer);
  setItemDelegate(new TwoLines(this));
}

void FileList::describeNext() {
  for (int i = 0; i < count(); ++i) {
    QListWidgetItem* next = item(i);
    if (next->data(kDescription).isValid()) continue;
    const QString text = describer_(
        QString::fromStdString(base::withSeparator(folder_.toStdString())) + next->text());
    next->setData(kDescription, text);
    next->setToolTip(text);
    next->setData(Qt::AccessibleDescriptionRole, text);
    nextDescription_.start();
    return;
  }
}

void FileList::fill(const QString& selected) {
  const QSignalBlocker quiet(this);
  clear();
  if (lister_ && !folder_.isEmpty()) addItems(lister_(folder_));
  setCurrentRow(-1);
  if (!selected.isEmpty()) selectName(selected);
  if (describer_) nextDescription_.start();
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
