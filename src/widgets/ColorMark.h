#pragma once

#include <QIcon>
#include <QMargins>
#include <QPalette>

namespace widgets {

// A small square of a colour that means something, beside the name of what it means. On a selected
// row it has an edge. Around it is room, in pixels.
QIcon colorMark(const QPalette& palette, QColor color, QMargins room = {3, 3, 3, 3});

}  // namespace widgets
