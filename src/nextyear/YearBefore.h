#pragma once

#include "nextyear/CarryOver.h"

namespace nextyear {

// The path of the year in the same folder that ends where this one begins, as the names tell:
// that with the year before in its name, of several the one that is named alike otherwise. For a
// name without a year the latest of the others, or the only one.
std::optional<std::string> yearBefore(const YearSession& year);
// The same by names alone. names are those of the folder's years.
std::optional<std::string> nameBefore(const std::string& name,
                                      const std::vector<std::string>& names);

// Opens the year for reading and looks at it.
base::Result<Plan> planNextYear(base::FileSystem& files, const std::string& path,
                                const base::Clock& clock);

}  // namespace nextyear
