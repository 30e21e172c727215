#pragma once

#include <string>

#include "base/GermanDate.h"

namespace base {

// "14.11.2026"
std::string formatDate(Date date);

}  // namespace base
