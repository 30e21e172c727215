#include "SampleYear.h"

#include "readings/BaseFees.h"
#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"

namespace sample {
namespace {

using base::Money;
using base::Result;
using yearbook::kMonths;
using yearbook::Meter;
using yearbook::Utility;
using yearbook::YearSession;

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

Result<void> enterMeter(YearSession& session, const Year& year, Meter meter) {
  Steps steps;
  steps.then([&] { return session.storeStartReading(meter, year.start[meter]); }).then([&] {
    return session.storeVat(meter, kVat[meter]);
  });
  for (const PriceStep& step : year.prices[meter]) {
    readings::MonthTicks ticks{};
    std::fill(ticks.begin() + step.from, ticks.end(), true);
    steps.then([&] { return readings::storePrices(session, meter, ticks, step.price); });
  }
  const readings::MeterChange& change = year.changes[meter];
  return steps
      .then([&] { return readings::takeOver(session, meter, year.readings[meter], change); })
      .result();
}

Result<void> enterFee(YearSession& session, Meter meter, double perMonth) {
  readings::MonthlyFees fees;
  fees.fill(perMonth);
  return readings::storeYearFee(session, meter, fees);
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
    y.gasFactor = 10.483;
    y.start = {41236, 22818, 318, 318, 8764};
    y.readings[Meter::Day] = {41535, 41798, 42066, 42313, 42550, 42778,
                              42997, 43211, 43451, 43712, 43996, 44309};
    y.readings[Meter::Night] = {23001, 23159, 23305, 23427, 23532, 23627,
                                23719, 23810, 23914, 24040, 24192, 24371};
    y.readings[Meter::Water] = {328, 338, 347, 358, 368, 380, 392, 403, 414, 423, 433, 443};
    y.readings[Meter::WasteWater] = y.readings[Meter::Water];
    y.readings[Meter::Gas] = {9001, 9175, 9332, 9440, 9488, 9517,
                              9541, 9562, 9612, 9716, 9895, 10114};
    y.prices[Meter::Day] = {{0, 30.40}, {6, 29.60}};
    y.prices[Meter::Night] = {{0, 25.10}, {6, 24.40}};
    y.prices[Meter::Water] = {{0, 2.10}};
    y.prices[Meter::WasteWater] = {{0, 2.86}};
    y.prices[Meter::Gas] = {{0, 8.95}, {9, 9.20}};
    y.fees = {12.90, 0, 8.50, 0, 10.80};
    y.advances = {150, 63, 130};
    return y;
  }();
  return sampleYear;
}

const Year& year2025() {
  static const Year sampleYear = [] {
    Year y{};
    y.year = 2025;
    y.startDate = "01.01.2025";
    y.gasFactor = 10.523;
    y.start = {44309, 24371, 443, 443, 10114};
    y.readings[Meter::Day] = {44600, 44855, 45115, 45354, 45585, 45808,
                              238,   436,   670,   925,   1201,  1506};
    y.readings[Meter::Night] = {24551, 24708, 24849, 24964, 25065, 25157,
                                93,    178,   277,   399,   546,   717};
    y.readings[Meter::Water] = {453, 462, 471, 481, 492, 503, 515, 524, 534, 543, 553, 562};
    y.readings[Meter::WasteWater] = y.readings[Meter::Water];
    y.readings[Meter::Gas] = {10354, 10580, 10759, 10855, 10917, 10945,
                              10969, 10989, 11033, 11141, 11318, 11522};
    y.prices[Meter::Day] = {{0, 29.60}, {3, 28.90}};
    y.prices[Meter::Night] = {{0, 24.40}, {3, 23.90}};
    y.prices[Meter::Water] = {{0, 2.25}};
    y.prices[Meter::WasteWater] = {{0, 3.05}};
    y.prices[Meter::Gas] = {{0, 9.45}, {6, 9.25}};
    y.fees = {13.50, 0, 8.90, 0, 11.20};
    y.advances = {136, 66, 142};
    // At the end of June; the new meter began at 12 kWh by day and 4 kWh by night.
    y.changes[Meter::Day] = {5, 12};
    y.changes[Meter::Night] = {5, 4};
    return y;
  }();
  return sampleYear;
}

Result<void> enter(YearSession& session, const Year& year) {
  Steps steps;
  steps.then([&] { return session.storeStartDate(year.startDate); }).then([&] {
    return session.storeGasFactor(year.gasFactor);
  });
  for (Meter meter : yearbook::kMeters) {
    steps.then([&] { return enterMeter(session, year, meter); });
    if (meter != Meter::Night)
      steps.then([&] { return enterFee(session, meter, year.fees[meter]); });
  }
  for (Utility utility : yearbook::kUtilities)
    steps.then([&] { return enterAdvances(session, utility, year.advances[utility]); });
  return steps.result();
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
