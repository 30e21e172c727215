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

struct MeterTexts {
  std::string endReading, consumption, amount, vat, gross;
};

struct ElectricityTexts {
  MeterTexts day, night;
  std::string gross;
  // What the total is made of; names the night tariff's share while the tariff is hidden.
  std::string grossNote;
};
// The same for the other utilities.
std::string_view grossNote();
ElectricityTexts electricityTexts(const FieldValues& values);

struct WaterTexts {
  MeterTexts water, wasteWater;
  std::string gross;
  std::string baseFeeWaterVat, baseFeeWasteWaterVat;
};
WaterTexts waterTexts(const FieldValues& values);

struct GasTexts {
  MeterTexts gas;
  std::string kwh;
};
GasTexts gasTexts(const FieldValues& values);

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
