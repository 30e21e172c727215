#pragma once

#include "yearbook/Bill.h"
#include "yearbook/RecordSource.h"

namespace yearbook {

// The price fields of the main window show the last month's.
inline constexpr int kPriceRow = kMonths - 1;

// The five record sources of a year, under the names that its tables go by in the windows.
struct YearRows {
  RecordSource adoStrom, adoWasser, adoGas, adoVerbrM, adoZStaende;

  static base::Result<YearRows> open(jet::Database& database);
  base::Result<void> refresh();

  RecordSource& of(Utility utility);
  const RecordSource& of(Utility utility) const;
  RecordSource& of(Meter meter) { return of(utilityOf(meter)); }
  // The one whose table has the field.
  RecordSource& of(const Field& field);
  const RecordSource& of(Meter meter) const { return of(utilityOf(meter)); }

  PerMonth<MeterRow> months(Meter meter) const;

  // The cells that have been written since the last call.
  std::vector<CellChange> takeWritten();

  // Stores a month's amount. InvalidValue, with the name of the month, when there is none: it is
  // larger than an amount can be.
  base::Result<void> setAmount(Meter meter, int row, std::optional<Money> amount);
  // Prices a month with what its row and the factor say.
  base::Result<void> price(Meter meter, int row, double factor);
};

// How what follows from other rows gets into its own.
enum class Follow {
  Stored,
  ShownOnly,  // in a year that can only be read
};
// PGesammt and PGesammtW, the sums over the utility's meters.
base::Result<void> followMonthAmounts(YearRows& rows, Utility utility, Follow how);
// The meter's consumptions in VerbrMonat, for the charts.
base::Result<void> followChartTable(YearRows& rows, Meter meter, Follow how);

}  // namespace yearbook
