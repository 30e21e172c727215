#pragma once

#include <string>
#include <string_view>

#include "yearbook/FieldValues.h"

// What the derived fields of the main window read. While a utility is cleared they are empty.
namespace yearbook {

// "41.236": whole where it is whole, otherwise up to three decimals.
std::string readingText(double value);
// A price or rate as it stands in its field, "" when empty.
std::string priceText(std::optional<double> value);

// How the months' prices differ, the latest first: "ab Mai 34,90, davor 32,50". "" when they do
// not.
std::string priceStepsText(const YearRows& rows, Meter meter);

// Something is charged net, of this meter or of another with the same rate, and nobody has said
// what VAT is on it; 0 is an answer. Waste water is not taxed, there its absence is none.
bool vatMissing(const FieldValues& values, Meter meter);

// The lines of a meter's frame.
struct MeterLines {
  std::string endReading, consumption, amount, vat, gross;
  std::string baseFeeVat;
};
MeterLines meterLines(const FieldValues& values, Meter meter);

// The utility's total.
std::string grossText(const FieldValues& values, Utility utility);
// What the total is made of; names the night tariff's share while the tariff is hidden.
std::string grossNote(const FieldValues& values, Utility utility);
std::string gasKwhText(const FieldValues& values);

struct MonthTexts {
  MonthNames names;
  PerMonth<std::string> consumptions;
  PerMonth<double> shares{};  // of the year's highest consumption, 0 to 1
  std::string consumptionSum, advanceSum;
  int current = -1;  // position of the current month
};
MonthTexts monthTexts(const FieldValues& values, Utility utility,
                      const std::string& currentMonthName);

}  // namespace yearbook
