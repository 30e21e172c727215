#pragma once

#include <vector>

#include "base/Bytes.h"

namespace fuzz {

// Sound files that hold between them every structure that the engine writes: rows of all types,
// moved and deleted rows, long texts in every form, an index of several levels, a long definition.
// The files of the folder that the environment names in KALVIRA_FUZZ_FILES join them: real files of
// Access 97, for instance, which the engine cannot make.
const std::vector<base::Bytes>& baseFiles();

}  // namespace fuzz
