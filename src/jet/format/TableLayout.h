#pragma once

#include <array>
#include <cstdint>

#include "base/Bytes.h"
#include "jet/format/PageLayout.h"

// The records of a table definition in the order in which they follow each other: head, index
// counters, columns, column names, indexes, logical indexes, their names, long-value maps.
namespace jet::format {

// Head of every page of a definition; on the first page the table's own head follows.
struct TableDefPage {
  std::uint8_t kind;
  std::uint8_t used;
  base::le16 freeBytes;  // Jet 3: the letters VC
  base::le32 next;       // next page of the definition, 0 = last
};
static_assert(sizeof(TableDefPage) == 8);

struct TableHead3 {
  TableDefPage page;
  base::le32 length;  // of the whole definition, the first page's head included
  base::le32 rowCount;
  base::le32 lastAutoNumber;
  std::uint8_t tableKind;  // 'N' user table, 'S' system table
  base::le16 maxColumns;   // ever, deleted ones included
  base::le16 variableSlots;
  base::le16 columnCount;
  base::le32 logicalIndexCount;
  base::le32 indexCount;
  RowPointerRecord ownedPages;
  RowPointerRecord freeSpacePages;
};
static_assert(sizeof(TableHead3) == 43);

struct TableHead4 {
  TableDefPage page;
  base::le32 length;
  base::le32 constant;  // 0x659
  base::le32 rowCount;
  base::le32 lastAutoNumber;
  std::uint8_t autoNumberEnabled;
  std::array<std::uint8_t, 15> unused25;
  std::uint8_t tableKind;
  base::le16 maxColumns;
  base::le16 variableSlots;
  base::le16 columnCount;
  base::le32 logicalIndexCount;
  base::le32 indexCount;
  RowPointerRecord ownedPages;
  RowPointerRecord freeSpacePages;
};
static_assert(sizeof(TableHead4) == 63);

struct IndexCounter3 {
  base::le32 statistic;
  base::le32 distinctKeys;
};
static_assert(sizeof(IndexCounter3) == 8);

struct IndexCounter4 {
  base::le32 statistic;
  base::le32 distinctKeys;
  base::le32 unused8;
};
static_assert(sizeof(IndexCounter4) == 12);

struct ColumnRecord3 {
  std::uint8_t type;
  base::le16 number;  // bit in the null mask, never used again
  base::le16 slot;    // variable columns: place in the row's offset table
  base::le16 displayOrder;
  base::le16 unknown7;
  base::le16 sortOrder;  // numeric columns: precision, scale
  base::le16 codePage;
  std::uint8_t flags;
  base::le16 fixedOffset;  // fixed columns only
  base::le16 length;
};
static_assert(sizeof(ColumnRecord3) == 18);

struct ColumnRecord4 {
  std::uint8_t type;
  base::le32 constant;  // 0x659
  base::le16 number;
  base::le16 slot;
  base::le16 displayOrder;
  base::le16 sortOrder;
  std::uint8_t unknown13;
  std::uint8_t sortVersion;
  std::uint8_t flags;
  std::uint8_t extendedFlags;
  base::le32 unused17;
  base::le16 fixedOffset;
  base::le16 length;
};
static_assert(sizeof(ColumnRecord4) == 25);

inline constexpr std::uint8_t kColumnFixed = 0x01;
inline constexpr std::uint8_t kColumnAutoNumber = 0x04;
inline constexpr std::uint8_t kColumnMasked = 0x20;
inline constexpr std::uint8_t kColumnAutoGuid = 0x40;
inline constexpr std::uint8_t kColumnCompressed = 0x01;  // extended flags
inline constexpr std::uint16_t kSortOrderGeneral = 0x0409;

struct IndexColumnRecord {
  base::le16 number;  // 0xFFFF = unused
  std::uint8_t order;
};
static_assert(sizeof(IndexColumnRecord) == 3);
inline constexpr std::uint8_t kIndexAscending = 0x01;
inline constexpr std::uint16_t kIndexColumnUnused = 0xFFFF;
inline constexpr std::size_t kIndexColumns = 10;

struct IndexRecord3 {
  std::array<IndexColumnRecord, kIndexColumns> columns;
  RowPointerRecord pages;
  base::le32 root;
  std::uint8_t flags;
};
static_assert(sizeof(IndexRecord3) == 39);

struct IndexRecord4 {
  base::le32 constant;  // 0x783
  std::array<IndexColumnRecord, kIndexColumns> columns;
  RowPointerRecord pages;
  base::le32 root;
  base::le32 unused42;
  std::uint8_t flags;
  std::array<std::uint8_t, 5> unused47;
};
static_assert(sizeof(IndexRecord4) == 52);

inline constexpr std::uint8_t kIndexUnique = 0x01;
inline constexpr std::uint8_t kIndexIgnoreNulls = 0x02;
inline constexpr std::uint8_t kIndexRequired = 0x08;

struct LogicalIndexRecord3 {
  base::le32 number;
  base::le32 index;  // position of the index that it stands for; several may share one
  std::uint8_t foreignSide;
  base::le32 otherNumber;
  base::le32 otherTable;
  std::uint8_t cascadeUpdates;
  std::uint8_t cascadeDeletes;
  std::uint8_t kind;
};
static_assert(sizeof(LogicalIndexRecord3) == 20);

struct LogicalIndexRecord4 {
  base::le32 constant;  // 0x659
  base::le32 number;
  base::le32 index;
  std::uint8_t foreignSide;
  base::le32 otherNumber;
  base::le32 otherTable;
  std::uint8_t cascadeUpdates;
  std::uint8_t cascadeDeletes;
  std::uint8_t kind;
  base::le32 unused24;
};
static_assert(sizeof(LogicalIndexRecord4) == 28);

inline constexpr std::uint8_t kLogicalPrimary = 1;
inline constexpr std::uint8_t kLogicalForeign = 2;

// One per memo or OLE column; a column number of 0xFFFF ends the list.
struct LongValueMaps {
  base::le16 column;
  RowPointerRecord owned;
  RowPointerRecord freeSpace;
};
static_assert(sizeof(LongValueMaps) == 10);
inline constexpr std::uint16_t kLongValueMapsEnd = 0xFFFF;

}  // namespace jet::format
