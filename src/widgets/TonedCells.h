#pragma once

#include <QStyledItemDelegate>

#include "widgets/Tones.h"

namespace widgets {

// Which Tone the text of an item has, as a number.
constexpr int kToneRole = Qt::UserRole + 100;

// Draws each item in its tone, in whatever theme comes: a colour of its own would stay.
class TonedCells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant tone = index.data(kToneRole);
    if (tone.isValid())
      option->palette.setColor(QPalette::Text, toneOf(Tone(tone.toInt()), option->palette));
  }
};

}  // namespace widgets
