#include "widgets/FileList.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "base/Paths.h"
#include "widgets/Tones.h"

namespace widgets {
namespace {

constexpr int kContent = Qt::UserRole;
constexpr int kAside = Qt::UserRole + 1;
constexpr int kTold = Qt::UserRole + 2;  // since the folder was listed

// The name bold and a quiet remark beside it; what the file holds below, quiet as well.
class TwoLines final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize one = QStyledItemDelegate::sizeHint(option, index);
    return {one.width(), 2 * option.fontMetrics.lineSpacing() + 3 * kGap};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QString name = option.text;
    option.text.clear();
    option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QColor text = option.palette.color(enabled ? QPalette::Normal : QPalette::Disabled,
                                             selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor quiet = selected || !enabled ? text : toneOf(Tone::Quiet, option.palette);
    const QRect room = option.rect.adjusted(2 * kGap, kGap, -2 * kGap, -kGap);
    const QString aside = index.data(kAside).toString();
    painter->save();
    const int asideWidth = line(painter, room, option.font, quiet, aside, Qt::AlignRight);
    QFont bold = option.font;
    bold.setBold(true);
    line(painter, room.adjusted(0, 0, -asideWidth - 2 * kGap, 0), bold, text, name, Qt::AlignLeft);
    const QRect below = room.adjusted(0, option.fontMetrics.lineSpacing() + kGap, 0, 0);
    line(painter, below, option.font, quiet, index.data(kContent).toString(), Qt::AlignLeft);
    painter->restore();
  }

 private:
  static constexpr int kGap = 4;

  // Gives the width that it takes.
  static int line(QPainter* painter, const QRect& room, const QFont& font, const QColor& color,
                  const QString& text, Qt::Alignment side) {
    const QFontMetrics metrics(font);
    const QString shown = metrics.elidedText(text, Qt::ElideMiddle, room.width());
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(room, int(side | Qt::AlignTop), shown);
    return metrics.horizontalAdvance(shown);
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
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    if (describer_) nextDescription_.start();
  });
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
  fill(selectedNames());
}

void FileList::setDescriber(Describer describer) {
  describer_ = std::move(describer);
  setItemDelegate(new TwoLines(this));
}

QListWidgetItem* FileList::nextInView() const {
  const int height = viewport()->height();
  for (int i = 0; i < count(); ++i) {
    const QRect place = visualItemRect(item(i));
    if (place.top() > height) break;
    if (place.bottom() >= 0 && !item(i)->data(kTold).toBool()) return item(i);
  }
  return nullptr;
}

void FileList::describeNext() {
  QListWidgetItem* next = nextInView();
  if (next == nullptr) return;
  const QString path =
      QString::fromStdString(base::withSeparator(folder_.toStdString())) + next->text();
  const Description description = describer_(path);
  known_.insert(path, description);
  next->setData(kTold, true);
  describe(next, description);
  nextDescription_.start();
}

void FileList::describe(QListWidgetItem* item, const Description& description) const {
  item->setData(kContent, description.content);
  item->setData(kAside, description.aside);
  const QString all = description.aside.isEmpty()
                          ? description.content
                          : description.content + QStringLiteral(", ") + description.aside;
  item->setToolTip(toolTip().isEmpty() ? all : all + u'\n' + toolTip());
  item->setData(Qt::AccessibleDescriptionRole, all);
}

void FileList::fill(const QStringList& selected) {
  const QSignalBlocker quiet(this);
  clear();
  if (lister_ && !folder_.isEmpty()) addItems(lister_(folder_));
  const QString place = QString::fromStdString(base::withSeparator(folder_.toStdString()));
  for (int i = 0; describer_ && i < count(); ++i)
    if (const auto known = known_.constFind(place + item(i)->text()); known != known_.cend())
      describe(item(i), *known);
  setCurrentRow(-1);
  for (const QString& name : selected) {
    if (selectionMode() == SingleSelection || name == selected.first())
      selectName(name);
    else
      for (QListWidgetItem* item : findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive))
        item->setSelected(true);
  }
  if (describer_) nextDescription_.start();
}

void FileList::resizeEvent(QResizeEvent* event) {
  QListWidget::resizeEvent(event);
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

QStringList FileList::selectedNames() const {
  QStringList result;
  for (int i = 0; i < count(); ++i)
    if (item(i)->isSelected()) result += item(i)->text();
  return result;
}

QString FileList::selectedName() const {
  return selectedNames().value(0);
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
