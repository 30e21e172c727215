#pragma once

#include "reports/DetailTable.h"
#include "reports/OverviewBuilder.h"

// The two sample years and a fresh one as the main window would hand them over, worked out from
// their readings and prices.
namespace sample {

reports::OverviewInput overview2024();
reports::OverviewInput overview2025();
reports::OverviewInput overviewFresh();
// 2025 with 1.500 free kWh, so that the flat-rate block shows.
reports::OverviewInput overviewFlatRate();

reports::DetailInput detail2024();
reports::DetailInput detail2025();
reports::DetailInput detailFresh();

}  // namespace sample
