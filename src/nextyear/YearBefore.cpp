#include "nextyear/YearBefore.h"

#include "base/Paths.h"
#include "yearbook/CalendarYear.h"

namespace nextyear {

using yearbook::calendarYearOf;

std::optional<std::string> nameBefore(const std::string& name,
                                      const std::vector<std::string>& names) {
  const auto year = calendarYearOf({}, name);
  std::optional<std::string> found;
  int others = 0;
  for (const std::string& other : names) {
    if (base::equalsIgnoreCase(other, name)) continue;
    ++others;
    const auto itsYear = calendarYearOf({}, other);
    if (!itsYear || (year && *itsYear != *year - 1)) continue;
    std::string renamed = other;
    if (year) {
      renamed.replace(renamed.find(std::to_string(*itsYear)), 4, std::to_string(*year));
      if (base::equalsIgnoreCase(renamed, name)) return other;
    }
    if (!found || *itsYear > *calendarYearOf({}, *found)) found = other;
  }
  if (!found && !year && others == 1)
    for (const std::string& other : names)
      if (!base::equalsIgnoreCase(other, name)) return other;
  return found;
}

std::optional<std::string> yearBefore(const YearSession& year) {
  const std::string folder(base::folderOf(year.path()));
  const auto names = year.files().list(folder);
  if (!names) return std::nullopt;
  std::vector<std::string> years;
  for (const std::string& name : *names)
    if (base::hasExtension(name, ".kwd")) years.push_back(name);
  const auto found = nameBefore(std::string(base::fileName(year.path())), years);
  return found ? std::optional(folder + *found) : std::nullopt;
}

base::Result<Plan> planNextYear(base::FileSystem& files, const std::string& path,
                                const base::Clock& clock) {
  jet::OpenOptions options;
  options.readOnly = true;
  const auto last =
      YearSession::open(files, path, std::string(base::folderOf(path)), clock, options);
  if (!last) return base::Failure(last.error());
  return planNextYear(**last);
}

}  // namespace nextyear
