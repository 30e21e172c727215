#pragma once

#include <compare>
#include <cstdint>

namespace jet {

// Page and slot of a row, as the file refers to it: a number of 4 bytes, slot lowest.
struct RowPointer {
  std::uint32_t page = 0;
  std::uint8_t slot = 0;

  static constexpr RowPointer fromNumber(std::uint32_t number) {
    return {number >> 8, static_cast<std::uint8_t>(number)};
  }
  constexpr std::uint32_t toNumber() const { return page << 8 | slot; }
  auto operator<=>(const RowPointer&) const = default;  // NOLINT(modernize-use-nullptr)
};

inline constexpr std::uint32_t kMaxPointerPage = 0xFFFFFF;
// Where every file keeps the map of its free pages.
inline constexpr RowPointer kGlobalMap = {1, 0};

}  // namespace jet
