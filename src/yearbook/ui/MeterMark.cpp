#include "yearbook/ui/MeterMark.h"

#include "widgets/ColorMark.h"
#include "widgets/Tones.h"

namespace yearbook {

QColor meterColor(Meter meter, const QPalette& palette) {
  const GroundColors& colors = kMeterColors[meter];
  return widgets::onGround(palette, colors.light, colors.dark);
}

QIcon meterMark(Meter meter, const QPalette& palette) {
  return widgets::colorMark(palette, meterColor(meter, palette));
}

QIcon tabMark(Meter meter, const QPalette& palette) {
  return widgets::colorMark(palette, meterColor(meter, palette), {0, 0, 3, 0});
}

}  // namespace yearbook
