#include "readings/ui/MeterLook.h"

#include <QHeaderView>
#include <QTableWidget>

#include "widgets/ColorMark.h"
#include "widgets/TonedCells.h"
#include "widgets/Utf8.h"
#include "yearbook/MeterColors.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
namespace {

constexpr int kApart = 4;  // on each side of a cell
constexpr int kRowRoom = 8;

class RoomyCells final : public widgets::TonedCells {
 public:
  using TonedCells::TonedCells;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {TonedCells::sizeHint(option, index).width() + 2 * kApart,
            option.fontMetrics.height() + kRowRoom};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter,
                                          option.widget);
    TonedCells::paint(painter, inner(option), index);
  }
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
    return TonedCells::editorEvent(event, model, inner(option), index);
  }

 private:
  static QStyleOptionViewItem inner(QStyleOptionViewItem option) {
    option.rect.adjust(kApart, 0, -kApart, 0);
    return option;
  }
};

}  // namespace

QString spokenName(Meter meter) {
  if (meter == Meter::Day) return u"Strom, Tag"_s;
  if (meter == Meter::Night) return u"Strom, Nacht"_s;
  return widgets::utf8(factsOf(meter).name);
}

QIcon markOf(Meter meter, const QPalette& palette) {
  const yearbook::GroundColors& colors = yearbook::kMeterColors[meter];
  return widgets::colorMark(palette, widgets::onGround(palette, colors.light, colors.dark));
}

void giveRoom(QAbstractItemView* view) {
  view->setItemDelegate(new RoomyCells(view));
}

void dressTable(QTableWidget* table, const QStringList& heads, const QList<int>& texts) {
  giveRoom(table);
  table->setColumnCount(static_cast<int>(heads.size()));
  table->setHorizontalHeaderLabels(heads);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kRowRoom);
  table->setShowGrid(false);
  table->setTabKeyNavigation(false);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->horizontalHeader()->setHighlightSections(false);
  for (int column = 0; column < heads.size(); ++column)
    table->horizontalHeaderItem(column)->setTextAlignment(
        Qt::AlignVCenter |
        (column == 0 || texts.contains(column) ? Qt::AlignLeft : Qt::AlignRight));
}

}  // namespace readings
