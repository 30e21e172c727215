#pragma once

#include <string>

#include "base/File.h"

namespace yearbook {

// What a year file holds, for whoever has to choose one of several copies.
struct YearSummary {
  int electricity = 0;  // months with a reading or a consumption
  int water = 0;
  int gas = 0;
  bool hasEntries = false;  // any number that is not 0
};

// Only reads. The errors are those of opening a year.
base::Result<YearSummary> summarizeYear(base::FileSystem& files, const std::string& path);

// "12 Monate Strom, 9 Wasser", "noch keine Ablesung", "leer"
std::string describe(const YearSummary& summary);

}  // namespace yearbook
