#include "app/SafetyCopy.h"

#include <algorithm>

#include "app/Backup.h"
#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kBlock = 1 << 18;
constexpr std::size_t kKeptCopies = 10;
// Above this there is no use in trying; a year takes up less than one megabyte.
constexpr std::uint64_t kLargestAtOnce = 4 << 20;

std::string padded(unsigned value) {
  return (value < 10 ? "0" : "") + std::to_string(value);
}

// Sorts as it reads.
std::string dayName(base::Date date) {
  return std::to_string(static_cast<int>(date.year())) + '-' +
         padded(static_cast<unsigned>(date.month())) + '-' +
         padded(static_cast<unsigned>(date.day()));
}

bool isDayName(const std::string& name) {
  const std::string_view pattern = "dddd-dd-dd";
  return name.size() == pattern.size() &&
         std::equal(name.begin(), name.end(), pattern.begin(),
                    [](char c, char p) { return p == 'd' ? c >= '0' && c <= '9' : c == p; });
}

// nullopt when the file cannot be read or the time is up.
std::optional<base::Bytes> readUntil(base::FileSystem& files, const std::string& path,
                                     Clock::time_point deadline) {
  const auto file = files.open(path, base::OpenMode::Read);
  if (!file) return std::nullopt;
  const auto size = (*file)->size();
  if (!size || *size > kLargestAtOnce) return std::nullopt;
  base::Bytes content(static_cast<std::size_t>(*size));
  for (std::size_t done = 0; done < content.size(); done += kBlock) {
    if (Clock::now() >= deadline) return std::nullopt;
    const auto block = std::span(content).subspan(done);
    if (!(*file)->readAt(done, block.first(std::min(block.size(), kBlock)))) return std::nullopt;
  }
  return content;
}

}  // namespace

SafetyCopy::SafetyCopy(base::FileSystem& files, std::string dataFolder, std::string yearName,
                       base::Date today)
    : files_(files),
      dataFolder_(base::withSeparator(std::move(dataFolder))),
      yearName_(std::move(yearName)),
      day_(dayName(today)) {}

std::string SafetyCopy::folderIn(const std::string& dataFolder) {
  return base::withSeparator(dataFolder) + "Sicherungen" + base::kPathSeparator;
}

bool SafetyCopy::isDue() const {
  // A year that cannot be written does not change either.
  const auto year = files_.info(dataFolder_ + yearName_);
  return year && year->writable && !year->isFolder && !files_.exists(todaysFolder() + yearName_);
}

std::string SafetyCopy::todaysFolder() const {
  return folderIn(dataFolder_) + day_ + base::kPathSeparator;
}

base::Result<std::vector<std::string>> SafetyCopy::namesIn(const std::string& folder) const {
  auto side = listFiles(files_, folder, kSideExtension);
  if (!side) return side;
  std::vector<std::string> names = sideFilesOf(yearName_, *side);
  // The database last: with it the copy counts as made.
  names.push_back(yearName_);
  return names;
}

std::vector<std::string> SafetyCopy::copiedDays() const {
  const std::string folder = folderIn(dataFolder_);
  auto days = files_.list(folder).value_or(std::vector<std::string>());
  std::erase_if(days, [&](const std::string& day) {
    return !isDayName(day) || !files_.exists(folder + day + base::kPathSeparator + yearName_);
  });
  std::sort(days.begin(), days.end());
  return days;
}

std::string SafetyCopy::advice(const base::Error& error) const {
  switch (error.code) {
    case base::ErrorCode::NotFound:
    case base::ErrorCode::NotADatabase:
    case base::ErrorCode::Truncated:
    case base::ErrorCode::Damaged:
      break;
    default:
      return {};
  }
  const std::vector<std::string> days = copiedDays();
  if (days.empty()) return {};
  const std::string& newest = days.back();
  return "Es gibt eine Sicherheitskopie vom " + newest.substr(8, 2) + '.' + newest.substr(5, 2) +
         '.' + newest.substr(0, 4) +
         ". Im Startfenster holt sie der Menüpunkt Verbrauchs-Daten wiederherstellen zurück.";
}

void SafetyCopy::prepare(std::chrono::milliseconds budget) {
  const Clock::time_point deadline = Clock::now() + budget;
  if (!isDue()) return;
  // Completing a waiting journal is the opening's own work, which comes next.
  const auto names = namesIn(dataFolder_);
  if (!names || files_.exists(journalOf(dataFolder_ + yearName_))) {
    postponed_ = true;
    return;
  }
  for (const std::string& name : *names) {
    auto content = readUntil(files_, dataFolder_ + name, deadline);
    if (!content) {
      contents_.clear();
      postponed_ = true;
      return;
    }
    contents_.emplace(name, std::move(*content));
  }
}

bool SafetyCopy::sameAsNewest() const {
  const std::vector<std::string> days = copiedDays();
  if (days.empty()) return false;
  const std::string folder = folderIn(dataFolder_) + days.back() + base::kPathSeparator;
  if (const auto names = namesIn(folder); !names || names->size() != contents_.size()) return false;
  return std::all_of(contents_.begin(), contents_.end(), [&](const auto& entry) {
    const auto copy = readUntil(files_, folder + entry.first, Clock::time_point::max());
    return copy && *copy == entry.second;
  });
}

base::Result<void> SafetyCopy::makeFolders() {
  for (const std::string& folder : {folderIn(dataFolder_), todaysFolder()})
    if (!files_.folderExists(folder))
      if (auto made = files_.makeFolder(folder); !made) return made;
  return {};
}

base::Result<void> SafetyCopy::write() {
  if (auto made = makeFolders(); !made) return made;
  const auto store = [&](const std::string& name) {
    return files_.replaceFile(todaysFolder() + name, contents_.at(name));
  };
  for (const auto& entry : contents_)
    if (entry.first != yearName_)
      if (auto stored = store(entry.first); !stored) return stored;
  return store(yearName_);
}

base::Result<void> SafetyCopy::removeOldest() {
  std::vector<std::string> days = copiedDays();
  while (days.size() > kKeptCopies) {
    const std::string folder = folderIn(dataFolder_) + days.front() + base::kPathSeparator;
    auto names = namesIn(folder);
    if (!names) return base::Failure(names.error());
    // The database first: a copy without all of its side files must not look whole.
    std::reverse(names->begin(), names->end());
    for (const std::string& name : *names)
      if (auto removed = files_.remove(folder + name); !removed) return removed;
    base::ignore(files_.remove(folder), "other years may have their copy of that day in it");
    days.erase(days.begin());
  }
  return {};
}

base::Result<void> SafetyCopy::finish() {
  if (contents_.empty()) return {};
  base::Result<void> outcome;
  if (!sameAsNewest()) outcome = write();
  if (outcome) outcome = removeOldest();
  contents_.clear();
  return outcome;
}

// For years too large to be held in memory: neither file has changed since the newest copy.
bool SafetyCopy::olderThanNewest() const {
  const std::vector<std::string> days = copiedDays();
  if (days.empty()) return false;
  const std::string folder = folderIn(dataFolder_) + days.back() + base::kPathSeparator;
  const auto names = namesIn(dataFolder_);
  const auto copied = namesIn(folder);
  return names && copied && *names == *copied &&
         std::all_of(names->begin(), names->end(), [&](const std::string& name) {
           const auto copy = files_.info(folder + name);
           const auto original = files_.info(dataFolder_ + name);
           return copy && original && copy->size == original->size &&
                  copy->modified >= original->modified;
         });
}

base::Result<void> SafetyCopy::afterClosing() {
  if (!postponed_ || !isDue() || olderThanNewest()) return {};
  postponed_ = false;
  if (auto made = makeFolders(); !made) return made;
  const auto names = namesIn(dataFolder_);
  if (!names) return base::Failure(names.error());
  if (auto copied = copyFiles(files_, dataFolder_, todaysFolder(), *names); !copied) return copied;
  return removeOldest();
}

}  // namespace app
