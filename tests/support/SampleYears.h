#pragma once

#include "reports/YearReport.h"
#include "support/MemoryFileSystem.h"

// The two sample years and a fresh one as their tables show them, typed through the program's own
// rules.
namespace sample {

// Puts the empty year and the two sample years into "/daten/" and opens one of them.
std::unique_ptr<yearbook::YearSession> openYear(support::MemoryFileSystem& disk,
                                                const std::string& name);

reports::OverviewInput overview2024();
reports::OverviewInput overview2025();
reports::OverviewInput overviewFresh();
// 2025 with 1.500 free kWh, so that the flat-rate block shows.
reports::OverviewInput overviewFlatRate();

reports::DetailInput detail2024();
reports::DetailInput detail2025();
reports::DetailInput detailFresh();

}  // namespace sample
