#pragma once

#include <string>

#include "base/Result.h"

namespace base {

// Makes the folder the current one, from which relative names are meant and file dialogs begin. The
// error names it.
Result<void> makeCurrent(const std::string& folder);

}  // namespace base
