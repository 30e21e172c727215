#pragma once

#include <QIcon>

#include "yearbook/MeterColors.h"

namespace yearbook {

// The meter's colour on the palette's ground.
QColor meterColor(Meter meter, const QPalette& palette);
// The same as a small square, to stand before the meter's name.
QIcon meterMark(Meter meter, const QPalette& palette);
// On a tab, where width is dear: of this size, with no room before it.
constexpr QSize kTabMark(13, 10);
QIcon tabMark(Meter meter, const QPalette& palette);

}  // namespace yearbook
