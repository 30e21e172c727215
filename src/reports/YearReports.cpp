#include "reports/YearReports.h"

#include "base/GermanNumber.h"
#include "base/Paths.h"

namespace reports {
namespace {

using yearbook::Field;
using yearbook::FieldValues;
using yearbook::RecordSource;
using yearbook::Utility;
namespace strom = yearbook::strom;
namespace wasser = yearbook::wasser;
namespace gas = yearbook::gas;

EnteredNumber entered(std::optional<double> value) {
  return {value ? base::formatShort(*value) : std::string(), value};
}

std::array<MonthAmount, 12> monthAmounts(const RecordSource& rows, const Field& month,
                                         const Field& amount) {
  std::array<MonthAmount, 12> months;
  for (int i = 0; i < yearbook::kMonths; ++i)
    months[static_cast<std::size_t>(i)] = {rows.text(i, month), rows.money(i, amount)};
  return months;
}

int monthsWith(const RecordSource& rows, std::initializer_list<const Field*> fields) {
  int count = 0;
  for (int i = 0; i < yearbook::kMonths; ++i)
    for (const Field* field : fields) {
      if (rows.number(i, *field).value_or(0) == 0) continue;
      ++count;
      break;
    }
  return count;
}

// The fields of a utility whose entries were cleared are empty.
std::optional<base::Money> shown(const FieldValues& values, Utility utility, base::Money amount) {
  if (values.cleared[yearbook::at(utility)]) return std::nullopt;
  return amount;
}

struct MeterFields {
  const Field& month;
  const Field& consumption;
  const Field& price;
  const Field& amount;
};

DetailMeter detailMeter(const RecordSource& rows, const MeterFields& fields,
                        std::optional<double> vat, std::optional<base::Money> baseFee) {
  DetailMeter meter;
  for (int i = 0; i < yearbook::kMonths; ++i)
    meter.months[static_cast<std::size_t>(i)] = {
        rows.text(i, fields.month), rows.number(i, fields.consumption),
        rows.number(i, fields.price), rows.money(i, fields.amount)};
  meter.vatPercent = vat;
  meter.baseFee = baseFee;
  return meter;
}

}  // namespace

OverviewInput overviewInput(const yearbook::YearSession& year) {
  const FieldValues& values = year.values();
  OverviewInput input;
  input.yearFileName = base::fileName(year.path());
  input.currentYear = static_cast<int>(year.openedOn().year());
  input.electricity = monthAmounts(year.adoStrom, strom::month, strom::monthAmount);
  input.water = monthAmounts(year.adoWasser, wasser::month, wasser::monthAmount);
  input.gas = monthAmounts(year.adoGas, gas::month, gas::amount);

  input.dayAmount = shown(values, Utility::Electricity, values.electricity.day.amount);
  input.nightAmount = shown(values, Utility::Electricity, values.electricity.night.amount);
  input.waterAmount = shown(values, Utility::Water, values.water.water.amount);
  input.wasteWaterAmount = shown(values, Utility::Water, values.water.wasteWater.amount);
  input.gasAmount = shown(values, Utility::Gas, values.gas.gas.amount);

  // The base fees come from the settings row, not from the fields.
  const RecordSource& settings = year.adoZStaende;
  input.baseFeeElectricity = settings.money(0, yearbook::zstaende::baseFeeElectricity);
  input.baseFeeWater = settings.money(0, yearbook::zstaende::baseFeeWater);
  input.baseFeeWasteWater = settings.money(0, yearbook::zstaende::baseFeeWasteWater);
  input.baseFeeGas = settings.money(0, yearbook::zstaende::baseFeeGas);

  input.vatElectricity = entered(values.vatElectricity);
  input.vatWater = entered(values.vatWater);
  input.vatWasteWater = entered(values.vatWasteWater);
  input.vatGas = entered(values.vatGas);
  const auto advance = [&](Utility utility) {
    return shown(values, utility, values.advanceSums[yearbook::at(utility)]);
  };
  input.advanceElectricity = advance(Utility::Electricity);
  input.advanceWater = advance(Utility::Water);
  input.advanceGas = advance(Utility::Gas);

  input.flatRate = values.flatRate;
  input.freeKwh = entered(values.freeKwh);
  input.dayPrice = values.dayPrice;

  input.monthsReadElectricity =
      monthsWith(year.adoStrom, {&strom::dayReading, &strom::nightReading, &strom::dayConsumption});
  input.monthsReadWater =
      monthsWith(year.adoWasser, {&wasser::reading, &wasser::wasteReading, &wasser::consumption});
  input.monthsReadGas = monthsWith(year.adoGas, {&gas::reading, &gas::consumption});
  return input;
}

DetailInput detailInput(const yearbook::YearSession& year, base::Date today) {
  const FieldValues& values = year.values();
  DetailInput input;
  input.meter(Meter::Day) = detailMeter(
      year.adoStrom, {strom::month, strom::dayConsumption, strom::dayPrice, strom::dayAmount},
      values.vatElectricity, values.baseFeeElectricity);
  input.meter(Meter::Night) = detailMeter(
      year.adoStrom, {strom::month, strom::nightConsumption, strom::nightPrice, strom::nightAmount},
      values.vatElectricity, std::nullopt);
  input.meter(Meter::Water) = detailMeter(
      year.adoWasser, {wasser::month, wasser::consumption, wasser::price, wasser::amount},
      values.vatWater, values.baseFeeWater);
  input.meter(Meter::WasteWater) = detailMeter(
      year.adoWasser,
      {wasser::month, wasser::wasteConsumption, wasser::wastePrice, wasser::wasteAmount},
      values.vatWasteWater, values.baseFeeWasteWater);
  input.meter(Meter::Gas) =
      detailMeter(year.adoGas, {gas::month, gas::consumption, gas::price, gas::amount},
                  values.vatGas, values.baseFeeGas);
  input.flatRate = values.flatRate;
  input.freeKwh = values.freeKwh;
  input.dayPrice = values.dayPrice;
  input.today = today;
  return input;
}

}  // namespace reports
