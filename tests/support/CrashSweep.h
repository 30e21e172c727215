#pragma once

#include <functional>
#include <string>

#include "support/CrashFileSystem.h"

namespace support {

// One way in which a power failure may have left the disk.
struct CrashPoint {
  std::size_t moment = 0;
  std::string label;  // moment, fates and names, for a failing test's message
  MemoryFileSystem::Contents contents;
};

// Goes through the history of a disk: for every moment every number of kept names, and for the
// pending writes all kept, all dropped, torn and garbled, each one alone dropped, kept, torn and
// garbled among the others, and further random mixtures of all fates. Returns how many points it
// visited. Moments before first are left out.
std::size_t sweepCrashes(const CrashFileSystem& disk, std::size_t mixtures,
                         const std::function<void(const CrashPoint&)>& visit,
                         std::size_t first = 0);

}  // namespace support
