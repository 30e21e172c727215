#pragma once

#include <array>
#include <span>
#include <string_view>

#include "yearbook/Schema.h"

// The five meters of a household and what is known of each, once. Whoever needs a table, a column,
// a price rule or a rate of a meter asks here.
namespace yearbook {

enum class Utility { Electricity, Water, Gas };
enum class Meter { Day, Night, Water, WasteWater, Gas };  // in the order in which they are shown

inline constexpr std::array kUtilities = {Utility::Electricity, Utility::Water, Utility::Gas};
inline constexpr std::array kMeters = {Meter::Day, Meter::Night, Meter::Water, Meter::WasteWater,
                                       Meter::Gas};

// Twelve values of a year by the position of their month, 0 to 11; five by meter; three by utility.
template <class T, class Index, std::size_t Count>
struct IndexedArray : std::array<T, Count> {
  constexpr T& operator[](Index index) { return values()[static_cast<std::size_t>(index)]; }
  constexpr const T& operator[](Index index) const {
    return values()[static_cast<std::size_t>(index)];
  }

 private:
  constexpr std::array<T, Count>& values() { return *this; }
  constexpr const std::array<T, Count>& values() const { return *this; }
};
template <class T>
using PerMonth = IndexedArray<T, int, kMonths>;
template <class T>
using PerMeter = IndexedArray<T, Meter, kMeters.size()>;
template <class T>
using PerUtility = IndexedArray<T, Utility, kUtilities.size()>;

// How a month's amount follows from its consumption and its unit price.
enum class PriceRule {
  CentPerUnit,  // electricity
  EuroPerUnit,  // water, waste water: not divided by 100
  CentPerKwh,   // gas, read in m³: times the factor
};

struct MeterFacts {
  std::string_view name;  // as charts and tables call it
  Utility utility;
  // Columns of the utility's table, one row a month.
  const Field* reading;
  const Field* consumption;
  const Field* amount;
  const Field* price;
  // Columns of ZStaende. The night tariff is taxed as the day tariff and has no base fee.
  const Field* startReading;
  const Field* vat;
  const Field* baseFee;
  const Field* chartCopy;  // column of VerbrMonat
  PriceRule rule;
  std::string_view unit;  // of reading and consumption
};

inline constexpr PerMeter<MeterFacts> kMeterFacts = {{{
    {"Strom", Utility::Electricity, &strom::dayReading, &strom::dayConsumption, &strom::dayAmount,
     &strom::dayPrice, &zstaende::startDay, &zstaende::vatElectricity,
     &zstaende::baseFeeElectricity, &verbrMonat::day, PriceRule::CentPerUnit, "kWh"},
    {"Nachtstrom", Utility::Electricity, &strom::nightReading, &strom::nightConsumption,
     &strom::nightAmount, &strom::nightPrice, &zstaende::startNight, &zstaende::vatElectricity,
     nullptr, &verbrMonat::night, PriceRule::CentPerUnit, "kWh"},
    {"Wasser", Utility::Water, &wasser::reading, &wasser::consumption, &wasser::amount,
     &wasser::price, &zstaende::startWater, &zstaende::vatWater, &zstaende::baseFeeWater,
     &verbrMonat::water, PriceRule::EuroPerUnit, "m³"},
    {"Abwasser", Utility::Water, &wasser::wasteReading, &wasser::wasteConsumption,
     &wasser::wasteAmount, &wasser::wastePrice, &zstaende::startWasteWater,
     &zstaende::vatWasteWater, &zstaende::baseFeeWasteWater, &verbrMonat::wasteWater,
     PriceRule::EuroPerUnit, "m³"},
    {"Gas", Utility::Gas, &gas::reading, &gas::consumption, &gas::amount, &gas::price,
     &zstaende::startGas, &zstaende::vatGas, &zstaende::baseFeeGas, &verbrMonat::gas,
     PriceRule::CentPerKwh, "m³"},
}}};

struct UtilityFacts {
  std::string_view name;
  const Table* table;
  const Field* month;
  const Field* advance;
  const Field* remark;
  const Field* monthAmount;  // of both meters; gas has but one, and its amount is that
  Meter mainMeter;           // its consumption stands beside the months
};

inline constexpr PerUtility<UtilityFacts> kUtilityFacts = {{{
    {"Strom", &kStrom, &strom::month, &strom::advance, &strom::remark, &strom::monthAmount,
     Meter::Day},
    {"Wasser", &kWasser, &wasser::month, &wasser::advance, &wasser::remark, &wasser::monthAmount,
     Meter::Water},
    {"Gas", &kGas, &gas::month, &gas::advance, &gas::remark, &gas::amount, Meter::Gas},
}}};

constexpr const MeterFacts& factsOf(Meter meter) {
  return kMeterFacts[meter];
}
constexpr const UtilityFacts& factsOf(Utility utility) {
  return kUtilityFacts[utility];
}
constexpr Utility utilityOf(Meter meter) {
  return factsOf(meter).utility;
}
// The one or two meters of a utility.
constexpr std::span<const Meter> metersOf(Utility utility) {
  const std::span<const Meter> all = kMeters;
  return utility == Utility::Electricity ? all.subspan(0, 2)
         : utility == Utility::Water     ? all.subspan(2, 2)
                                         : all.subspan(4, 1);
}
// Whether the utility's month amount is a column of its own, the sum over its meters.
constexpr bool hasMonthSum(Utility utility) {
  return utility != Utility::Gas;
}

}  // namespace yearbook
