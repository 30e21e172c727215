#pragma once

#include <QColor>
#include <QPalette>

#include "reports/FlexGridHTML.h"

// The colours of a grid on the screen.
namespace reports {

// The current colour of a system colour, 0x00BBGGRR; of the palette where the system has none.
CellColor currentSystemColor(int index, const QPalette& palette);
// Twips per pixel and system colours of the screen that the palette belongs to.
HtmlScreen screenOf(const QPaintDevice& device, const QPalette& palette);

QColor paperColor(CellColor color, const QPalette& palette);

// The same colour where the palette is light; where it is dark, a shade of it on which, or in
// which, text can be read as well.
QColor screenBackground(CellColor color, const QPalette& palette);
QColor screenForeground(CellColor color, const QPalette& palette);

}  // namespace reports
