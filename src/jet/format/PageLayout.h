#pragma once

#include <array>
#include <cstdint>

#include "base/Bytes.h"

// The heads of the pages behind page 0. Number behind the name: Jet version.
namespace jet::format {

// First byte of a page. The second is 1 on every page in use but page 0.
enum class PageKind : std::uint8_t {
  Header = 0,  // page 0; also pages that were never used
  Data = 1,    // rows of a table, usage maps, or long values
  TableDef = 2,
  IndexNode = 3,
  IndexLeaf = 4,
  Bitmap = 5,         // part of a usage map
  FreedTableDef = 8,  // freed pages keep the rest of their old content
  FreedData = 9,
};

// Row number and page of a row.
struct RowPointerRecord {
  std::uint8_t row;
  std::array<std::uint8_t, 3> page;  // little-endian
};
static_assert(sizeof(RowPointerRecord) == 4);

struct DataPage3 {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 freeBytes;
  base::le32 owner;  // table definition; 0 = usage maps; the letters LVAL = long values
  base::le16 slotCount;
  // Row offsets follow, 2 bytes each; the rows themselves grow from the page end downwards.
};
static_assert(sizeof(DataPage3) == 10);

struct DataPage4 {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 freeBytes;
  base::le32 owner;
  base::le32 unused8;
  base::le16 slotCount;
};
static_assert(sizeof(DataPage4) == 14);

inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
inline constexpr std::uint16_t kSlotOffsetMask = 0x1FFF;
inline constexpr std::uint16_t kSlotFlagMask = 0xC000;
inline constexpr std::uint16_t kSlotMoved = 0x4000;   // the row's place holds a pointer to it
inline constexpr std::uint16_t kSlotTarget = 0x8000;  // reached through such a pointer only
inline constexpr std::uint16_t kSlotDeleted = 0xC000;
inline constexpr std::uint32_t kMaxSlots = 255;  // a row pointer has one byte for the slot

struct IndexPage3 {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 freeBytes;
  base::le32 tableDef;
  base::le32 previous;  // page of the same level, 0 = none
  base::le32 next;
  base::le32 tail;  // nodes: the last child, which has no entry
  std::uint8_t prefixLength;
  std::uint8_t level;                       // 0 = leaf
  std::array<std::uint8_t, 226> entryEnds;  // bit b: an entry ends at byte b of the entry area
};
static_assert(sizeof(IndexPage3) == 248);

struct IndexPage4 {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 freeBytes;
  base::le32 tableDef;
  base::le32 unused8;
  base::le32 previous;
  base::le32 next;
  base::le32 tail;
  base::le16 prefixLength;
  std::uint8_t level;
  std::array<std::uint8_t, 453> entryEnds;
};
static_assert(sizeof(IndexPage4) == 480);

// Behind the key of an index entry, big-endian: page (3 bytes) and slot of the row; in nodes also
// the page of the child.
inline constexpr std::size_t kEntryRowBytes = 4;
inline constexpr std::size_t kEntryChildBytes = 4;

// A bitmap page of a usage map; the bits follow.
struct BitmapPage {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 unused2;
};
static_assert(sizeof(BitmapPage) == 4);

// Usage maps are rows: a form byte, then for Inline the first page and its bits, for Reference
// the numbers of bitmap pages.
enum class UsageMapForm : std::uint8_t { Inline = 0, Reference = 1 };
struct InlineMapHead {
  std::uint8_t form;
  base::le32 firstPage;
};
static_assert(sizeof(InlineMapHead) == 5);

// The head of a long value in its row; inline data follow.
struct LongValueHead {
  base::le32 lengthAndForm;  // two top bits form, the rest length in bytes
  RowPointerRecord first;
  base::le32 unknown8;
};
static_assert(sizeof(LongValueHead) == 12);

enum class LongValueForm : std::uint8_t { Chain = 0, OneRow = 1, Inline = 2 };
inline constexpr std::uint32_t kLongValueLengthMask = 0x3FFFFFFF;
inline constexpr int kLongValueFormShift = 30;

}  // namespace jet::format
