#pragma once

#include "widgets/TonedCells.h"

namespace widgets {

// Cells with room around their texts, which stand where those of the heads above them do.
class RoomyCells final : public TonedCells {
  Q_OBJECT
 public:
  using TonedCells::TonedCells;

  static int rowHeight(const QFontMetrics& text);

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

}  // namespace widgets
