#pragma once

#include <string>
#include <vector>

#include "reports/OverviewBuilder.h"

namespace reports {

// One sentence per utility (electricity, water, gas) on how the year stands: what is to be paid or
// comes back, and the monthly payment that would have balanced it, taken over the months that have
// readings. "Strom: Nachzahlung 25,99 €; passender Abschlag wäre 138,17 € im Monat."
std::vector<std::string> plainSummary(const OverviewInput& input);

}  // namespace reports
