#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>

#include "base/Drives.h"

namespace base {
namespace {

// Drive roots are plain letters, so the narrow call loses nothing.
std::string systemDriveStrings() {
  std::array<char, 255> buffer{};
  const DWORD length = GetLogicalDriveStringsA(static_cast<DWORD>(buffer.size()), buffer.data());
  return length < buffer.size() ? std::string(buffer.data(), length) : std::string();
}

}  // namespace

std::vector<std::string> driveRoots() {
  const std::string list = systemDriveStrings();
  std::vector<std::string> roots;
  for (std::size_t start = 0; start < list.size();) {
    roots.emplace_back(list.c_str() + start);
    start += roots.back().size() + 1;
  }
  return roots;
}

bool onRemovableDrive(const std::string& folder) {
  return driveLetterIsRemovable(folder, systemDriveStrings(), [](const std::string& root) {
    return GetDriveTypeA(root.c_str()) == DRIVE_REMOVABLE;
  });
}

}  // namespace base

#endif
