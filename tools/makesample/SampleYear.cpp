#include "SampleYear.h"

#include "readings/BaseFees.h"
#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"

namespace sample {
namespace {

using base::Money;
using base::Result;
using yearbook::kMonths;
using yearbook::PerMonth;
using yearbook::Utility;
using yearbook::YearSession;
namespace zstaende = yearbook::zstaende;

// Runs one step after the other until one fails.
class Steps {
 public:
  template <class Step>
  Steps& then(const Step& step) {
    if (done_) done_ = step();
    return *this;
  }
  Result<void> result() const { return done_; }

 private:
  Result<void> done_;
};

Result<void> enterSettings(YearSession& session, const Year& year) {
  const std::pair<const yearbook::Field*, double> settings[] = {
      {&zstaende::startDay, year.startDay},
      {&zstaende::startNight, year.startNight},
      {&zstaende::startWasteWater, year.startWasteWater},
      {&zstaende::startGas, year.startGas},
      {&zstaende::gasFactor, year.gasFactor},
      {&zstaende::vatElectricity, year.vatElectricity},
      {&zstaende::vatWater, year.vatWater},
      {&zstaende::vatWasteWater, year.vatWasteWater},
      {&zstaende::vatGas, year.vatGas}};
  Steps steps;
  for (const auto& [field, value] : settings)
    steps.then([&, field = field, value = value] { return session.storeNumber(*field, value); });
  return steps.then([&] { return session.storeStartWater(year.startWater); })
      .then([&] { return session.storeStartDate(year.startDate); })
      .result();
}

Result<void> enterPrices(YearSession& session, const readings::PriceVariant& variant,
                         const std::vector<PriceStep>& prices) {
  Steps steps;
  for (const PriceStep& step : prices) {
    readings::MonthTicks ticks{};
    std::fill(ticks.begin() + step.from, ticks.end(), true);
    steps.then([&] { return readings::storePrices(session, variant, ticks, step.price); });
  }
  return steps.result();
}

Result<void> enterReadings(YearSession& session, const readings::MeterVariant& meter,
                           const PerMonth<double>& typed, const readings::MeterChange& change) {
  return Steps()
      .then([&] { return readings::takeOver(session, meter, typed, change); })
      .then([&] {
        return readings::writeMeterChange(session.files(),
                                          readings::meterChangePath(session, meter), change);
      })
      .result();
}

Result<void> enterFee(YearSession& session, const readings::FeeVariant& fee, double perMonth) {
  readings::MonthlyFees fees;
  fees.fill(perMonth);
  return Steps()
      .then([&] { return readings::storeYearFee(session, fee, fees); })
      .then([&] {
        return readings::writeBaseFees(session.files(), readings::baseFeePath(session, fee), fees);
      })
      .result();
}

Result<void> enterAdvances(YearSession& session, Utility utility, double perMonth) {
  Steps steps;
  for (int k = 0; k < kMonths; ++k)
    steps.then([&, k] { return session.storeAdvance(utility, k, Money::roundHalfEven(perMonth)); });
  return steps.result();
}

}  // namespace

std::string Year::fileName() const {
  return "Verbrauch" + std::to_string(year) + ".kwd";
}

const Year& year2024() {
  static const Year sampleYear = [] {
    Year y{};
    y.year = 2024;
    y.startDate = "01.01.2024";
    y.startDay = 41236;
    y.startNight = 22818;
    y.startWater = y.startWasteWater = 318;
    y.startGas = 8764;
    y.gasFactor = 10.483;
    y.vatElectricity = y.vatGas = 19;
    y.vatWater = 7;
    y.day = {41535, 41798, 42066, 42313, 42550, 42778, 42997, 43211, 43451, 43712, 43996, 44309};
    y.night = {23001, 23159, 23305, 23427, 23532, 23627, 23719, 23810, 23914, 24040, 24192, 24371};
    y.water = {328, 338, 347, 358, 368, 380, 392, 403, 414, 423, 433, 443};
    y.gas = {9001, 9175, 9332, 9440, 9488, 9517, 9541, 9562, 9612, 9716, 9895, 10114};
    y.dayPrice = {{0, 30.40}, {6, 29.60}};
    y.nightPrice = {{0, 25.10}, {6, 24.40}};
    y.waterPrice = {{0, 2.10}};
    y.wasteWaterPrice = {{0, 2.86}};
    y.gasPrice = {{0, 8.95}, {9, 9.20}};
    y.feeElectricity = 12.90;
    y.feeWater = 8.50;
    y.feeGas = 10.80;
    y.advanceElectricity = 150;
    y.advanceWater = 63;
    y.advanceGas = 130;
    y.changed = readings::MeterChange::kNone;
    return y;
  }();
  return sampleYear;
}

const Year& year2025() {
  static const Year sampleYear = [] {
    Year y{};
    y.year = 2025;
    y.startDate = "01.01.2025";
    y.startDay = 44309;
    y.startNight = 24371;
    y.startWater = y.startWasteWater = 443;
    y.startGas = 10114;
    y.gasFactor = 10.523;
    y.vatElectricity = y.vatGas = 19;
    y.vatWater = 7;
    y.day = {44600, 44855, 45115, 45354, 45585, 45808, 238, 436, 670, 925, 1201, 1506};
    y.night = {24551, 24708, 24849, 24964, 25065, 25157, 93, 178, 277, 399, 546, 717};
    y.water = {453, 462, 471, 481, 492, 503, 515, 524, 534, 543, 553, 562};
    y.gas = {10354, 10580, 10759, 10855, 10917, 10945, 10969, 10989, 11033, 11141, 11318, 11522};
    y.dayPrice = {{0, 29.60}, {3, 28.90}};
    y.nightPrice = {{0, 24.40}, {3, 23.90}};
    y.waterPrice = {{0, 2.25}};
    y.wasteWaterPrice = {{0, 3.05}};
    y.gasPrice = {{0, 9.45}, {6, 9.25}};
    y.feeElectricity = 13.50;
    y.feeWater = 8.90;
    y.feeGas = 11.20;
    y.advanceElectricity = 136;
    y.advanceWater = 66;
    y.advanceGas = 142;
    // At the end of June; the new meter began at 12 kWh by day and 4 kWh by night.
    y.changed = 5;
    y.newDay = 12;
    y.newNight = 4;
    return y;
  }();
  return sampleYear;
}

Result<void> enter(YearSession& session, const Year& year) {
  return session.transact([&] {
    return Steps()
        .then([&] { return enterSettings(session, year); })
        .then([&] { return enterPrices(session, readings::kDayPrice, year.dayPrice); })
        .then([&] { return enterPrices(session, readings::kNightPrice, year.nightPrice); })
        .then([&] { return enterPrices(session, readings::kWaterPrice, year.waterPrice); })
        .then(
            [&] { return enterPrices(session, readings::kWasteWaterPrice, year.wasteWaterPrice); })
        .then([&] { return enterPrices(session, readings::kGasPrice, year.gasPrice); })
        .then([&] {
          return enterReadings(session, readings::kDayMeter, year.day, {year.changed, year.newDay});
        })
        .then([&] {
          return enterReadings(session, readings::kNightMeter, year.night,
                               {year.changed, year.newNight});
        })
        .then([&] { return enterReadings(session, readings::kWaterMeter, year.water, {}); })
        .then([&] { return enterReadings(session, readings::kWasteWaterMeter, year.water, {}); })
        .then([&] { return enterReadings(session, readings::kGasMeter, year.gas, {}); })
        .then([&] { return enterFee(session, readings::kElectricityFee, year.feeElectricity); })
        .then([&] { return enterFee(session, readings::kWaterFee, year.feeWater); })
        .then([&] { return enterFee(session, readings::kWasteWaterFee, year.feeWasteWater); })
        .then([&] { return enterFee(session, readings::kGasFee, year.feeGas); })
        .then([&] { return enterAdvances(session, Utility::Electricity, year.advanceElectricity); })
        .then([&] { return enterAdvances(session, Utility::Water, year.advanceWater); })
        .then([&] { return enterAdvances(session, Utility::Gas, year.advanceGas); })
        .result();
  });
}

Result<void> makeBoth(base::FileSystem& files, const std::string& folder,
                      base::ByteSpan emptyYear) {
  const base::SystemClock clock;
  for (const Year* year : {&year2024(), &year2025()}) {
    const std::string path = folder + year->fileName();
    if (auto made = files.replaceFile(path, emptyYear); !made) return made;
    auto session = YearSession::open(files, path, folder, clock);
    if (!session) return base::Failure(session.error());
    if (auto done = enter(**session, *year); !done) return done;
  }
  return {};
}

}  // namespace sample
