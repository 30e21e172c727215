#pragma once

#include "reports/DetailTable.h"
#include "reports/OverviewBuilder.h"
#include "yearbook/YearSession.h"

namespace reports {

// What the open year hands to the two tables: its month rows, its settings row and the totals that
// the main window shows.
OverviewInput overviewInput(const yearbook::YearSession& year);
DetailInput detailInput(const yearbook::YearSession& year, base::Date today);

}  // namespace reports
