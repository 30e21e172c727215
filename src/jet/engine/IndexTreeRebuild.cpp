#include <algorithm>

#include "jet/engine/IndexLevels.h"
#include "jet/engine/IndexTree.h"

namespace jet {

using base::Failure;
using base::Result;

Result<std::uint32_t> IndexTree::rebuild(const std::vector<IndexEntry>& entries,
                                         std::vector<std::uint32_t> pages) {
  const auto take = [&](bool root) -> Result<std::uint32_t> {
    const auto own = std::find(pages.begin(), pages.end(), index_->root);
    auto chosen = root ? own : pages.begin();
    if (!root && chosen == own && chosen != pages.end()) ++chosen;
    if (chosen == pages.end()) return newPage();
    const std::uint32_t number = *chosen;
    pages.erase(chosen);
    return number;
  };
  auto root = writeIndexLevels(
      pager_->version(), tableDef_, entries, take,
      [this](std::uint32_t number, const IndexPage& page) { return write(number, page); });
  if (!root) return root;
  for (const std::uint32_t left : pages)
    if (auto done = freePage(left); !done) return Failure(done.error());
  return root;
}

}  // namespace jet
