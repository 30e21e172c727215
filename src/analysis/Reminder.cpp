#include "analysis/Reminder.h"

#include <algorithm>

#include "base/DateText.h"
#include "base/Paths.h"
#include "yearbook/FlatRate.h"
#include "yearbook/UnreadMonths.h"

namespace analysis {
namespace {

struct Ending {
  base::Date date;
  std::string what;
};

// Those that are due, the earliest first.
std::vector<Ending> endings(const std::vector<Offer>& offers, base::Date today) {
  constexpr int kDaysBefore = 61;
  constexpr int kDaysAfter = 31;
  std::vector<Ending> due;
  const auto add = [&](const std::string& typed, const std::string& what) {
    const auto date = base::parseDate(typed);
    if (!date) return;
    const int left = base::daysBetween(today, *date);
    if (left <= kDaysBefore && left >= -kDaysAfter) due.push_back({*date, what});
  };
  for (const Offer& offer : offers) {
    const std::string name = offer.name + " (" + std::string(nameOf(offer.energy)) + ")";
    add(offer.contractEnd, "Der Vertrag " + name);
    add(offer.guaranteedUntil, "Die Preisgarantie von " + name);
  }
  std::stable_sort(due.begin(), due.end(),
                   [](const Ending& a, const Ending& b) { return a.date < b.date; });
  return due;
}

// Names of years of which something may be due: this one, the one before and the next, and those
// whose name does not say. The latest changed are enough, so that a long list costs no more than a
// short one.
std::vector<std::string> presentNames(base::FileSystem& files, const std::string& folder,
                                      base::Date today) {
  constexpr std::size_t kMost = 40;
  std::vector<std::pair<std::chrono::system_clock::time_point, std::string>> found;
  for (const std::string& name : files.list(folder).value_or(std::vector<std::string>())) {
    if (!base::hasExtension(name, ".kwd")) continue;
    const auto number = yearInName(name);
    if (number && std::abs(*number - static_cast<int>(today.year())) > 1) continue;
    if (const auto info = files.info(folder + name)) found.emplace_back(info->modified, name);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  if (found.size() > kMost) found.resize(kMost);
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [modified, name] : found) names.push_back(std::move(name));
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<Year> presentYears(base::FileSystem& files, const std::string& folder,
                               base::Date today) {
  std::vector<Year> years;
  const bool flatRate = yearbook::readFlatRate(files, folder);
  // One that cannot be read is told about when it is opened.
  for (const std::string& name : presentNames(files, folder, today))
    if (auto year = readYear(files, folder + name, flatRate)) years.push_back(std::move(*year));
  std::stable_sort(years.begin(), years.end(),
                   [](const Year& a, const Year& b) { return a.start < b.start; });
  return years;
}

}  // namespace

std::string endingContract(const std::vector<Offer>& offers, base::Date today) {
  const auto due = endings(offers, today);
  if (due.empty()) return {};
  return due.front().what + (due.front().date < today ? " endete am " : " endet am ") +
         base::formatDate(due.front().date) + ".";
}

std::string endingContract(base::FileSystem& files, const std::string& folder, base::Date today) {
  const auto file = readOffers(files, folder);
  return file ? endingContract(file->offers, today) : std::string();
}

std::optional<Reminder> reminderOf(base::FileSystem& files, const std::string& folder,
                                   base::Date today) {
  const std::vector<Year> years = presentYears(files, folder, today);
  for (const Year& year : years) {
    const std::string unread = yearbook::unreadMonths(year.rows, year.values, year.path, today);
    if (!unread.empty())
      return Reminder{Reminder::Way::RecordMonth, year.name + ": " + unread,
                      std::string(base::fileName(year.path))};
  }
  const std::string ending = endingContract(files, folder, today);
  if (ending.empty()) return std::nullopt;
  const auto filled =
      std::find_if(years.rbegin(), years.rend(), [](const Year& year) { return !year.isEmpty(); });
  return Reminder{
      Reminder::Way::CompareTariffs, ending,
      filled == years.rend() ? std::string() : std::string(base::fileName(filled->path))};
}

}  // namespace analysis
