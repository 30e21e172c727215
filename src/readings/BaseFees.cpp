#include "readings/BaseFees.h"

#include "base/CsvRecord.h"
#include "base/Paths.h"

namespace readings {

namespace {

// Behind the name of the year.
constexpr yearbook::PerMeter<const char*> kSuffixes = {"_GrdGebStrMon.dat", "", "_GrdGebWMon.dat",
                                                       "_GrdGebAWMon.dat", "_GrdGebGMon.dat"};

}  // namespace

using base::Result;

std::string baseFeePath(const YearSession& session, Meter meter) {
  return base::baseName(session.path()) + kSuffixes[meter];
}

MonthlyFees readBaseFees(base::FileSystem& files, const std::string& path) {
  const auto bytes = files.readText(path);
  if (!bytes) return {};
  const base::RecordReader record(*bytes);
  MonthlyFees fees{};
  for (int k = 0; k < yearbook::kMonths; ++k)
    fees[k] = record.number(static_cast<std::size_t>(k)).value_or(0);
  return fees;
}

std::string baseFeeLine(const MonthlyFees& fees) {
  base::RecordWriter record;
  for (const double fee : fees) record.number(fee > 0 ? fee : 0.0);
  return record.line();
}

std::optional<base::Money> yearFee(const MonthlyFees& fees) {
  double sum = 0;
  for (const double fee : fees)
    if (fee > 0) sum += fee;
  return base::Money::tryRoundHalfEven(sum);
}

Result<void> storeYearFee(YearSession& session, Meter meter, const MonthlyFees& fees) {
  const auto sum = yearFee(fees);
  if (!sum)
    return base::fail(base::ErrorCode::InvalidValue, "die Summe der Grundgebühren ist zu groß");
  return session.storeBaseFee(meter, sum, {{baseFeePath(session, meter), baseFeeLine(fees)}});
}

}  // namespace readings
