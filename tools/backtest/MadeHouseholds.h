#pragma once

#include <cstdint>
#include <vector>

#include "analysis/Outlook.h"

// Households that never were, with weather, to try a forecast on years whose end is known.
//
// Heating: gas for hot water, even over the days, and for heating by degree days; every winter is
// colder or milder as a whole (standard deviation 12 %), every month by itself (15 %). Electricity
// follows the load profile, more or less strongly, by a household's habit. Water is used every day,
// by some in the garden in summer. Every level drifts from year to year (3 %), every month deviates
// (5 to 9 %), in July or August many are away. Once in the six years one habit changes for good: a
// meter then runs 15 to 35 % lower or 20 to 50 % higher, from any month on.
namespace made {

inline constexpr int kYears = 6;

struct Household {
  yearbook::PerMeter<std::vector<analysis::Course>> courses;  // kYears each, from January 2019
};

// The same number gives the same households on every machine.
std::vector<Household> makeHouseholds(int count, std::uint32_t seed);

}  // namespace made
