#include "widgets/RoomyCells.h"

namespace widgets {
namespace {

constexpr int kApart = 3;  // on each side; the style adds as much
constexpr int kRowRoom = 8;

QStyleOptionViewItem inner(QStyleOptionViewItem option) {
  option.rect.adjust(kApart, 0, -kApart, 0);
  return option;
}

}  // namespace

int RoomyCells::rowHeight(const QFontMetrics& text) {
  return text.height() + kRowRoom;
}

QSize RoomyCells::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return {TonedCells::sizeHint(option, index).width() + 2 * kApart, rowHeight(option.fontMetrics)};
}

void RoomyCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  QStyleOptionViewItem ground = option;
  initStyleOption(&ground, index);
  option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter,
                                        option.widget);
  TonedCells::paint(painter, inner(option), index);
}

bool RoomyCells::editorEvent(QEvent* event, QAbstractItemModel* model,
                             const QStyleOptionViewItem& option, const QModelIndex& index) {
  return TonedCells::editorEvent(event, model, inner(option), index);
}

}  // namespace widgets
