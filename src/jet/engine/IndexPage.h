#pragma once

#include <cstdint>
#include <vector>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/engine/RowPointer.h"
#include "jet/format/Version.h"

namespace jet {

// What an index holds of a row: the key, and page and slot of the row behind it, so that no two
// entries are equal. Entries are ordered by these bytes.
struct IndexEntry {
  base::Bytes bytes;
  std::uint32_t child = 0;  // nodes only: page of the entries up to this one

  static IndexEntry of(base::ByteSpan key, RowPointer row);
  base::ByteSpan key() const {
    return base::ByteSpan(bytes).first(bytes.size() - format::kEntryRowBytes);
  }
  RowPointer row() const;
};

// A leaf or a node of an index tree, taken apart.
struct IndexPage {
  bool leaf = true;
  std::uint8_t level = 0;  // 0 = leaf
  std::uint32_t tableDef = 0;
  std::uint32_t previous = 0;  // of the same level, 0 = none
  std::uint32_t next = 0;
  std::uint32_t tail = 0;  // nodes: page of the entries behind the last of this page
  std::vector<IndexEntry> entries;

  // IndexDamaged with the page when it is no index page of this table or contradicts itself.
  static base::Result<IndexPage> parse(const format::Version& version, std::uint32_t number,
                                       base::ByteSpan bytes, std::uint32_t tableDef);

  bool fits(const format::Version& version) const {
    return encodedSize(version) <= version.indexRoom();
  }
  // Of the entry area, as the page lies in the file.
  static std::size_t usedBytes(base::ByteSpan bytes, const format::Version& version);
  // Writes over the whole page; needs fits().
  void encode(const format::Version& version, std::span<std::uint8_t> bytes) const;

 private:
  std::size_t plainSize() const;
  std::size_t encodedSize(const format::Version& version) const;
  std::size_t usablePrefix(const format::Version& version) const;
};

}  // namespace jet
