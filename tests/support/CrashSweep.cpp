#include "support/CrashSweep.h"

#include <random>
#include <vector>

namespace support {
namespace {

using Fate = CrashFileSystem::Fate;
using Fates = std::vector<Fate>;
constexpr Fate kFates[] = {Fate::Keep, Fate::Drop, Fate::Tear, Fate::Garble};

// The combinations of fates for so many pending writes.
std::vector<Fates> combinations(std::size_t writes, std::size_t mixtures, std::size_t moment) {
  if (writes == 0) return {{}};
  std::vector<Fates> result;
  for (const Fate fate : kFates) result.emplace_back(writes, fate);
  if (writes > 1) {
    for (std::size_t alone = 0; alone < writes; ++alone) {
      for (const Fate fate : kFates) {
        result.emplace_back(writes, fate == Fate::Keep ? Fate::Drop : Fate::Keep);
        result.back()[alone] = fate;
      }
    }
  }
  std::mt19937_64 random(moment);
  for (std::size_t i = 0; i < mixtures; ++i) {
    result.emplace_back();
    // A single write that is kept or dropped has been there already.
    for (std::size_t k = 0; k < writes; ++k)
      result.back().push_back(kFates[writes == 1 ? 2 + random() % 2 : random() % 4]);
  }
  return result;
}

std::string describe(std::size_t moment, const Fates& fates, std::size_t names) {
  std::string text = "moment " + std::to_string(moment) + ", names " + std::to_string(names);
  text += ", writes ";
  for (const Fate fate : fates) text += "KDTG"[static_cast<int>(fate)];
  return text;
}

}  // namespace

std::size_t sweepCrashes(const CrashFileSystem& disk, std::size_t mixtures,
                         const std::function<void(const CrashPoint&)>& visit, std::size_t first) {
  std::size_t points = 0;
  for (std::size_t moment = first; moment < disk.moments(); ++moment) {
    for (const Fates& fates : combinations(disk.pendingWrites(moment), mixtures, moment)) {
      const auto fate = [&](std::size_t write) { return fates[write]; };
      for (std::size_t names = 0; names <= disk.pendingNames(moment); ++names) {
        visit({moment, describe(moment, fates, names),
               disk.survivor(moment, fate, names, 1000 * moment + points)});
        ++points;
      }
    }
  }
  return points;
}

}  // namespace support
