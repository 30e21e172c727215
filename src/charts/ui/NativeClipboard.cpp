#include "charts/ui/NativeClipboard.h"

#ifndef _WIN32

namespace charts {

bool putOnNativeClipboard(const NativePicture&) {
  return false;
}

}  // namespace charts

#endif
