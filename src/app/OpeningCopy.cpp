#include "app/OpeningCopy.h"

#include <optional>

#include "app/Backup.h"
#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kBlock = 1 << 18;
// Above this there is no use in trying; a year takes up less than one megabyte.
constexpr std::uint64_t kLargestAtOnce = 4 << 20;

// nullopt when the file cannot be read or the time is up.
std::optional<base::Bytes> readUntil(base::FileSystem& files, const std::string& path,
                                     SteadyClock::time_point deadline) {
  const auto file = files.open(path, base::OpenMode::Read);
  if (!file) return std::nullopt;
  const auto size = (*file)->size();
  if (!size || *size > kLargestAtOnce) return std::nullopt;
  base::Bytes content(static_cast<std::size_t>(*size));
  for (std::size_t done = 0; done < content.size(); done += kBlock) {
    if (SteadyClock::now() >= deadline) return std::nullopt;
    const auto block = std::span(content).subspan(done);
    if (!(*file)->readAt(done, block.first(std::min(block.size(), kBlock)))) return std::nullopt;
  }
  return content;
}

}  // namespace

OpeningCopy::OpeningCopy(base::FileSystem& files, std::string dataFolder, std::string year,
                         const base::Clock& clock)
    : files_(files),
      dataFolder_(base::withSeparator(std::move(dataFolder))),
      year_(std::move(year)),
      clock_(clock) {}

void OpeningCopy::prepare(std::chrono::milliseconds budget) {
  const SteadyClock::time_point deadline = SteadyClock::now() + budget;
  // A year that cannot be written does not change either.
  const auto year = files_.info(dataFolder_ + year_);
  if (!year || !year->writable || year->isFolder) return;
  if (SafetyCopies(files_, dataFolder_, clock_).hasTodays(year_)) return;
  // Completing a waiting journal is the opening's own work, which comes next.
  if (files_.exists(journalOf(dataFolder_ + year_))) return;
  const auto sides = listFiles(files_, dataFolder_, kSideExtension);
  if (!sides) return;
  std::vector<std::string> names = sideFilesOf(year_, *sides);
  names.push_back(year_);
  SafetyCopies::Contents contents;
  for (const std::string& name : names) {
    auto content = readUntil(files_, dataFolder_ + name, deadline);
    if (!content) return;
    contents.emplace(name, std::move(*content));
  }
  contents_ = std::move(contents);
}

base::Result<void> OpeningCopy::finish() {
  // As long as nothing can be written there the year does not change; closing comes here again.
  if (const auto folder = files_.info(dataFolder_); folder && !folder->writable) return {};
  const SafetyCopies::Contents contents = std::exchange(contents_, {});
  if (contents.empty()) return {};
  SafetyCopies copies(files_, dataFolder_, clock_);
  const auto kept = copies.keepContents(CopyMoment::Opening, year_, contents);
  return kept ? base::Result<void>() : base::Failure(kept.error());
}

base::Result<void> OpeningCopy::afterClosing() {
  const auto year = files_.info(dataFolder_ + year_);
  if (!year || !year->writable || year->isFolder) return {};
  const auto kept = SafetyCopies(files_, dataFolder_, clock_).keep(CopyMoment::Closing, year_);
  return kept ? base::Result<void>() : base::Failure(kept.error());
}

}  // namespace app
