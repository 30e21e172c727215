#pragma once

#include <cstdint>
#include <functional>

#include "jet/engine/UsageMap.h"

namespace jet {

// Adds pages to a usage map and takes them out. A page out of the map's range moves the range, or
// lengthens the map's row, or turns the map into one of bitmap pages, whatever suffices.
class UsageMapEditor {
 public:
  // Pages beyond the range are not in a map; in the global map of free pages they are.
  enum class Beyond { Absent, Present };
  // newPage supplies pages for bitmaps.
  using NewPage = std::function<base::Result<std::uint32_t>()>;

  UsageMapEditor(Pager& pager, RowPointer where, Beyond beyond, NewPage newPage);

  base::Result<void> add(std::uint32_t page) { return set(page, true); }
  base::Result<void> remove(std::uint32_t page) { return set(page, false); }

 private:
  base::Result<void> set(std::uint32_t page, bool present);
  base::Result<void> setInline(const UsageMapRow& row, std::uint32_t page, bool present);
  base::Result<void> setReferenced(const UsageMapRow& row, std::uint32_t page, bool present);
  base::Result<bool> moveRange(const UsageMapRow& row, std::uint32_t page);
  base::Result<bool> lengthen(const UsageMapRow& row, std::uint32_t page);
  base::Result<void> turnIntoReferences(const UsageMapRow& row);
  base::Result<std::uint32_t> makeBitmap(std::size_t index);
  base::Result<std::span<std::uint8_t>> editRow();

  Pager& pager_;
  RowPointer where_;
  bool beyond_;
  NewPage newPage_;
};

}  // namespace jet
