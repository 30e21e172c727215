#pragma once

#include <string>
#include <vector>

#include "base/File.h"
#include "jet/Database.h"

namespace jet {

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

// The bytes of a Jet 4 file (Access 2000 to 2003) with these tables, the same for the same input:
// starts from exactly the pages that Jet itself makes and adds the tables as Jet adds them.
// InvalidValue names a table or value that cannot be stored.
base::Result<base::Bytes> createDatabase(const std::vector<NewTable>& tables);

}  // namespace jet
