#pragma once

#include <algorithm>
#include <limits>

namespace base {

// The number in single precision, which some figures have always been kept in. Beyond its range it
// is the largest that there is.
inline float toSingle(double value) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

}  // namespace base
