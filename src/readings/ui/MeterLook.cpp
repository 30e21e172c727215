#include "readings/ui/MeterLook.h"

#include <QHeaderView>
#include <QTableWidget>

#include "widgets/ColorMark.h"
#include "widgets/RoomyCells.h"
#include "widgets/Utf8.h"
#include "yearbook/MeterColors.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {

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
  view->setItemDelegate(new widgets::RoomyCells(view));
}

void dressTable(QTableWidget* table, const QStringList& heads, const QList<int>& texts) {
  giveRoom(table);
  table->setColumnCount(static_cast<int>(heads.size()));
  table->setHorizontalHeaderLabels(heads);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(
      widgets::RoomyCells::rowHeight(table->fontMetrics()));
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
