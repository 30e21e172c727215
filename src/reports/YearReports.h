#pragma once

#include "reports/DetailTable.h"
#include "reports/OverviewBuilder.h"
#include "yearbook/YearSession.h"

namespace reports {

// What the tables are made of, taken from the open year as it stands now.
OverviewInput overviewInput(const yearbook::YearSession& year);
DetailInput detailInput(const yearbook::YearSession& year, base::Date today);

}  // namespace reports
