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
  Field pageKey;
  std::size_t passwordOffset;
  std::size_t passwordLength;
  std::size_t dateOffset;  // creation date that masks the password; 0 = it is not masked
};

struct DataPageFormat {
  std::size_t headSize;
  Field freeBytes, owner, slotCount;
};

struct TableFormat {
  std::size_t headSize;
  Field length, rowCount, lastAutoNumber, tableKind, maxColumns, variableSlots, columnCount,
      logicalIndexCount, indexCount, ownedPages, freeSpacePages;
  std::size_t counterSize;
  Field distinctKeys;
  std::size_t nameLengthWidth;  // bytes of the length before a name
};

struct ColumnFormat {
  std::size_t size;
  Field type, number, slot, displayOrder, sortOrder, sortVersion, codePage, flags, extendedFlags,
      fixedOffset, length;
};

struct IndexFormat {
  std::size_t size;
  std::size_t columns;
  Field pages, root, flags;
  std::size_t logicalSize;
  Field logicalIndex, logicalForeignSide, logicalKind;
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
               .pageKey = JET_FIELD(HeaderPage3, pageKey),
               .passwordOffset = offsetof(HeaderPage3, password),
               .passwordLength = sizeof(HeaderPage3::password),
               .dateOffset = 0},
    .dataPage = {.headSize = sizeof(DataPage3),
                 .freeBytes = JET_FIELD(DataPage3, freeBytes),
                 .owner = JET_FIELD(DataPage3, owner),
                 .slotCount = JET_FIELD(DataPage3, slotCount)},
    .table = {.headSize = sizeof(TableHead3),
              .length = JET_FIELD(TableHead3, length),
              .rowCount = JET_FIELD(TableHead3, rowCount),
              .lastAutoNumber = JET_FIELD(TableHead3, lastAutoNumber),
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
               .number = JET_FIELD(ColumnRecord3, number),
               .slot = JET_FIELD(ColumnRecord3, slot),
               .displayOrder = JET_FIELD(ColumnRecord3, displayOrder),
               .sortOrder = JET_FIELD(ColumnRecord3, sortOrder),
               .sortVersion = {},
               .codePage = JET_FIELD(ColumnRecord3, codePage),
               .flags = JET_FIELD(ColumnRecord3, flags),
               .extendedFlags = {},
               .fixedOffset = JET_FIELD(ColumnRecord3, fixedOffset),
               .length = JET_FIELD(ColumnRecord3, length)},
    .index = {.size = sizeof(IndexRecord3),
              .columns = offsetof(IndexRecord3, columns),
              .pages = JET_FIELD(IndexRecord3, pages),
              .root = JET_FIELD(IndexRecord3, root),
              .flags = JET_FIELD(IndexRecord3, flags),
              .logicalSize = sizeof(LogicalIndexRecord3),
              .logicalIndex = JET_FIELD(LogicalIndexRecord3, index),
              .logicalForeignSide = JET_FIELD(LogicalIndexRecord3, foreignSide),
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
               .pageKey = JET_FIELD(HeaderPage4, pageKey),
               .passwordOffset = offsetof(HeaderPage4, password),
               .passwordLength = sizeof(HeaderPage4::password),
               .dateOffset = offsetof(HeaderPage4, creationDate)},
    .dataPage = {.headSize = sizeof(DataPage4),
                 .freeBytes = JET_FIELD(DataPage4, freeBytes),
                 .owner = JET_FIELD(DataPage4, owner),
                 .slotCount = JET_FIELD(DataPage4, slotCount)},
    .table = {.headSize = sizeof(TableHead4),
              .length = JET_FIELD(TableHead4, length),
              .rowCount = JET_FIELD(TableHead4, rowCount),
              .lastAutoNumber = JET_FIELD(TableHead4, lastAutoNumber),
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
               .number = JET_FIELD(ColumnRecord4, number),
               .slot = JET_FIELD(ColumnRecord4, slot),
               .displayOrder = JET_FIELD(ColumnRecord4, displayOrder),
               .sortOrder = JET_FIELD(ColumnRecord4, sortOrder),
               .sortVersion = JET_FIELD(ColumnRecord4, sortVersion),
               .codePage = {},
               .flags = JET_FIELD(ColumnRecord4, flags),
               .extendedFlags = JET_FIELD(ColumnRecord4, extendedFlags),
               .fixedOffset = JET_FIELD(ColumnRecord4, fixedOffset),
               .length = JET_FIELD(ColumnRecord4, length)},
    .index = {.size = sizeof(IndexRecord4),
              .columns = offsetof(IndexRecord4, columns),
              .pages = JET_FIELD(IndexRecord4, pages),
              .root = JET_FIELD(IndexRecord4, root),
              .flags = JET_FIELD(IndexRecord4, flags),
              .logicalSize = sizeof(LogicalIndexRecord4),
              .logicalIndex = JET_FIELD(LogicalIndexRecord4, index),
              .logicalForeignSide = JET_FIELD(LogicalIndexRecord4, foreignSide),
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
