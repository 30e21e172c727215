#include "jet/engine/PageAllocator.h"

#include <algorithm>
#include <vector>

#include "jet/engine/UsageMapEditor.h"

namespace jet {
namespace {

using base::Failure;
using base::Result;
using format::PageKind;

// How many free pages are looked at for one that can be used again.
constexpr std::size_t kCandidates = 16;

bool wasFreed(std::uint8_t kind) {
  return kind == static_cast<std::uint8_t>(PageKind::Header) ||
         kind == static_cast<std::uint8_t>(PageKind::FreedTableDef) ||
         kind == static_cast<std::uint8_t>(PageKind::FreedData);
}

}  // namespace

Result<std::uint32_t> PageAllocator::allocate() {
  auto page = reuse();
  if (!page) return page;
  if (*page == 0) page = pager_->append();
  if (!page) return page;
  if (auto done = markUsed(*page); !done) return Failure(done.error());
  return page;
}

// A page that is called free but looks alive is left alone: the map may be wrong.
Result<std::uint32_t> PageAllocator::reuse() {
  auto free = UsageMap(*pager_, kGlobalMap).pagesInFile(kCandidates);
  if (!free) return Failure(free.error());
  for (const std::uint32_t number : *free) {
    if (number == 0) continue;
    auto page = pager_->page(number);
    if (!page) return Failure(page.error());
    if (!wasFreed((**page)[0])) continue;
    auto bytes = pager_->edit(number);
    if (!bytes) return Failure(bytes.error());
    std::fill(bytes->begin(), bytes->end(), std::uint8_t{0});
    return number;
  }
  return 0u;
}

// The map may need pages for itself, which are then in use as well.
Result<void> PageAllocator::markUsed(std::uint32_t page) {
  std::vector<std::uint32_t> used = {page};
  UsageMapEditor map(*pager_, kGlobalMap, UsageMapEditor::Beyond::Present, [&] {
    auto own = pager_->append();
    if (own) used.push_back(*own);
    return own;
  });
  while (!used.empty()) {
    const std::uint32_t next = used.back();
    used.pop_back();
    if (auto done = map.remove(next); !done) return done;
  }
  return {};
}

Result<void> PageAllocator::release(std::uint32_t page) {
  auto bytes = pager_->edit(page);
  if (!bytes) return Failure(bytes.error());
  (*bytes)[0] = static_cast<std::uint8_t>(PageKind::FreedData);
  std::vector<std::uint32_t> used;
  UsageMapEditor map(*pager_, kGlobalMap, UsageMapEditor::Beyond::Present, [&] {
    auto own = pager_->append();
    if (own) used.push_back(*own);
    return own;
  });
  if (auto done = map.add(page); !done) return done;
  for (const std::uint32_t own : used)
    if (auto done = markUsed(own); !done) return done;
  return {};
}

}  // namespace jet
