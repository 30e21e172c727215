#pragma once

#include <string>

#include "charts/Geometry.h"

// What surrounds a picture of a chart: fits of a page, the text of its size.
namespace charts {

// Numbers of the picture formats as the chart commands use them.
enum class PictureFormat { Bitmap = 1, Metafile = 2, EnhancedMetafile = 3 };

enum class PrintFit { OneToOne = 1, Width = 2, Height = 3, Page = 4, Maximum = 5 };

// Where the chart goes on the page and for what sheet it is laid out. All in inches; the page is
// its printable area, natural the size on the screen at 96 pixels per inch.
struct PrintPlacement {
  Rect target;
  Size layout;
  double enlarged() const { return target.width / layout.width; }
  // Points of the layout that are the least readable ones on paper.
  double leastText() const { return 7 / enlarged(); }
};
// One to one keeps the natural size, the others enlarge or reduce it: to the page's width, its
// height, or as far as both allow; maximum then takes the whole page. What would reach beyond the
// page is laid out anew for the room that there is, so nothing is ever cut off; what would be made
// much smaller is laid out for less room, so that its texts are read on paper.
PrintPlacement placeOnPage(PrintFit fit, Size page, Size natural);

// "               Abmessungen  600 x 400 Pixel     [15,9 cm x 10,6 cm]". Sizes in twips; pixels are
// rounded half to even.
std::string dimensionText(Size twips, double twipsPerPixelX, double twipsPerPixelY);

}  // namespace charts
