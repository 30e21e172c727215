#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/File.h"
#include "base/GermanDate.h"
#include "yearbook/FieldValues.h"
#include "yearbook/RecordSource.h"

namespace yearbook {

// The open year: its database, its five record sources, the values that the main window's fields
// show and what has changed. The windows share one session; none reads another's widgets.
//
// Every change is one transaction: it is stored whole and durable when the call returns, or not at
// all, and then values() show what is stored. Errors name file and field.
class YearSession {
  // Before the record sources: they must go first when the year is closed.
  jet::Database database_;

 public:
  // Opens the file and loads the year; writes nothing but PGesammt and PGesammtW where they differ
  // from their months (a year that can only be read shows them without storing them). dataFolder
  // ends with the separator; "pauschale.dat" lies there.
  static base::Result<std::unique_ptr<YearSession>> open(base::FileSystem& files,
                                                         const std::string& path,
                                                         const std::string& dataFolder,
                                                         const base::Clock& clock,
                                                         jet::OpenOptions options = {});

  const std::string& path() const { return database_.path(); }
  const std::string& dataFolder() const { return dataFolder_; }
  base::FileSystem& files() const { return files_; }
  // Why the year can only be read, if so.
  std::optional<base::Error> readOnlyReason() const { return database_.readOnlyReason(); }
  jet::Database& database() { return database_; }

  // Month and year of the system date, noted when the year was opened.
  base::Date openedOn() const { return openedOn_; }
  std::string currentMonthName() const;
  int startMonth(Utility utility) const { return values_.startMonths[at(utility)]; }
  MonthNames monthNames(Utility utility) const { return rotatedMonthNames(startMonth(utility)); }

  // Whether remarks may be longer than a text column holds.
  bool holdsLongRemarks(Utility utility) const;

  const FieldValues& values() const { return values_; }

  // The record sources, under the names that the year's tables go by in the windows.
  RecordSource adoStrom, adoWasser, adoGas, adoVerbrM, adoZStaende;

  // --- changes ---
  using Edit = std::function<base::Result<void>()>;
  // Runs the edit in one transaction. On failure everything is as before.
  base::Result<void> transact(const Edit& edit);

  // One setting of ZStaende; then the summary of the utility that depends on it.
  base::Result<void> storeNumber(const Field& setting, std::optional<double> value);
  base::Result<void> storeBaseFee(const Field& setting, std::optional<Money> value);
  // AnfStandWasser, and with it AnfStandAbwasser from its own field.
  base::Result<void> storeStartWater(std::optional<double> value);
  // A valid date, as typed; the caller has checked it. "" clears the field.
  base::Result<void> storeStartDate(const std::string& text);
  // One price for all twelve months, each re-priced. An empty day price writes 0; an empty gas
  // price writes nothing.
  base::Result<void> storeDayPrice(std::optional<double> centPerKwh);
  base::Result<void> storeGasPrice(std::optional<double> centPerKwh);
  // Re-prices every month with its own stored price.
  base::Result<void> storeGasFactor(std::optional<double> kwhPerCubicMetre);
  base::Result<void> storeAdvance(Utility utility, int position, std::optional<Money> euro);
  base::Result<void> zeroAdvances(Utility utility);
  base::Result<void> storeRemark(Utility utility, int position, const std::string& text);

  // Re-prices all months of a utility: electricity and water with each month's own price, gas with
  // the price of the main window.
  base::Result<void> recalculatePrices(Utility utility);
  // Moves the twelve rows so that the month comes first; the rows keep their data.
  base::Result<void> shiftStartMonth(Utility utility, int startMonth);
  // Sets all entries of a utility to 0. Afterwards its fields are empty, what is stored is 0.
  base::Result<void> clear(Utility utility);
  // "on" or "off" in the year.
  base::Result<void> setNightShown(bool shown);
  // Holds for all years of the data folder once saveFlatRate() has written "pauschale.dat", until
  // then for the open one.
  base::Result<void> setFlatRate(bool on);
  base::Result<void> saveFlatRate();

  // --- recalculation ---

  // Totals from the rows; PGesammt or PGesammtW follows.
  base::Result<void> summarize(Utility utility);
  // The five consumptions into VerbrMonat.
  base::Result<void> copyToChartTable();
  // After a window has written rows: reads them again, the price fields and the summary follow.
  base::Result<void> reload(Utility utility);

 private:
  YearSession(base::FileSystem& files, std::string dataFolder, jet::Database database,
              std::array<RecordSource, 5> sources, base::Date openedOn);
  base::Result<void> load();
  base::Result<void> refreshSources();
  void readSettings();
  void readMonths(Utility utility);
  void readPrices(Utility utility);
  RecordSource& source(Utility utility);
  base::Result<void> followMonthAmounts(Utility utility);
  void updateTotals(Utility utility);
  base::Result<void> repriceRows(Utility utility);

  base::FileSystem& files_;
  std::string dataFolder_;
  base::Date openedOn_;
  FieldValues values_;
};

}  // namespace yearbook
