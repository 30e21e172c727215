#pragma once

#include <QIcon>
#include <QPalette>

namespace widgets {

// A small square of a colour that means something, beside the name of what it means. On a selected
// row it has an edge.
QIcon colorMark(const QPalette& palette, QColor color);

}  // namespace widgets
