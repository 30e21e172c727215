#pragma once

#include <string>

#include "app/DataFolder.h"

// The variables by which each system names a home folder.
inline app::Environment environmentAt(const std::string& home) {
#ifdef _WIN32
  return {home.substr(0, 2), home.substr(2), {}};
#else
  return {{}, {}, home};
#endif
}
