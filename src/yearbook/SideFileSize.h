#pragma once

#include <cstdint>

namespace yearbook {

// No side file of a year is larger; a larger one is neither read nor written. 16 MB are readings of
// five meters on every day of two hundred years.
inline constexpr std::uint64_t kLargestSideFile = 16 << 20;

}  // namespace yearbook
