#pragma once

#include <cstdint>
#include <vector>

#include "jet/engine/DataPage.h"
#include "jet/engine/Pager.h"

namespace jet {

// A set of page numbers, kept as a row: a bitmap in the row itself, or the numbers of bitmap
// pages. Errors carry the page that is wrong.
class UsageMap {
 public:
  UsageMap(const Pager& pager, RowPointer where) : pager_(&pager), where_(where) {}

  RowPointer where() const { return where_; }

  // The page numbers in ascending order. Truncated when one lies beyond the end of the file.
  base::Result<std::vector<std::uint32_t>> pages() const;
  // The first few of them, those beyond the end left out: the map of free pages names them too.
  base::Result<std::vector<std::uint32_t>> pagesInFile(std::size_t limit) const;
  // A page behind the map's range is reported as beyond. One before it is in no map: a program that
  // has moved the range of the free pages on does not come back to those before it.
  base::Result<bool> contains(std::uint32_t page, bool beyond = false) const;

 private:
  // Calls visit(page) for every member until it returns false.
  template <class Visit>
  base::Result<void> forEach(const Visit& visit) const;

  const Pager* pager_;
  RowPointer where_;
};

// The bytes of a map's row, checked, and what they say.
struct UsageMapRow {
  PageRef page;
  base::ByteSpan bytes;

  static base::Result<UsageMapRow> read(const Pager& pager, RowPointer where);
  format::UsageMapForm form() const { return static_cast<format::UsageMapForm>(bytes[0]); }
  // Inline: the first page and the bits. Reference: the bitmap pages, 0 = none.
  std::uint32_t firstPage() const;
  base::ByteSpan bits() const { return bytes.subspan(sizeof(format::InlineMapHead)); }
  std::size_t bitmapCount() const { return (bytes.size() - 1) / 4; }
  std::uint32_t bitmapPage(std::size_t index) const;
};

}  // namespace jet
