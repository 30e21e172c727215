#include "jet/engine/DataPage.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "jet/engine/Damage.h"

namespace jet {
namespace {

using format::PageKind;

constexpr format::Field slotField(std::size_t headSize, std::size_t index) {
  return {static_cast<std::uint16_t>(headSize + 2 * index), 2};
}

}  // namespace

DataPage::DataPage(const format::Version& version, std::uint32_t number, base::ByteSpan bytes)
    : format_(&version.dataPage), number_(number), bytes_(bytes) {}

Result<DataPage> DataPage::parse(const format::Version& version, std::uint32_t number,
                                 base::ByteSpan bytes) {
  assert(bytes.size() == version.pageSize);
  DataPage page(version, number, bytes);
  if (bytes[0] != static_cast<std::uint8_t>(PageKind::Data))
    return damaged(number, "the page is no data page");
  page.slotCount_ = page.format_->slotCount.get(bytes);
  const bool fits = page.slotCount_ <= format::kMaxSlots + 1 &&
                    page.format_->headSize + 2 * page.slotCount_ <= bytes.size();
  if (!fits) return damaged(number, "so many rows do not fit on the page");
  return page;
}

std::size_t DataPage::rawOffset(std::size_t index) const {
  return slotField(format_->headSize, index).get(bytes_);
}

Result<Slot> DataPage::slot(std::size_t index) const {
  if (index >= slotCount_)
    return damaged(number_, "a pointer leads to row %1, which the page lacks", index);
  Slot slot;
  const std::size_t raw = rawOffset(index);
  slot.state = static_cast<SlotState>(raw & format::kSlotFlagMask);
  slot.start = raw & format::kSlotOffsetMask;
  slot.end = index == 0 ? bytes_.size() : rawOffset(index - 1) & format::kSlotOffsetMask;
  const bool sound = slot.start >= format_->headSize + 2 * slotCount_ && slot.start <= slot.end &&
                     slot.end <= bytes_.size();
  if (!sound) return damaged(number_, "row %1 has the wrong place %2", index, slot.start);
  return slot;
}

Result<void> DataPage::checkSlots() const {
  for (std::size_t i = 0; i < slotCount_; ++i)
    if (auto found = slot(i); !found) return base::Failure(found.error());
  return {};
}

std::size_t DataPage::freeBytes() const {
  const std::size_t last =
      slotCount_ == 0 ? bytes_.size() : rawOffset(slotCount_ - 1) & format::kSlotOffsetMask;
  return last - format_->headSize - 2 * slotCount_;
}

bool DataPage::hasRoomFor(std::size_t length) const {
  for (std::size_t i = 0; i < slotCount_; ++i) {
    const std::size_t end = i == 0 ? bytes_.size() : rawOffset(i - 1) & format::kSlotOffsetMask;
    const bool deleted = (rawOffset(i) & format::kSlotFlagMask) == format::kSlotDeleted;
    if (deleted && (rawOffset(i) & format::kSlotOffsetMask) == end) return freeBytes() >= length;
  }
  return slotCount_ < format::kMaxSlots && freeBytes() >= length + 2;
}

DataPageEditor::DataPageEditor(const format::Version& version, std::span<std::uint8_t> bytes)
    : format_(&version.dataPage), bytes_(bytes) {}

DataPageEditor DataPageEditor::format(const format::Version& version, std::span<std::uint8_t> bytes,
                                      std::uint32_t owner) {
  DataPageEditor page(version, bytes);
  std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
  bytes[0] = static_cast<std::uint8_t>(PageKind::Data);
  bytes[1] = 1;
  page.format_->owner.set(bytes, owner);
  page.format_->freeBytes.set(bytes, static_cast<std::uint32_t>(page.freeBytes()));
  return page;
}

Result<DataPageEditor> DataPageEditor::open(const format::Version& version, std::uint32_t number,
                                            std::span<std::uint8_t> bytes) {
  auto page = DataPage::parse(version, number, bytes);
  if (!page) return base::Failure(page.error());
  if (auto sound = page->checkSlots(); !sound) return base::Failure(sound.error());
  return DataPageEditor(version, bytes);
}

bool DataPageEditor::isEmpty() const {
  std::size_t i = 0;
  while (i < slotCount() && slot(i).state == SlotState::Deleted) ++i;
  return i == slotCount();
}

Slot DataPageEditor::slot(std::size_t index) const {
  assert(index < slotCount());
  const std::size_t raw = slotField(format_->headSize, index).get(bytes_);
  Slot slot;
  slot.state = static_cast<SlotState>(raw & format::kSlotFlagMask);
  slot.start = raw & format::kSlotOffsetMask;
  slot.end = index == 0
                 ? bytes_.size()
                 : slotField(format_->headSize, index - 1).get(bytes_) & format::kSlotOffsetMask;
  return slot;
}

std::span<std::uint8_t> DataPageEditor::bytes(std::size_t index) {
  const Slot place = slot(index);
  return bytes_.subspan(place.start, place.length());
}

std::size_t DataPageEditor::freeBytes() const {
  const std::size_t count = slotCount();
  const std::size_t last = count == 0 ? bytes_.size() : slot(count - 1).start;
  return last - format_->headSize - 2 * count;
}

bool DataPageEditor::hasRoomFor(std::size_t length) const {
  if (emptySlot() < slotCount()) return freeBytes() >= length;
  return slotCount() < format::kMaxSlots && freeBytes() >= length + 2;
}

std::size_t DataPageEditor::emptySlot() const {
  const std::size_t count = slotCount();
  for (std::size_t i = 0; i < count; ++i) {
    const Slot place = slot(i);
    if (place.state == SlotState::Deleted && place.length() == 0) return i;
  }
  return count;
}

void DataPageEditor::setOffset(std::size_t index, std::size_t offset, SlotState state) {
  slotField(format_->headSize, index)
      .set(bytes_, static_cast<std::uint32_t>(offset) | static_cast<std::uint32_t>(state));
}

// The row ends where the one before it starts, so its start moves, and with it all later rows.
void DataPageEditor::resize(std::size_t index, std::size_t length) {
  const Slot old = slot(index);
  assert(length <= old.length() + freeBytes());
  const std::size_t count = slotCount();
  const std::size_t lowest = slot(count - 1).start;
  const std::size_t kept = std::min(length, old.length());
  base::Bytes row(length);
  std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(old.start), kept, row.begin());

  const std::size_t newStart = old.end - length;
  const std::size_t laterBytes = old.start - lowest;
  std::memmove(bytes_.data() + newStart - laterBytes, bytes_.data() + lowest, laterBytes);
  std::copy(row.begin(), row.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(newStart));
  for (std::size_t i = index; i < count; ++i) {
    const std::uint32_t raw = slotField(format_->headSize, i).get(bytes_);
    const std::size_t start = (raw & format::kSlotOffsetMask) + old.length() - length;
    setOffset(i, start, static_cast<SlotState>(raw & format::kSlotFlagMask));
  }
  format_->freeBytes.set(bytes_, static_cast<std::uint32_t>(freeBytes()));
}

void DataPageEditor::setState(std::size_t index, SlotState state) {
  setOffset(index, slot(index).start, state);
}

std::size_t DataPageEditor::insert(base::ByteSpan row, SlotState state) {
  assert(hasRoomFor(row.size()));
  const std::size_t index = emptySlot();
  if (index == slotCount()) {
    const std::size_t start = index == 0 ? bytes_.size() : slot(index - 1).start;
    format_->slotCount.set(bytes_, static_cast<std::uint32_t>(index + 1));
    setOffset(index, start, state);
  }
  resize(index, row.size());
  setState(index, state);
  std::copy(row.begin(), row.end(), bytes(index).begin());
  return index;
}

void DataPageEditor::erase(std::size_t index) {
  resize(index, 0);
  setState(index, SlotState::Deleted);
}

}  // namespace jet
