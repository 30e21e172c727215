#pragma once

#include <cstdint>

#include "jet/engine/DataPage.h"
#include "jet/engine/PageAllocator.h"

namespace jet {

// The pages on which one owner (a table, or a column of long values) keeps its rows, and the hint
// which of them have room.
class RowSpace {
 public:
  RowSpace(Pager& pager, std::uint32_t owner, RowPointer ownedPages, RowPointer freeSpacePages)
      : pager_(&pager), owner_(owner), owned_(ownedPages), freeSpace_(freeSpacePages) {}

  // The page for changing; Damaged when it is another owner's.
  base::Result<DataPageEditor> edit(std::uint32_t page);
  // On a page with room, or a new one.
  base::Result<RowPointer> insert(base::ByteSpan row, SlotState state);
  // A page without rows is given back.
  base::Result<void> erase(RowPointer row);
  // Keeps the hint right after a change of a page.
  base::Result<void> changed(std::uint32_t page);

 private:
  base::Result<std::uint32_t> pageFor(std::size_t length);

  Pager* pager_;
  std::uint32_t owner_;
  RowPointer owned_;
  RowPointer freeSpace_;
};

}  // namespace jet
