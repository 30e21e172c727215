#include "reports/YearReport.h"

#include <initializer_list>

#include "base/GermanNumber.h"
#include "base/Paths.h"

namespace reports {
namespace {

using base::Money;
using yearbook::Field;
using yearbook::FieldValues;
using yearbook::RecordSource;
using yearbook::Utility;
namespace strom = yearbook::strom;
namespace wasser = yearbook::wasser;
namespace gas = yearbook::gas;
namespace zstaende = yearbook::zstaende;

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

// Months in which one of the fields holds something above 0.
int monthsRead(const RecordSource& rows, std::initializer_list<const Field*> fields) {
  int count = 0;
  for (int i = 0; i < yearbook::kMonths; ++i) {
    bool read = false;
    for (const Field* field : fields) read = read || rows.number(i, *field).value_or(0) > 0;
    count += read ? 1 : 0;
  }
  return count;
}

// A field that clearing has emptied shows nothing until the next summary.
std::optional<Money> shown(const FieldValues& values, Utility utility, Money amount) {
  if (values.cleared[yearbook::at(utility)]) return std::nullopt;
  return amount;
}

struct MeterFields {
  const RecordSource& rows;
  const Field &month, &consumption, &unitPrice, &amount;
};

DetailMeter meterOf(const MeterFields& fields, std::optional<double> vatPercent,
                    std::optional<Money> baseFee) {
  DetailMeter meter;
  for (int i = 0; i < yearbook::kMonths; ++i)
    meter.months[static_cast<std::size_t>(i)] = {
        fields.rows.text(i, fields.month), fields.rows.number(i, fields.consumption),
        fields.rows.number(i, fields.unitPrice), fields.rows.money(i, fields.amount)};
  meter.vatPercent = vatPercent;
  meter.baseFee = baseFee;
  return meter;
}

}  // namespace

OverviewInput overviewInput(const yearbook::YearSession& year) {
  const FieldValues& values = year.values();
  OverviewInput in;
  in.yearFileName = base::fileName(year.path());
  in.currentYear = static_cast<int>(year.openedOn().year());
  in.currentMonth = static_cast<int>(static_cast<unsigned>(year.openedOn().month()));
  in.electricity = monthAmounts(year.adoStrom, strom::month, strom::monthAmount);
  in.water = monthAmounts(year.adoWasser, wasser::month, wasser::monthAmount);
  in.gas = monthAmounts(year.adoGas, gas::month, gas::amount);

  in.dayAmount = shown(values, Utility::Electricity, values.electricity.day.amount);
  in.nightAmount = shown(values, Utility::Electricity, values.electricity.night.amount);
  in.waterAmount = shown(values, Utility::Water, values.water.water.amount);
  in.wasteWaterAmount = shown(values, Utility::Water, values.water.wasteWater.amount);
  in.gasAmount = shown(values, Utility::Gas, values.gas.gas.amount);
  in.baseFeeElectricity = year.adoZStaende.money(0, zstaende::baseFeeElectricity);
  in.baseFeeWater = year.adoZStaende.money(0, zstaende::baseFeeWater);
  in.baseFeeWasteWater = year.adoZStaende.money(0, zstaende::baseFeeWasteWater);
  in.baseFeeGas = year.adoZStaende.money(0, zstaende::baseFeeGas);
  in.vatElectricity = entered(values.vatElectricity);
  in.vatWater = entered(values.vatWater);
  in.vatWasteWater = entered(values.vatWasteWater);
  in.vatGas = entered(values.vatGas);
  const auto advance = [&](Utility utility) {
    return shown(values, utility, values.advanceSums[yearbook::at(utility)]);
  };
  in.advanceElectricity = advance(Utility::Electricity);
  in.advanceWater = advance(Utility::Water);
  in.advanceGas = advance(Utility::Gas);
  in.flatRate = values.flatRate;
  in.freeKwh = entered(values.freeKwh);
  in.dayPrice = values.dayPrice;

  in.monthsReadElectricity = monthsRead(
      year.adoStrom,
      {&strom::dayReading, &strom::nightReading, &strom::dayConsumption, &strom::nightConsumption});
  in.monthsReadWater = monthsRead(
      year.adoWasser,
      {&wasser::reading, &wasser::wasteReading, &wasser::consumption, &wasser::wasteConsumption});
  in.monthsReadGas = monthsRead(year.adoGas, {&gas::reading, &gas::consumption});
  return in;
}

DetailInput detailInput(const yearbook::YearSession& year, base::Date today) {
  const FieldValues& values = year.values();
  DetailInput in;
  in.meter(Meter::Day) = meterOf(
      {year.adoStrom, strom::month, strom::dayConsumption, strom::dayPrice, strom::dayAmount},
      values.vatElectricity, values.baseFeeElectricity);
  in.meter(Meter::Night) = meterOf(
      {year.adoStrom, strom::month, strom::nightConsumption, strom::nightPrice, strom::nightAmount},
      values.vatElectricity, std::nullopt);
  in.meter(Meter::Water) =
      meterOf({year.adoWasser, wasser::month, wasser::consumption, wasser::price, wasser::amount},
              values.vatWater, values.baseFeeWater);
  in.meter(Meter::WasteWater) = meterOf({year.adoWasser, wasser::month, wasser::wasteConsumption,
                                         wasser::wastePrice, wasser::wasteAmount},
                                        values.vatWasteWater, values.baseFeeWasteWater);
  in.meter(Meter::Gas) =
      meterOf({year.adoGas, gas::month, gas::consumption, gas::price, gas::amount}, values.vatGas,
              values.baseFeeGas);
  in.flatRate = values.flatRate;
  in.freeKwh = values.freeKwh;
  in.dayPrice = values.dayPrice;
  in.today = today;
  in.nightShown = values.nightShown;
  return in;
}

}  // namespace reports
