#pragma once

#include <cstdint>
#include <span>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/engine/RowPointer.h"
#include "jet/format/Version.h"

namespace jet {

enum class SlotState : std::uint16_t {
  Row = 0,
  Moved = format::kSlotMoved,    // the first 4 bytes point to the row
  Target = format::kSlotTarget,  // reached through a pointer only
  Deleted = format::kSlotDeleted,
};

struct Slot {
  std::size_t start = 0;
  std::size_t end = 0;
  SlotState state = SlotState::Row;
  std::size_t length() const { return end - start; }
};

// A page of rows: slots with offsets at the front, rows back to back from the page end downwards.
// Reads check the slots that they touch. Errors carry the page.
class DataPage {
 public:
  // Damaged unless it is a data page whose slots fit on it.
  static base::Result<DataPage> parse(const format::Version& version, std::uint32_t number,
                                      base::ByteSpan bytes);

  std::uint32_t owner() const { return format_->owner.get(bytes_); }
  std::size_t slotCount() const { return slotCount_; }
  base::Result<Slot> slot(std::size_t index) const;
  base::ByteSpan bytes(const Slot& slot) const { return bytes_.subspan(slot.start, slot.length()); }
  // Every slot lies inside the page, in descending order.
  base::Result<void> checkSlots() const;
  // Between the last offset and the last row; needs sound slots.
  std::size_t freeBytes() const;
  // Room for a new row of this length, in a new slot or one of a deleted row; needs sound slots.
  bool hasRoomFor(std::size_t length) const;
  std::size_t storedFreeBytes() const { return format_->freeBytes.get(bytes_); }

 private:
  DataPage(const format::Version& version, std::uint32_t number, base::ByteSpan bytes);
  std::size_t rawOffset(std::size_t index) const;

  const format::DataPageFormat* format_;
  std::uint32_t number_;
  base::ByteSpan bytes_;
  std::size_t slotCount_ = 0;
};

// Changes rows on a page. Slots keep their numbers: indexes refer to them.
class DataPageEditor {
 public:
  // Makes an empty data page of the bytes.
  static DataPageEditor format(const format::Version& version, std::span<std::uint8_t> bytes,
                               std::uint32_t owner);
  // Damaged unless every slot is sound; only then can rows be moved about safely.
  static base::Result<DataPageEditor> open(const format::Version& version, std::uint32_t number,
                                           std::span<std::uint8_t> bytes);

  std::size_t slotCount() const { return format_->slotCount.get(bytes_); }
  bool isEmpty() const;  // every row is deleted
  Slot slot(std::size_t index) const;
  std::span<std::uint8_t> bytes(std::size_t index);
  std::size_t freeBytes() const;
  // Room for a new row of this length, in a new slot or one of a deleted row.
  bool hasRoomFor(std::size_t length) const;

  // Growing needs freeBytes() for the difference. The row's bytes keep their place from the front;
  // new ones are zero.
  void resize(std::size_t index, std::size_t length);
  void setState(std::size_t index, SlotState state);
  // Needs hasRoomFor(). Takes the slot of a deleted row, if one is empty, else a new one.
  std::size_t insert(base::ByteSpan row, SlotState state);
  // The slot stays, empty and marked as deleted.
  void erase(std::size_t index);

 private:
  DataPageEditor(const format::Version& version, std::span<std::uint8_t> bytes);
  std::size_t emptySlot() const;  // slotCount() when there is none
  void setOffset(std::size_t index, std::size_t offset, SlotState state);

  const format::DataPageFormat* format_;
  std::span<std::uint8_t> bytes_;
};

}  // namespace jet
