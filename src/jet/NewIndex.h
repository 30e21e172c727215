#pragma once

#include <vector>

#include "base/Bytes.h"
#include "jet/NewFile.h"

namespace jet {

// Writes a whole index into a file in the making. entries: key, page and slot of each row, in any
// order. The root page exists already; further pages are appended. Returns the pages of the tree.
std::vector<std::uint32_t> writeIndexTree(NewFile& file, std::uint32_t tableDef, std::uint32_t root,
                                          std::vector<base::Bytes> entries);

// Key and row as a leaf's entry holds them.
base::Bytes indexEntry(base::ByteSpan key, RowPointer row);

}  // namespace jet
