#pragma once

#include <array>
#include <optional>
#include <string>

#include "yearbook/Bill.h"
#include "yearbook/Months.h"

namespace yearbook {

enum class Utility { Electricity, Water, Gas };
inline constexpr std::array kUtilities = {Utility::Electricity, Utility::Water, Utility::Gas};

// The values that the main window's fields show. Every window that "reads a field of the main
// window" reads it here. Empty fields are nullopt or "".
struct FieldValues {
  // Typed on the main window.
  std::optional<double> startDay, startNight, startWater, startWasteWater, startGas;
  std::optional<double> dayPrice, nightPrice;         // cent per kWh, of the last month
  std::optional<double> waterPrice, wasteWaterPrice;  // euro per m³, of the last month
  std::optional<double> gasPrice;                     // cent per kWh, of the last month
  std::optional<Money> baseFeeElectricity, baseFeeWater, baseFeeWasteWater, baseFeeGas;
  std::optional<double> vatElectricity, vatWater, vatWasteWater, vatGas;
  std::optional<double> gasFactor;
  std::optional<double> freeKwh;
  std::string startDate;  // as typed; shown only when it is a valid date
  std::array<PerMonth<std::optional<Money>>, 3> advances;  // by Utility
  std::array<PerMonth<std::string>, 3> remarks;            // by Utility

  // Modes.
  bool flatRate = false;             // "Pauschale"
  bool nightShown = true;            // night tariff displayed
  std::array<int, 3> startMonths{};  // 1 to 12 by Utility; 0 when the file names no month

  // Derived.
  ElectricityTotals electricity;
  WaterTotals water;
  GasTotals gas;
  std::array<Money, 3> advanceSums{};
  // Consumption of each month as shown beside it; "" where the field is empty.
  std::array<PerMonth<std::string>, 3> consumptions;

  // After the clearing of a utility its fields are shown empty until something new is typed.
  std::array<bool, 3> cleared{};
};

inline std::size_t at(Utility utility) {
  return static_cast<std::size_t>(utility);
}

}  // namespace yearbook
