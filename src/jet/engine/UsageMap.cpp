#include "jet/engine/UsageMap.h"

#include "jet/engine/Damage.h"

namespace jet {
namespace {

using format::PageKind;
using format::UsageMapForm;

bool bitIsSet(ByteSpan bits, std::uint64_t index) {
  return (bits[static_cast<std::size_t>(index / 8)] >> (index % 8) & 1) != 0;
}

// False when visit wanted no more.
template <class Visit>
bool visitSetBits(ByteSpan bits, std::uint64_t firstPage, const Visit& visit) {
  for (std::size_t i = 0; i < bits.size(); ++i) {
    if (bits[i] == 0) continue;
    for (std::size_t bit = 0; bit < 8; ++bit)
      if ((bits[i] >> bit & 1) != 0 && !visit(firstPage + 8 * i + bit)) return false;
  }
  return true;
}

}  // namespace

Result<UsageMapRow> UsageMapRow::read(const Pager& pager, RowPointer where) {
  auto page = pager.page(where.page, PageKind::Data);
  if (!page) return Failure(page.error());
  auto rows = DataPage::parse(pager.version(), where.page, **page);
  if (!rows) return Failure(rows.error());
  // The page of the global map owns itself; those of all other maps have no owner.
  if (rows->owner() != 0 && rows->owner() != where.page)
    return damaged(where.page, "the page has no page maps");
  auto slot = rows->slot(where.slot);
  if (!slot) return Failure(slot.error());
  UsageMapRow row{*page, rows->bytes(*slot)};
  const bool sound = slot->state == SlotState::Row &&
                     row.bytes.size() >= sizeof(format::InlineMapHead) && row.bytes[0] <= 1;
  if (!sound) return damaged(where.page, "page map %1 is not valid", where.slot);
  return row;
}

std::uint32_t UsageMapRow::firstPage() const {
  return JET_FIELD(format::InlineMapHead, firstPage).get(bytes);
}

std::uint32_t UsageMapRow::bitmapPage(std::size_t index) const {
  return format::Field{static_cast<std::uint16_t>(1 + 4 * index), 4}.get(bytes);
}

template <class Visit>
Result<void> UsageMap::forEach(const Visit& visit) const {
  auto row = UsageMapRow::read(*pager_, where_);
  if (!row) return Failure(row.error());
  if (row->form() == UsageMapForm::Inline) {
    visitSetBits(row->bits(), row->firstPage(), visit);
    return {};
  }
  const std::uint64_t perPage = pager_->version().bitmapPageBits();
  for (std::size_t i = 0; i < row->bitmapCount(); ++i) {
    if (row->bitmapPage(i) == 0) continue;
    auto bitmap = pager_->page(row->bitmapPage(i), PageKind::Bitmap);
    if (!bitmap) return Failure(bitmap.error());
    const ByteSpan bits = ByteSpan(**bitmap).subspan(sizeof(format::BitmapPage));
    if (!visitSetBits(bits, i * perPage, visit)) break;
  }
  return {};
}

Result<std::vector<std::uint32_t>> UsageMap::pages() const {
  std::vector<std::uint32_t> pages;
  std::optional<std::uint64_t> beyond;
  auto done = forEach([&](std::uint64_t page) {
    if (page >= pager_->pageCount()) beyond = page;
    if (!beyond) pages.push_back(static_cast<std::uint32_t>(page));
    return !beyond;
  });
  if (!done) return Failure(done.error());
  if (!beyond) return pages;
  return pager_->located(
      at(static_cast<std::uint32_t>(*beyond),
         refuse(base::ErrorCode::Truncated, "a page map names a page behind the end of the file")));
}

Result<std::vector<std::uint32_t>> UsageMap::pagesInFile(std::size_t limit) const {
  std::vector<std::uint32_t> pages;
  auto done = forEach([&](std::uint64_t page) {
    if (page < pager_->pageCount()) pages.push_back(static_cast<std::uint32_t>(page));
    return page < pager_->pageCount() && pages.size() < limit;
  });
  if (!done) return Failure(done.error());
  return pages;
}

Result<bool> UsageMap::contains(std::uint32_t page, bool beyond) const {
  auto row = UsageMapRow::read(*pager_, where_);
  if (!row) return Failure(row.error());
  if (row->form() == UsageMapForm::Inline) {
    const std::uint32_t first = row->firstPage();
    if (page < first) return false;
    if (page - first >= 8 * row->bits().size()) return beyond;
    return bitIsSet(row->bits(), page - first);
  }
  const std::size_t perPage = pager_->version().bitmapPageBits();
  const std::size_t index = page / perPage;
  if (index >= row->bitmapCount() || row->bitmapPage(index) == 0) return beyond;
  auto bitmap = pager_->page(row->bitmapPage(index), PageKind::Bitmap);
  if (!bitmap) return Failure(bitmap.error());
  return bitIsSet(ByteSpan(**bitmap).subspan(sizeof(format::BitmapPage)), page % perPage);
}

}  // namespace jet
