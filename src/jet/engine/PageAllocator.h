#pragma once

#include <cstdint>

#include "jet/engine/Pager.h"
#include "jet/engine/RowPointer.h"

namespace jet {

// Hands out pages and takes them back, and keeps the file's global map of free pages right.
class PageAllocator {
 public:
  explicit PageAllocator(Pager& pager) : pager_(&pager) {}

  // A page of zeros: one that was freed, if the map knows one, else a new one at the end.
  base::Result<std::uint32_t> allocate();
  // The page keeps its content but is marked as freed.
  base::Result<void> release(std::uint32_t page);

 private:
  base::Result<std::uint32_t> reuse();
  base::Result<void> markUsed(std::uint32_t page);

  Pager* pager_;
};

}  // namespace jet
