#pragma once

#include <cstdint>

#include "jet/format/Field.h"
#include "jet/format/HeaderLayout.h"
#include "jet/format/PageLayout.h"
#include "jet/format/TableLayout.h"

// What the two file versions differ in, as data: one description per version. Code takes the
// description of the open file and never asks for the version itself.
namespace jet::format {

struct HeaderFormat {
  std::size_t size;
  Field sortOrder, codePage, pageKey, engineBuild;
  std::size_t passwordOffset;
  std::size_t passwordLength;
  std::size_t dateOffset;   // creation date that masks the password; 0 = it is not masked
  std::size_t commitBytes;  // two for each of 256 users
  // What a new file bears. How the mask of the owners in the catalog follows from build and
  // creation date is not known, so all new files have one known set of the three.
  std::uint32_t newBuild;
  std::uint64_t newDate;  // bits of the number of days
  std::array<std::uint8_t, 2> newOwnerMask;
  std::array<std::uint8_t, 7> newTail;  // behind the head
};

struct DataPageFormat {
  std::size_t headSize;
  Field freeBytes, owner, slotCount;
};

struct TableFormat {
  std::size_t headSize;
  std::uint16_t pageMark;  // in the place of a page's free bytes; 0 = those
  Field length, constant, rowCount, lastAutoNumber, autoNumberEnabled, tableKind, maxColumns,
      variableSlots, columnCount, logicalIndexCount, indexCount, ownedPages, freeSpacePages;
  std::size_t counterSize;
  Field distinctKeys;
  std::size_t nameLengthWidth;  // bytes of the length before a name
};

struct ColumnFormat {
  std::size_t size;
  Field type, constant, number, slot, displayOrder, sortOrder, sortVersion, codePage, flags,
      extendedFlags, fixedOffset, length;
  std::size_t longestBinary;
};

struct IndexFormat {
  std::size_t size;
  std::size_t columns;
  Field constant, pages, root, flags;
  std::uint8_t everyFlag;  // set in every index
  std::size_t logicalSize;
  Field logicalConstant, logicalNumber, logicalIndex, logicalOtherNumber, cascadeUpdates,
      cascadeDeletes, logicalKind;
};

struct IndexPageFormat {
  std::size_t headSize;  // entries start here
  Field freeBytes, tableDef, previous, next, tail, prefixLength, level;
  std::size_t maskOffset;
  std::size_t maskSize;
};

struct RowFormat {
  std::size_t numberWidth;  // of the column count, the offsets and the count of variable columns
  bool jumpTable;           // offsets of one byte, a table says where 256 is to be added
  std::size_t maxLength;
  bool shrinkMovedRows;  // a moved row's place is cut down to the pointer
};

struct LongValueFormat {
  std::size_t maxInline;
  std::size_t maxRow;  // on a page of its own, pointer to the next included
};

struct UsageMapFormat {
  std::size_t rowLength;  // of a map as it is created
};

// How texts lie in rows and names in definitions.
enum class TextForm {
  CodePage,  // one byte a character
  Unicode,   // UTF-16, compressed where the column allows it
};

struct Version {
  const char* name;
  std::uint32_t number;  // at 0x14 of page 0
  std::size_t pageSize;
  std::uint64_t maxFileSize;
  TextForm text;
  HeaderFormat header;
  DataPageFormat dataPage;
  TableFormat table;
  ColumnFormat column;
  IndexFormat index;
  IndexPageFormat indexPage;
  RowFormat row;
  LongValueFormat longValue;
  UsageMapFormat usageMap;

  std::size_t bitmapPageBits() const { return (pageSize - sizeof(BitmapPage)) * 8; }
  std::size_t indexRoom() const { return pageSize - indexPage.headSize; }
};

inline constexpr Version kJet3 = {
    .name = "Jet 3",
    .number = 0,
    .pageSize = 2048,
    .maxFileSize = std::uint64_t{1} << 30,
    .text = TextForm::CodePage,
    .header = {.size = sizeof(HeaderPage3),
               .sortOrder = JET_FIELD(HeaderPage3, sortOrder),
               .codePage = JET_FIELD(HeaderPage3, codePage),
               .pageKey = JET_FIELD(HeaderPage3, pageKey),
               .engineBuild = JET_FIELD(HeaderPage3, engineBuild),
               .passwordOffset = offsetof(HeaderPage3, password),
               .passwordLength = sizeof(HeaderPage3::password),
               .dateOffset = 0,
               .commitBytes = 0x600,
               .newBuild = 0x251E,
               .newDate = 0,
               .newOwnerMask = {},
               .newTail = {}},
    .dataPage = {.headSize = sizeof(DataPage3),
                 .freeBytes = JET_FIELD(DataPage3, freeBytes),
                 .owner = JET_FIELD(DataPage3, owner),
                 .slotCount = JET_FIELD(DataPage3, slotCount)},
    .table = {.headSize = sizeof(TableHead3),
              .pageMark = 0x4356,
              .length = JET_FIELD(TableHead3, length),
              .constant = {},
              .rowCount = JET_FIELD(TableHead3, rowCount),
              .lastAutoNumber = JET_FIELD(TableHead3, lastAutoNumber),
              .autoNumberEnabled = {},
              .tableKind = JET_FIELD(TableHead3, tableKind),
              .maxColumns = JET_FIELD(TableHead3, maxColumns),
              .variableSlots = JET_FIELD(TableHead3, variableSlots),
              .columnCount = JET_FIELD(TableHead3, columnCount),
              .logicalIndexCount = JET_FIELD(TableHead3, logicalIndexCount),
              .indexCount = JET_FIELD(TableHead3, indexCount),
              .ownedPages = JET_FIELD(TableHead3, ownedPages),
              .freeSpacePages = JET_FIELD(TableHead3, freeSpacePages),
              .counterSize = sizeof(IndexCounter3),
              .distinctKeys = JET_FIELD(IndexCounter3, distinctKeys),
              .nameLengthWidth = 1},
    .column = {.size = sizeof(ColumnRecord3),
               .type = JET_FIELD(ColumnRecord3, type),
               .constant = {},
               .number = JET_FIELD(ColumnRecord3, number),
               .slot = JET_FIELD(ColumnRecord3, slot),
               .displayOrder = JET_FIELD(ColumnRecord3, displayOrder),
               .sortOrder = JET_FIELD(ColumnRecord3, sortOrder),
               .sortVersion = {},
               .codePage = JET_FIELD(ColumnRecord3, codePage),
               .flags = JET_FIELD(ColumnRecord3, flags),
               .extendedFlags = {},
               .fixedOffset = JET_FIELD(ColumnRecord3, fixedOffset),
               .length = JET_FIELD(ColumnRecord3, length),
               .longestBinary = 255},
    .index = {.size = sizeof(IndexRecord3),
              .columns = offsetof(IndexRecord3, columns),
              .constant = {},
              .pages = JET_FIELD(IndexRecord3, pages),
              .root = JET_FIELD(IndexRecord3, root),
              .flags = JET_FIELD(IndexRecord3, flags),
              .everyFlag = 0,
              .logicalSize = sizeof(LogicalIndexRecord3),
              .logicalConstant = {},
              .logicalNumber = JET_FIELD(LogicalIndexRecord3, number),
              .logicalIndex = JET_FIELD(LogicalIndexRecord3, index),
              .logicalOtherNumber = JET_FIELD(LogicalIndexRecord3, otherNumber),
              .cascadeUpdates = JET_FIELD(LogicalIndexRecord3, cascadeUpdates),
              .cascadeDeletes = JET_FIELD(LogicalIndexRecord3, cascadeDeletes),
              .logicalKind = JET_FIELD(LogicalIndexRecord3, kind)},
    .indexPage = {.headSize = sizeof(IndexPage3),
                  .freeBytes = JET_FIELD(IndexPage3, freeBytes),
                  .tableDef = JET_FIELD(IndexPage3, tableDef),
                  .previous = JET_FIELD(IndexPage3, previous),
                  .next = JET_FIELD(IndexPage3, next),
                  .tail = JET_FIELD(IndexPage3, tail),
                  .prefixLength = JET_FIELD(IndexPage3, prefixLength),
                  .level = JET_FIELD(IndexPage3, level),
                  .maskOffset = offsetof(IndexPage3, entryEnds),
                  .maskSize = sizeof(IndexPage3::entryEnds)},
    .row = {.numberWidth = 1, .jumpTable = true, .maxLength = 2012, .shrinkMovedRows = true},
    .longValue = {.maxInline = 32, .maxRow = 2036},
    .usageMap = {.rowLength = 133},
};

inline constexpr Version kJet4 = {
    .name = "Jet 4",
    .number = 1,
    .pageSize = 4096,
    .maxFileSize = std::uint64_t{1} << 31,
    .text = TextForm::Unicode,
    .header = {.size = sizeof(HeaderPage4),
               .sortOrder = JET_FIELD(HeaderPage4, sortOrder),
               .codePage = JET_FIELD(HeaderPage4, codePage),
               .pageKey = JET_FIELD(HeaderPage4, pageKey),
               .engineBuild = JET_FIELD(HeaderPage4, engineBuild),
               .passwordOffset = offsetof(HeaderPage4, password),
               .passwordLength = sizeof(HeaderPage4::password),
               .dateOffset = offsetof(HeaderPage4, creationDate),
               .commitBytes = 0xE00,
               .newBuild = 0x261C,
               .newDate = 0x40E4AB3E3BD3853E,
               .newOwnerMask = {0x67, 0x8A},
               .newTail = {0x54, 0x06, 0, 0, '4', '.', '0'}},
    .dataPage = {.headSize = sizeof(DataPage4),
                 .freeBytes = JET_FIELD(DataPage4, freeBytes),
                 .owner = JET_FIELD(DataPage4, owner),
                 .slotCount = JET_FIELD(DataPage4, slotCount)},
    .table = {.headSize = sizeof(TableHead4),
              .pageMark = 0,
              .length = JET_FIELD(TableHead4, length),
              .constant = JET_FIELD(TableHead4, constant),
              .rowCount = JET_FIELD(TableHead4, rowCount),
              .lastAutoNumber = JET_FIELD(TableHead4, lastAutoNumber),
              .autoNumberEnabled = JET_FIELD(TableHead4, autoNumberEnabled),
              .tableKind = JET_FIELD(TableHead4, tableKind),
              .maxColumns = JET_FIELD(TableHead4, maxColumns),
              .variableSlots = JET_FIELD(TableHead4, variableSlots),
              .columnCount = JET_FIELD(TableHead4, columnCount),
              .logicalIndexCount = JET_FIELD(TableHead4, logicalIndexCount),
              .indexCount = JET_FIELD(TableHead4, indexCount),
              .ownedPages = JET_FIELD(TableHead4, ownedPages),
              .freeSpacePages = JET_FIELD(TableHead4, freeSpacePages),
              .counterSize = sizeof(IndexCounter4),
              .distinctKeys = JET_FIELD(IndexCounter4, distinctKeys),
              .nameLengthWidth = 2},
    .column = {.size = sizeof(ColumnRecord4),
               .type = JET_FIELD(ColumnRecord4, type),
               .constant = JET_FIELD(ColumnRecord4, constant),
               .number = JET_FIELD(ColumnRecord4, number),
               .slot = JET_FIELD(ColumnRecord4, slot),
               .displayOrder = JET_FIELD(ColumnRecord4, displayOrder),
               .sortOrder = JET_FIELD(ColumnRecord4, sortOrder),
               .sortVersion = JET_FIELD(ColumnRecord4, sortVersion),
               .codePage = {},
               .flags = JET_FIELD(ColumnRecord4, flags),
               .extendedFlags = JET_FIELD(ColumnRecord4, extendedFlags),
               .fixedOffset = JET_FIELD(ColumnRecord4, fixedOffset),
               .length = JET_FIELD(ColumnRecord4, length),
               .longestBinary = 510},
    .index = {.size = sizeof(IndexRecord4),
              .columns = offsetof(IndexRecord4, columns),
              .constant = JET_FIELD(IndexRecord4, constant),
              .pages = JET_FIELD(IndexRecord4, pages),
              .root = JET_FIELD(IndexRecord4, root),
              .flags = JET_FIELD(IndexRecord4, flags),
              .everyFlag = 0x80,
              .logicalSize = sizeof(LogicalIndexRecord4),
              .logicalConstant = JET_FIELD(LogicalIndexRecord4, constant),
              .logicalNumber = JET_FIELD(LogicalIndexRecord4, number),
              .logicalIndex = JET_FIELD(LogicalIndexRecord4, index),
              .logicalOtherNumber = JET_FIELD(LogicalIndexRecord4, otherNumber),
              .cascadeUpdates = JET_FIELD(LogicalIndexRecord4, cascadeUpdates),
              .cascadeDeletes = JET_FIELD(LogicalIndexRecord4, cascadeDeletes),
              .logicalKind = JET_FIELD(LogicalIndexRecord4, kind)},
    .indexPage = {.headSize = sizeof(IndexPage4),
                  .freeBytes = JET_FIELD(IndexPage4, freeBytes),
                  .tableDef = JET_FIELD(IndexPage4, tableDef),
                  .previous = JET_FIELD(IndexPage4, previous),
                  .next = JET_FIELD(IndexPage4, next),
                  .tail = JET_FIELD(IndexPage4, tail),
                  .prefixLength = JET_FIELD(IndexPage4, prefixLength),
                  .level = JET_FIELD(IndexPage4, level),
                  .maskOffset = offsetof(IndexPage4, entryEnds),
                  .maskSize = sizeof(IndexPage4::entryEnds)},
    .row = {.numberWidth = 2, .jumpTable = false, .maxLength = 4060, .shrinkMovedRows = false},
    .longValue = {.maxInline = 64, .maxRow = 4076},
    .usageMap = {.rowLength = 69},
};

}  // namespace jet::format
