#include "charts/Picture.h"

#include <cmath>

#include "base/GermanNumber.h"
#include "base/Paths.h"

namespace charts {
namespace {

constexpr double kTwipsPerCentimetre = 567;
constexpr double kLeastScale = 0.8;  // the texts of 9 points then have 7 on paper

std::string pixelText(double twips, double twipsPerPixel) {
  const double pixels = std::clamp(twips / twipsPerPixel, -32768.0, 32767.0);
  return std::to_string(static_cast<int>(std::nearbyint(pixels)));
}

std::string centimetreText(double twips) {
  return base::formatNumber(twips / kTwipsPerCentimetre, 1) + " cm";
}

}  // namespace

PrintPlacement placeOnPage(PrintFit fit, Size page, Size natural) {
  const double byWidth = page.width / natural.width, byHeight = page.height / natural.height;
  double scale = 1;
  if (fit == PrintFit::Width) scale = byWidth;
  if (fit == PrintFit::Height) scale = byHeight;
  if (fit == PrintFit::Page || fit == PrintFit::Maximum) scale = std::min(byWidth, byHeight);
  Size size{natural.width * scale, natural.height * scale};
  if (fit == PrintFit::Maximum) size = page;
  size = {std::min(size.width, page.width), std::min(size.height, page.height)};
  // A large window is laid out for less room, so that its texts can still be read on paper.
  scale = std::max(scale, kLeastScale);
  return {{0, 0, size.width, size.height}, {size.width / scale, size.height / scale}};
}

std::string dimensionText(Size twips, double twipsPerPixelX, double twipsPerPixelY) {
  return std::string(15, ' ') + "Abmessungen  " + pixelText(twips.width, twipsPerPixelX) + " x " +
         pixelText(twips.height, twipsPerPixelY) + " Pixel     [" + centimetreText(twips.width) +
         " x " + centimetreText(twips.height) + "]";
}

}  // namespace charts
