#include "readings/BaseFees.h"

#include "base/CsvRecord.h"
#include "base/Paths.h"
#include "readings/SideFile.h"

namespace readings {

using base::Result;

std::string baseFeePath(const YearSession& session, const FeeVariant& fee) {
  return base::baseName(session.path()) + "_" + std::string(fee.sideFile);
}

MonthlyFees readBaseFees(base::FileSystem& files, const std::string& path) {
  const auto bytes = files.readText(path);
  if (!bytes) return {};
  const base::RecordReader record(*bytes);
  MonthlyFees fees{};
  for (std::size_t k = 0; k < fees.size(); ++k) fees[k] = record.number(k).value_or(0);
  return fees;
}

Result<void> writeBaseFees(base::FileSystem& files, const std::string& path,
                           const MonthlyFees& fees) {
  base::RecordWriter record;
  for (const double fee : fees) record.number(fee > 0 ? fee : 0.0);
  return writeSideFile(files, path, record);
}

std::optional<base::Money> yearFee(const MonthlyFees& fees) {
  double sum = 0;
  for (const double fee : fees)
    if (fee > 0) sum += fee;
  return base::Money::tryRoundHalfEven(sum);
}

Result<void> storeYearFee(YearSession& session, const FeeVariant& fee, const MonthlyFees& fees) {
  const auto sum = yearFee(fees);
  if (!sum) return amountTooLarge(yearbook::kZStaende, *fee.yearFee);
  return session.storeBaseFee(*fee.yearFee, sum);
}

}  // namespace readings
