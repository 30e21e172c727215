#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/Bytes.h"
#include "jet/RowPointer.h"

namespace jet {

enum class MapKind { Inline, Reference };

// A Jet 4 file in the making: header page, global map, and whatever is appended. Everything lies in
// memory; bytes that nobody sets are 0.
class NewFile {
 public:
  // Header page and global map. mapLength: bytes of a usage map's row, at least 69; it decides how
  // many pages inline maps can name. Reference maps keep their bits on pages of their own.
  NewFile(MapKind kind, std::size_t mapLength);

  std::uint32_t append();
  std::uint32_t pageCount() const { return static_cast<std::uint32_t>(pages_.size()); }
  std::span<std::uint8_t> page(std::uint32_t number) { return pages_[number]; }

  // Usage maps. A page beyond a map's range is remembered: maps have become too short.
  RowPointer addMap();
  void setInMap(RowPointer map, std::uint32_t page);
  bool mapsTooShort() const { return mapsTooShort_; }
  // From now on maps are rows of this length on pages of their own.
  void startMapPage(std::size_t rowLength);

  // The file's bytes, the global map filled in.
  base::Bytes finish();

 private:
  void writeHeader();
  base::Bytes emptyMap(std::size_t length) const;
  std::span<std::uint8_t> mapRow(RowPointer map);
  std::uint32_t bitmapPage(RowPointer map, std::uint32_t page);
  void fillGlobalMap();

  MapKind kind_;
  std::vector<base::Bytes> pages_;
  std::size_t globalMapLength_;
  std::size_t mapLength_;
  std::uint32_t mapPage_ = 0;  // 0 = none yet
  bool mapsTooShort_ = false;
};

// Length of a usage map's row as Jet makes it, and the largest that two rows of a page leave room
// for.
inline constexpr std::size_t kUsualMapLength = 69;
inline constexpr std::size_t kLongestMap = 4005;

}  // namespace jet
