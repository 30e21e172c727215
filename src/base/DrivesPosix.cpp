#ifndef _WIN32

#include <fstream>
#include <iterator>

#include "base/Drives.h"
#include "base/Paths.h"

namespace base {
namespace {

std::vector<Mount> systemMounts() {
  std::ifstream file("/proc/self/mountinfo", std::ios::binary);
  return parseMountInfo(std::string(std::istreambuf_iterator<char>(file), {}));
}

// The system marks the whole device; a partition lies in a folder below it.
bool isRemovable(const Mount& mount) {
  const std::string device = "/sys/dev/block/" + mount.device;
  for (const char* place : {"/removable", "/../removable"}) {
    char mark = '0';
    if (std::ifstream(device + place) >> mark && mark == '1') return true;
  }
  return false;
}

}  // namespace

std::vector<std::string> driveRoots() {
  return mediaRoots(systemMounts(), isRemovable);
}

bool onRemovableDrive(const std::string& folder) {
  const std::vector<Mount> mounts = systemMounts();
  const Mount* mount = mountHolding(mounts, folder);
  return mount != nullptr && isRemovable(*mount);
}

}  // namespace base

#endif
