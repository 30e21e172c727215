#pragma once

#include "base/CsvRecord.h"
#include "base/File.h"

namespace readings {

// Writes the one line of a side file. A file that holds it already is left alone.
base::Result<void> writeSideFile(base::FileSystem& files, const std::string& path,
                                 const base::RecordWriter& record);

}  // namespace readings
