#pragma once

#include <functional>
#include <vector>

#include "jet/engine/IndexPage.h"

namespace jet {

// Gives the number of a page for the tree; for the root, the page that the index is to keep.
using TakeIndexPage = std::function<base::Result<std::uint32_t>(bool root)>;
using WriteIndexPage = std::function<base::Result<void>(std::uint32_t number, const IndexPage&)>;

// Writes a whole index from its entries in order, the leaves first, then level by level; the level
// of one page is the root, whose number is returned.
base::Result<std::uint32_t> writeIndexLevels(const format::Version& version, std::uint32_t tableDef,
                                             const std::vector<IndexEntry>& entries,
                                             const TakeIndexPage& take,
                                             const WriteIndexPage& write);

}  // namespace jet
