#pragma once

#include <optional>
#include <string_view>

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

// A step is done when one meter of the house has what it asks for: which of them a household has,
// nobody else knows.
PerFirstStep<bool> firstStepsDone(const FieldValues& values);
// The same for one utility; base fee and VAT are those of its main meter.
bool isDone(FirstStep step, const FieldValues& values, Utility utility);

}  // namespace yearbook
