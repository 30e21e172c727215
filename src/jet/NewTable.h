#pragma once

#include <string>
#include <vector>

#include "jet/Value.h"

namespace jet {

struct IndexColumn {
  std::string column;
  bool ascending = true;
};

// What a new table looks like and which rows it starts with.
struct NewColumn {
  std::string name;
  ColumnType type = ColumnType::Long;
  int length = 0;           // Text: characters, at most 255; Binary: bytes; else ignored
  bool autoNumber = false;  // Long only
};

struct NewIndex {
  std::string name;
  std::vector<IndexColumn> columns;
  bool primary = false;
  bool unique = false;
};

struct NewTable {
  std::string name;
  std::vector<NewColumn> columns;
  std::vector<NewIndex> indexes;
  std::vector<std::vector<Value>> rows;  // one Value per column
};

}  // namespace jet
