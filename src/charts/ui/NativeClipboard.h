#pragma once

#include <string_view>

namespace charts {

// Whole files; the metafile is an EMF or a placeable WMF.
struct NativePicture {
  std::string_view metafile;
  bool enhanced = false;
  std::string_view bitmap;
  double width = 0;  // pixels at 96 per inch
  double height = 0;
};

// Puts metafile and bitmap on the clipboard in the system's own formats. False where the system has
// none, or when it refuses.
bool putOnNativeClipboard(const NativePicture& picture);

}  // namespace charts
