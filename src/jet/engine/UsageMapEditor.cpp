#include "jet/engine/UsageMapEditor.h"

#include <algorithm>
#include <cassert>

#include "jet/engine/Damage.h"

namespace jet {
namespace {

using format::UsageMapForm;

// Rows of maps grow in steps of 4 bytes, as Access lets them grow; beyond that the map is turned
// into bitmap pages.
constexpr std::size_t kRowStep = 4;
constexpr std::size_t kMaxRowLength = 256;
constexpr std::size_t kHead = sizeof(format::InlineMapHead);

void setBit(std::span<std::uint8_t> bits, std::size_t index, bool value) {
  const auto mask = static_cast<std::uint8_t>(1u << (index % 8));
  std::uint8_t& byte = bits[index / 8];
  byte = static_cast<std::uint8_t>(value ? byte | mask : byte & ~mask);
}

format::Field bitmapField(std::size_t index) {
  return {static_cast<std::uint16_t>(1 + 4 * index), 4};
}

}  // namespace

UsageMapEditor::UsageMapEditor(Pager& pager, RowPointer where, Beyond beyond, NewPage newPage)
    : pager_(pager),
      where_(where),
      beyond_(beyond == Beyond::Present),
      newPage_(std::move(newPage)) {}

Result<std::span<std::uint8_t>> UsageMapEditor::editRow() {
  auto page = pager_.edit(where_.page);
  if (!page) return page;
  auto rows = DataPageEditor::open(pager_.version(), where_.page, *page);
  if (!rows) return Failure(rows.error());
  return rows->bytes(where_.slot);
}

Result<void> UsageMapEditor::set(std::uint32_t page, bool present) {
  auto is = UsageMap(pager_, where_).contains(page, beyond_);
  if (!is) return Failure(is.error());
  if (*is == present) return {};
  auto row = UsageMapRow::read(pager_, where_);
  if (!row) return Failure(row.error());
  const bool isInline = row->form() == UsageMapForm::Inline;
  // A page before the range of the free ones stays lost, as it is for whoever moved that range.
  if (isInline && beyond_ && page < row->firstPage()) return {};
  return isInline ? setInline(*row, page, present) : setReferenced(*row, page, present);
}

Result<void> UsageMapEditor::setInline(const UsageMapRow& row, std::uint32_t page, bool present) {
  const std::uint32_t first = row.firstPage();
  if (page >= first && page - first < 8 * row.bits().size()) {
    auto bytes = editRow();
    if (!bytes) return Failure(bytes.error());
    setBit(bytes->subspan(kHead), page - first, present);
    return {};
  }
  auto fits = moveRange(row, page);
  if (fits && !*fits) fits = lengthen(row, page);
  if (!fits) return Failure(fits.error());
  if (!*fits)
    if (auto done = turnIntoReferences(row); !done) return done;
  return set(page, present);
}

// The pages of one owner often lie close together, though far from the start of the file.
Result<bool> UsageMapEditor::moveRange(const UsageMapRow& row, std::uint32_t page) {
  if (beyond_) return false;
  std::uint64_t lowest = page, highest = page;
  std::vector<std::uint64_t> members;
  const ByteSpan bits = row.bits();
  for (std::size_t i = 0; i < 8 * bits.size(); ++i) {
    if ((bits[i / 8] >> (i % 8) & 1) == 0) continue;
    members.push_back(std::uint64_t{row.firstPage()} + i);
    lowest = std::min(lowest, members.back());
    highest = std::max(highest, members.back());
  }
  const std::uint64_t first = lowest / 8 * 8;
  if (highest - first >= 8 * bits.size() || first > UINT32_MAX) return false;
  auto bytes = editRow();
  if (!bytes) return Failure(bytes.error());
  std::fill(bytes->begin() + 1, bytes->end(), std::uint8_t{0});
  JET_FIELD(format::InlineMapHead, firstPage).set(*bytes, static_cast<std::uint32_t>(first));
  for (const std::uint64_t member : members)
    setBit(bytes->subspan(kHead), static_cast<std::size_t>(member - first), true);
  return true;
}

Result<bool> UsageMapEditor::lengthen(const UsageMapRow& row, std::uint32_t page) {
  if (page < row.firstPage()) return false;
  const std::size_t needed = (page - row.firstPage()) / 8 + 1 - row.bits().size();
  const std::size_t added = (needed + kRowStep - 1) / kRowStep * kRowStep;
  const std::size_t length = row.bytes.size() + added;
  // The global map has its page to itself.
  if (length > kMaxRowLength && !beyond_) return false;
  auto bytes = pager_.edit(where_.page);
  if (!bytes) return Failure(bytes.error());
  auto rows = DataPageEditor::open(pager_.version(), where_.page, *bytes);
  if (!rows) return Failure(rows.error());
  if (rows->freeBytes() < added) return false;
  rows->resize(where_.slot, length);
  const auto grown = rows->bytes(where_.slot);
  std::fill(grown.end() - static_cast<std::ptrdiff_t>(added), grown.end(),
            static_cast<std::uint8_t>(beyond_ ? 0xFF : 0));
  return true;
}

Result<void> UsageMapEditor::turnIntoReferences(const UsageMapRow& row) {
  const base::Bytes old(row.bytes.begin(), row.bytes.end());
  const std::uint64_t first = row.firstPage();
  auto bytes = editRow();
  if (!bytes) return Failure(bytes.error());
  std::fill(bytes->begin(), bytes->end(), std::uint8_t{0});
  (*bytes)[0] = static_cast<std::uint8_t>(UsageMapForm::Reference);
  const std::uint64_t end = first + 8 * (old.size() - kHead);
  for (std::uint64_t page = beyond_ ? 0 : first; page < end && page <= kMaxPointerPage; ++page) {
    const std::uint64_t bit = page - first;
    const bool present = page >= first && (old[kHead + bit / 8] >> (bit % 8) & 1) != 0;
    if (present == beyond_) continue;
    if (auto done = set(static_cast<std::uint32_t>(page), present); !done) return done;
  }
  return {};
}

Result<void> UsageMapEditor::setReferenced(const UsageMapRow& row, std::uint32_t page,
                                           bool present) {
  const std::size_t perPage = pager_.version().bitmapPageBits();
  const std::size_t index = page / perPage;
  if (index >= row.bitmapCount())
    return damaged(where_.page, "the page map has no room for more pages");
  std::uint32_t bitmap = row.bitmapPage(index);
  if (bitmap == 0) {
    auto made = makeBitmap(index);
    if (!made) return Failure(made.error());
    bitmap = *made;
  }
  auto bytes = pager_.edit(bitmap);
  if (!bytes) return Failure(bytes.error());
  setBit(bytes->subspan(sizeof(format::BitmapPage)), page % perPage, present);
  return {};
}

Result<std::uint32_t> UsageMapEditor::makeBitmap(std::size_t index) {
  auto number = newPage_();
  if (!number) return number;
  auto bytes = pager_.edit(*number);
  if (!bytes) return Failure(bytes.error());
  std::fill(bytes->begin(), bytes->end(), static_cast<std::uint8_t>(beyond_ ? 0xFF : 0));
  (*bytes)[0] = static_cast<std::uint8_t>(format::PageKind::Bitmap);
  (*bytes)[1] = 1;
  (*bytes)[2] = (*bytes)[3] = 0;
  auto row = editRow();
  if (!row) return Failure(row.error());
  bitmapField(index).set(*row, *number);
  return number;
}

}  // namespace jet
