#pragma once

#include <vector>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/NewTable.h"

namespace jet {

enum class FileVersion {
  Jet3,  // Access 97
  Jet4,  // Access 2000 to 2003
};

// The bytes of a file with these tables, the same for the same input: starts from exactly the pages
// that Jet itself makes and adds the tables as Jet adds them. InvalidValue names a table or value
// that cannot be stored.
base::Result<base::Bytes> createDatabase(const std::vector<NewTable>& tables,
                                         FileVersion version = FileVersion::Jet4);

}  // namespace jet
