#include "yearbook/Clearing.h"

namespace yearbook {
namespace {

constexpr std::array kStromMonth = {
    &strom::advance,     &strom::dayReading,     &strom::nightReading,     &strom::dayAmount,
    &strom::nightAmount, &strom::dayConsumption, &strom::nightConsumption, &strom::nightPrice,
    &strom::dayPrice,    &strom::monthAmount};
constexpr std::array kStromSettings = {&zstaende::startDay, &zstaende::startNight,
                                       &zstaende::baseFeeElectricity, &zstaende::vatElectricity};
constexpr std::array kWasserMonth = {
    &wasser::advance,          &wasser::reading,     &wasser::wasteReading,
    &wasser::amount,           &wasser::wasteAmount, &wasser::consumption,
    &wasser::wasteConsumption, &wasser::price,       &wasser::wastePrice};
constexpr std::array kWasserSettings = {&zstaende::startWater, &zstaende::baseFeeWater,
                                        &zstaende::vatWater};
constexpr std::array kGasMonth = {&gas::advance, &gas::reading, &gas::amount, &gas::consumption,
                                  &gas::price};
constexpr std::array kGasSettings = {&zstaende::startGas, &zstaende::baseFeeGas,
                                     &zstaende::gasFactor, &zstaende::vatGas};

const Clearing kStromClearing{kStromMonth, kStromSettings};
const Clearing kWasserClearing{kWasserMonth, kWasserSettings};
const Clearing kGasClearing{kGasMonth, kGasSettings};

}  // namespace

const Clearing& clearingOf(Utility utility) {
  switch (utility) {
    case Utility::Water:
      return kWasserClearing;
    case Utility::Gas:
      return kGasClearing;
    case Utility::Electricity:
      break;
  }
  return kStromClearing;
}

void emptyFields(FieldValues& values, Utility utility) {
  switch (utility) {
    case Utility::Electricity:
      values.startDay = values.startNight = values.dayPrice = values.nightPrice = std::nullopt;
      values.vatElectricity = std::nullopt;
      values.baseFeeElectricity = std::nullopt;
      break;
    case Utility::Water:
      values.startWater = values.startWasteWater = std::nullopt;
      values.waterPrice = values.wasteWaterPrice = std::nullopt;
      values.vatWater = values.vatWasteWater = std::nullopt;
      values.baseFeeWater = values.baseFeeWasteWater = std::nullopt;
      break;
    case Utility::Gas:
      values.startGas = values.gasPrice = values.gasFactor = values.vatGas = std::nullopt;
      values.baseFeeGas = std::nullopt;
      break;
  }
  values.advances[at(utility)].fill(std::nullopt);
  values.consumptions[at(utility)].fill({});
  values.cleared[at(utility)] = true;
}

}  // namespace yearbook
