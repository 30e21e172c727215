#pragma once

#include <QIcon>
#include <QStringList>

#include "yearbook/Meter.h"

class QAbstractItemView;
class QTableWidget;

namespace readings {

using yearbook::Meter;

// "Strom, Tag", "Gas": a meter among the others.
QString spokenName(Meter meter);
// Its colour, to stand before its name.
QIcon markOf(Meter meter, const QPalette& palette);

// Rows as high as the font asks for, cells apart from each other.
void giveRoom(QAbstractItemView* view);
// A table that shows and is not typed into, with room: whole rows are selected. The first column
// and those of texts are aligned left, numbers right.
void dressTable(QTableWidget* table, const QStringList& heads, const QList<int>& texts = {});

}  // namespace readings
