#include "yearbook/BillInput.h"

namespace yearbook {
namespace {

PerMonth<MeterMonth> meterMonths(const RecordSource& source, const Field& reading,
                                 const Field& consumption, const Field& amount) {
  PerMonth<MeterMonth> months;
  for (int i = 0; i < kMonths; ++i)
    months[static_cast<std::size_t>(i)] = {source.number(i, reading), source.number(i, consumption),
                                           source.money(i, amount)};
  return months;
}

}  // namespace

ElectricityInput electricityInput(const RecordSource& rows, const FieldValues& values) {
  ElectricityInput input;
  input.day = meterMonths(rows, strom::dayReading, strom::dayConsumption, strom::dayAmount);
  input.night = meterMonths(rows, strom::nightReading, strom::nightConsumption, strom::nightAmount);
  input.startDay = values.startDay;
  input.startNight = values.startNight;
  input.vat = values.vatElectricity;
  input.dayPrice = values.dayPrice;
  input.freeKwh = values.freeKwh;
  input.flatRate = values.flatRate;
  return input;
}

WaterInput waterInput(const RecordSource& rows, const FieldValues& values) {
  WaterInput input;
  input.water = meterMonths(rows, wasser::reading, wasser::consumption, wasser::amount);
  input.wasteWater =
      meterMonths(rows, wasser::wasteReading, wasser::wasteConsumption, wasser::wasteAmount);
  input.startWater = values.startWater;
  input.startWasteWater = values.startWasteWater;
  input.vatWater = values.vatWater;
  input.vatWasteWater = values.vatWasteWater;
  input.baseFeeWater = values.baseFeeWater;
  input.baseFeeWasteWater = values.baseFeeWasteWater;
  return input;
}

GasInput gasInput(const RecordSource& rows, const FieldValues& values) {
  GasInput input;
  input.gas = meterMonths(rows, gas::reading, gas::consumption, gas::amount);
  input.start = values.startGas;
  input.factor = values.gasFactor;
  input.vat = values.vatGas;
  return input;
}

}  // namespace yearbook
