#pragma once

namespace yearbook {

// A net figure of any unit with VAT on it, not rounded.
inline double withVat(double net, double percent) {
  return net / 100 * (100 + percent);
}

}  // namespace yearbook
