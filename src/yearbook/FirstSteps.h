#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "yearbook/FieldValues.h"

namespace yearbook {

// What makes a bill out of an empty year, in the order in which it is best entered.
enum class FirstStep { StartReadings, Prices, FeesAndVat, Advances, FirstReading };
inline constexpr std::array kFirstSteps = {FirstStep::StartReadings, FirstStep::Prices,
                                           FirstStep::FeesAndVat, FirstStep::Advances,
                                           FirstStep::FirstReading};
template <class T>
using PerFirstStep = IndexedArray<T, FirstStep, kFirstSteps.size()>;

// "Anfangsstände", and what is to be done in a sentence.
std::string_view nameOf(FirstStep step);
std::string_view adviceFor(FirstStep step);
// With those that are left, once the step has been begun: "... Noch ohne: Wasser, Gas."
std::string adviceFor(FirstStep step, const FieldValues& values);

// Those with a start reading that have no price yet; not a night meter that is hidden.
std::vector<Meter> unpricedMeters(const FieldValues& values, Utility utility);
// Those with a price of which no month is read; not a night meter that is hidden.
std::vector<Meter> unreadMeters(const FieldValues& values, Utility utility);
// By any of the utility's meters; base fee and VAT are those of one meter, every meter with a start
// reading has a price, and every one with a price is read.
bool isDone(FirstStep step, const FieldValues& values, Utility utility);
// The utilities for which a step is left. Which of them a household has, it says by what it enters:
// one for which there is anything; once a month of it is read, nothing but the readings is asked.
// Start readings are asked of all until the first price is there.
std::vector<Utility> lackingIn(FirstStep step, const FieldValues& values);
// Done by one utility and left for none.
PerFirstStep<bool> firstStepsDone(const FieldValues& values);
// By any meter, whatever is left.
bool isBegun(FirstStep step, const FieldValues& values);
// There is a start reading.
bool hasBegun(const FieldValues& values);

}  // namespace yearbook
