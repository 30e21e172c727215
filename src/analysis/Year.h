#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/GermanDate.h"
#include "yearbook/FieldValues.h"

namespace yearbook {
class YearSession;
}

// What a household's years say together. Years are only read, never locked for writing, never
// changed.
namespace analysis {

using base::Money;
using yearbook::kMeters;
using yearbook::kMonths;
using yearbook::Meter;
using yearbook::PerMeter;
using yearbook::PerMonth;
using yearbook::PerUtility;
using yearbook::Utility;

// Where the beginning of a year was found; a later one counts when those before say nothing.
enum class StartSource { StartDate, FileName, FileDate };

// One year as it is stored. Months go by position; position 0 is the utility's start month.
struct Year {
  std::string path;
  std::string name;  // of the file, without ".kwd"
  base::Date start;  // first day; the month is electricity's start month, the day 1, where the
                     // source is a name or the file's date
  StartSource source = StartSource::FileDate;
  yearbook::FieldValues values;
  PerMeter<PerMonth<yearbook::MeterRow>> rows;
  PerMeter<PerMonth<std::optional<double>>> prices;
  // Months up to and with the last one that has a reading or a consumption.
  PerMeter<int> months{};

  int startMonth(Meter meter) const;  // 1 to 12
  int calendarMonth(Meter meter, int position) const;
  // The first of that month; positions behind December lie in the next year.
  std::chrono::year_month monthAt(Meter meter, int position) const;
  double consumption(Meter meter, int position) const;
  bool isEmpty() const;  // no meter has been read
  bool isComplete(Meter meter) const { return months[meter] == kMonths; }
  // "2025", or "2024/25" where the year begins in another month than January.
  std::string label() const;
};

// The first run of exactly four digits that can be a year, 1900 to 2099.
std::optional<int> yearInName(std::string_view name);

// A year from its rows and the values that follow from them. modified is the file's date.
Year yearOf(const std::string& path, const yearbook::YearRows& rows, yearbook::FieldValues values,
            std::chrono::system_clock::time_point modified);
// The open year as its window shows it.
Year yearOf(const yearbook::YearSession& session);
base::Result<Year> readYear(base::FileSystem& files, const std::string& path, bool flatRate);

struct DamagedYear {
  std::string file;    // without folder
  std::string reason;  // one sentence
};

// The years of a folder. One that cannot be read is named and the others follow.
struct YearFolder {
  std::vector<Year> years;         // by their beginning, the earliest first; of equal ones by
                                   // name
  std::vector<std::string> empty;  // files without any reading
  std::vector<DamagedYear> damaged;

  // The latest one that begins about a year before that one; nullptr if there is none.
  const Year* yearBefore(const Year& year) const;
};

// open is read from its session, for its file is locked. The error is that of listing the folder.
base::Result<YearFolder> readFolder(base::FileSystem& files, const std::string& folder,
                                    const yearbook::YearSession* open = nullptr);

}  // namespace analysis
