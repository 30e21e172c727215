#include "jet/engine/RowSpace.h"

#include <algorithm>

#include "jet/engine/Damage.h"
#include "jet/engine/UsageMapEditor.h"

namespace jet {
namespace {

// How many pages that are said to have room are tried before a new one is taken: the latest, which
// are filled in turn, and the first.
constexpr std::size_t kCandidates = 8;
// A page counts as full below a twentieth of it and as having room from a tenth on; in between the
// hint stays, so that small changes do not flip it each time.
constexpr std::size_t kFullPart = 20;
constexpr std::size_t kRoomPart = 10;

UsageMapEditor mapEditor(Pager& pager, RowPointer where) {
  return UsageMapEditor(pager, where, UsageMapEditor::Beyond::Absent,
                        [&pager] { return PageAllocator(pager).allocate(); });
}

}  // namespace

Result<DataPageEditor> RowSpace::edit(std::uint32_t page) {
  auto current = pager_->page(page, format::PageKind::Data);
  if (!current) return Failure(current.error());
  auto data = DataPage::parse(pager_->version(), page, **current);
  if (!data) return Failure(data.error());
  if (data->owner() != owner_) return damaged(page, "the page is not one of this table");
  auto bytes = pager_->edit(page);
  if (!bytes) return Failure(bytes.error());
  return DataPageEditor::open(pager_->version(), page, *bytes);
}

Result<std::uint32_t> RowSpace::pageFor(std::size_t length) {
  auto candidates = UsageMap(*pager_, freeSpace_).pagesInFile(SIZE_MAX);
  if (!candidates) return Failure(candidates.error());
  std::reverse(candidates->begin(), candidates->end());
  if (candidates->size() > 2 * kCandidates)
    candidates->erase(candidates->begin() + kCandidates, candidates->end() - kCandidates);
  for (const std::uint32_t number : *candidates) {
    auto current = pager_->page(number, format::PageKind::Data);
    if (!current) return Failure(current.error());
    auto data = DataPage::parse(pager_->version(), number, **current);
    if (!data) return Failure(data.error());
    if (auto sound = data->checkSlots(); !sound) return Failure(sound.error());
    if (data->owner() == owner_ && data->hasRoomFor(length)) return number;
  }
  auto number = PageAllocator(*pager_).allocate();
  if (!number) return number;
  auto bytes = pager_->edit(*number);
  if (!bytes) return Failure(bytes.error());
  DataPageEditor::format(pager_->version(), *bytes, owner_);
  if (auto done = mapEditor(*pager_, owned_).add(*number); !done) return Failure(done.error());
  return number;
}

Result<RowPointer> RowSpace::insert(base::ByteSpan row, SlotState state) {
  auto number = pageFor(row.size());
  if (!number) return Failure(number.error());
  auto page = edit(*number);
  if (!page) return Failure(page.error());
  const std::size_t slot = page->insert(row, state);
  if (auto done = changed(*number); !done) return Failure(done.error());
  return RowPointer{*number, static_cast<std::uint8_t>(slot)};
}

Result<void> RowSpace::erase(RowPointer row) {
  auto page = edit(row.page);
  if (!page) return Failure(page.error());
  if (row.slot >= page->slotCount()) return damaged(row.page, "the row is not on the page");
  page->erase(row.slot);
  if (!page->isEmpty()) return changed(row.page);
  if (auto done = mapEditor(*pager_, freeSpace_).remove(row.page); !done) return done;
  if (auto done = mapEditor(*pager_, owned_).remove(row.page); !done) return done;
  return PageAllocator(*pager_).release(row.page);
}

Result<void> RowSpace::changed(std::uint32_t page) {
  auto current = edit(page);
  if (!current) return Failure(current.error());
  const std::size_t free = current->freeBytes();
  const std::size_t size = pager_->version().pageSize;
  if (free < size / kFullPart) return mapEditor(*pager_, freeSpace_).remove(page);
  if (free >= size / kRoomPart) return mapEditor(*pager_, freeSpace_).add(page);
  return {};
}

}  // namespace jet
