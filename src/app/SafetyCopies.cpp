#include "app/SafetyCopies.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "app/Backup.h"
#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {
namespace {

constexpr std::size_t kKeptDays = 10;
// A year takes up less than one megabyte; one enlarged by other programs has been seen with seven.
constexpr std::uint64_t kLargestCopied = 256 << 20;
constexpr std::size_t kDayLength = 10;

std::string padded(long value) {
  return (value < 10 ? "0" : "") + std::to_string(value);
}

// Sorts as it reads.
std::string dayName(base::Date date) {
  return std::to_string(static_cast<int>(date.year())) + '-' +
         padded(static_cast<unsigned>(date.month())) + '-' +
         padded(static_cast<unsigned>(date.day()));
}

// "17.27.05": a colon cannot be in a name on Windows.
std::string timeName(std::chrono::seconds time) {
  const std::chrono::hh_mm_ss parts(time);
  return padded(parts.hours().count()) + '.' + padded(parts.minutes().count()) + '.' +
         padded(parts.seconds().count());
}

const char* label(CopyMoment moment) {
  switch (moment) {
    case CopyMoment::Opening:
      break;
    case CopyMoment::Closing:
      return "nach dem Schließen";
    case CopyMoment::Deleting:
      return "vor dem Löschen";
    case CopyMoment::Clearing:
      return "vor dem Löschen der Daten";
    case CopyMoment::DeletingReadings:
      return "vor dem Löschen der Zählerstände";
    case CopyMoment::ShiftingStart:
      return "vor dem neuen Startmonat";
    case CopyMoment::Restoring:
      return "vor dem Wiederherstellen";
    case CopyMoment::Replacing:
      return "vor dem Ersetzen";
  }
  return "";
}

std::string dayOf(const std::string& moment) {
  return moment.substr(0, kDayLength);
}

// "2026-03-01" alone, or with more behind a blank.
bool isMomentName(const std::string& name) {
  constexpr std::string_view kPattern = "dddd-dd-dd";
  if (name.size() > kDayLength && name[kDayLength] != ' ') return false;
  return name.size() >= kDayLength &&
         std::equal(kPattern.begin(), kPattern.end(), name.begin(),
                    [](char p, char c) { return p == 'd' ? c >= '0' && c <= '9' : c == p; });
}

base::Result<base::Bytes> read(base::FileSystem& files, const std::string& path) {
  auto text = files.readText(path, kLargestCopied);
  if (!text) return base::Failure(text.error());
  return base::Bytes(text->begin(), text->end());
}

}  // namespace

SafetyCopies::SafetyCopies(base::FileSystem& files, const std::string& dataFolder,
                           const base::Clock& clock)
    : files_(files),
      dataFolder_(base::withSeparator(dataFolder)),
      now_(clock.now()),
      today_(dayName(now_.date)) {}

std::string SafetyCopies::folderIn(const std::string& dataFolder) {
  return base::withSeparator(dataFolder) + "Sicherungen" + base::kPathSeparator;
}

std::vector<std::string> SafetyCopies::momentsOf(const std::string& year) const {
  const std::string folder = folderIn(dataFolder_);
  auto moments = files_.list(folder).value_or(std::vector<std::string>());
  std::erase_if(moments, [&](const std::string& name) {
    return !isMomentName(name) || !files_.exists(folder + name + base::kPathSeparator + year);
  });
  const auto age = [&](const std::string& name) { return std::tuple(dayOf(name) <= today_, name); };
  std::sort(moments.begin(), moments.end(),
            [&](const std::string& a, const std::string& b) { return age(a) < age(b); });
  return moments;
}

bool SafetyCopies::hasTodays(const std::string& year) const {
  return files_.exists(folderIn(dataFolder_) + today_ + base::kPathSeparator + year);
}

base::Result<std::string> SafetyCopies::keep(CopyMoment moment, const std::string& year,
                                             const std::vector<std::string>& also) {
  if (auto completed = completeWaitingJournal(files_, dataFolder_ + year); !completed)
    return base::Failure(completed.error());
  auto database = read(files_, dataFolder_ + year);
  if (!database) return base::Failure(database.error());
  const auto sides = listFiles(files_, dataFolder_, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  std::vector<std::string> names = sideFilesOf(year, *sides);
  names.insert(names.end(), also.begin(), also.end());
  Contents contents{{year, std::move(*database)}};
  for (const std::string& name : names) {
    if (contents.contains(name)) continue;
    auto content = read(files_, dataFolder_ + name);
    if (!content) return base::Failure(content.error());
    contents.emplace(name, std::move(*content));
  }
  return keepContents(moment, year, contents);
}

base::Result<std::string> SafetyCopies::keepOpen(CopyMoment moment, const std::string& year,
                                                 base::Bytes database) {
  const auto sides = listFiles(files_, dataFolder_, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  Contents contents{{year, std::move(database)}};
  for (const std::string& name : sideFilesOf(year, *sides)) {
    auto content = read(files_, dataFolder_ + name);
    if (!content) return base::Failure(content.error());
    contents.emplace(name, std::move(*content));
  }
  return keepContents(moment, year, contents);
}

base::Result<std::string> SafetyCopies::keepContents(CopyMoment moment, const std::string& year,
                                                     const Contents& contents) {
  const std::vector<std::string> moments = momentsOf(year);
  std::vector<std::string> older;
  for (const std::string& name : moments) {
    if (!isEqual(name, year, contents)) continue;
    if (name == moments.back() || dayOf(name) == today_) return folderIn(dataFolder_) + name;
    older.push_back(name);
  }
  const std::string made = newMoment(moment, year);
  if (auto written = write(made, year, contents); !written) return base::Failure(written.error());
  // The one that is about to be restored must not go before it is.
  if (moment == CopyMoment::Restoring) return folderIn(dataFolder_) + made;
  for (const std::string& name : older)
    if (auto removed = removeCopy(name, year); !removed) return base::Failure(removed.error());
  if (auto removed = removeOldest(year); !removed) return base::Failure(removed.error());
  return folderIn(dataFolder_) + made;
}

bool SafetyCopies::isEqual(const std::string& moment, const std::string& year,
                           const Contents& contents) const {
  const std::string folder = folderIn(dataFolder_) + moment + base::kPathSeparator;
  const auto sides = listFiles(files_, folder, kSideExtension);
  if (!sides) return false;
  for (const std::string& side : sideFilesOf(year, *sides))
    if (!contents.contains(side)) return false;
  return std::all_of(contents.begin(), contents.end(), [&](const auto& entry) {
    const auto found = files_.info(folder + entry.first);
    if (!found || found->size != entry.second.size()) return false;
    const auto copy = read(files_, folder + entry.first);
    return copy && *copy == entry.second;
  });
}

// Two of one year within a second are told apart by a number.
std::string SafetyCopies::newMoment(CopyMoment moment, const std::string& year) const {
  std::string name = today_;
  if (moment != CopyMoment::Opening)
    name.append(" ").append(timeName(now_.time)).append(" ").append(label(moment));
  const std::string inside = base::kPathSeparator + year;
  const auto taken = [&](const std::string& folder) {
    return files_.exists(folderIn(dataFolder_).append(folder).append(inside));
  };
  std::string free = name;
  for (int number = 2; taken(free); ++number)
    free = std::string(name).append(" ").append(std::to_string(number));
  return free;
}

// The database last: with it the copy counts as made.
base::Result<void> SafetyCopies::write(const std::string& moment, const std::string& year,
                                       const Contents& contents) {
  const std::string target = folderIn(dataFolder_) + moment + base::kPathSeparator;
  for (const std::string& folder : {folderIn(dataFolder_), target})
    if (!files_.folderExists(folder))
      if (auto made = files_.makeFolder(folder); !made) return made;
  const auto store = [&](const std::string& name) {
    return files_.replaceFile(target + name, contents.at(name), dataFolder_ + name);
  };
  for (const auto& entry : contents)
    if (entry.first != year)
      if (auto stored = store(entry.first); !stored) return stored;
  if (auto stored = store(year); !stored) return stored;
  if (auto named = files_.syncFolder(folderIn(dataFolder_)); !named) return named;
  if (isEqual(moment, year, contents)) return {};
  return base::fail(base::ErrorCode::IoError, "Die Kopie stimmt nicht mit dem Original überein",
                    target + year);
}

// The database first: a copy without all of its side files must not look whole.
base::Result<void> SafetyCopies::removeCopy(const std::string& moment, const std::string& year) {
  const std::string folder = folderIn(dataFolder_) + moment + base::kPathSeparator;
  const auto sides = listFiles(files_, folder, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  if (auto removed = files_.remove(folder + year); !removed) return removed;
  for (const std::string& side : sideFilesOf(year, *sides))
    if (auto removed = files_.remove(folder + side); !removed) return removed;
  base::ignore(files_.remove(folder), "there may be copies of other years in it");
  return {};
}

base::Result<void> SafetyCopies::removeOldest(const std::string& year) {
  const std::vector<std::string> moments = momentsOf(year);
  std::set<std::string> days;
  for (const std::string& moment : moments) days.insert(dayOf(moment));
  std::size_t excess = days.size() > kKeptDays ? days.size() - kKeptDays : 0;
  for (std::size_t i = 0; i < moments.size(); ++i) {
    const std::string day = dayOf(moments[i]);
    const bool first = i == 0 || dayOf(moments[i - 1]) != day;
    if (first && (excess == 0 || day == today_)) return {};
    if (first) --excess;
    if (auto removed = removeCopy(moments[i], year); !removed) return removed;
  }
  return {};
}

std::string SafetyCopies::advice(const std::string& year, const base::Error& error) const {
  switch (error.code) {
    case base::ErrorCode::NotFound:
    case base::ErrorCode::NotADatabase:
    case base::ErrorCode::Truncated:
    case base::ErrorCode::Damaged:
      break;
    default:
      return {};
  }
  const std::vector<std::string> moments = momentsOf(year);
  if (moments.empty()) return {};
  const std::string& newest = moments.back();
  return "Es gibt eine Sicherheitskopie vom " + newest.substr(8, 2) + '.' + newest.substr(5, 2) +
         '.' + newest.substr(0, 4) +
         ". Im Startfenster holt sie der Menüpunkt Verbrauchs-Daten wiederherstellen zurück.";
}

}  // namespace app
