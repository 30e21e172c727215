#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/File.h"
#include "base/GermanDate.h"
#include "yearbook/FieldValues.h"

namespace yearbook {

// What a change of the year is about.
struct Change {
  // Whose summary follows: once cleared, its totals are shown again.
  std::optional<Utility> summary = {};
  // The rows only change places: the charts' copy waits for the next change.
  bool chartTableWaits = false;
};

// The open year: its database, its five record sources, the values that the main window's fields
// show and what has changed. The windows share one session; none reads another's widgets.
//
// Every change is one transaction: it is stored whole and durable when the call returns, or not at
// all, and then values() show what is stored. What follows from the changed cells (month amounts,
// the charts' table, the values) follows at its end by itself. Errors name month and field as the
// household does, or the file.
class YearSession {
  // Before the record sources: they must go first when the year is closed.
  jet::Database database_;
  YearRows rows_;

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
  int openedMonth() const { return static_cast<int>(static_cast<unsigned>(openedOn_.month())); }
  std::string currentMonthName() const;
  int startMonth(Utility utility) const { return values_.startMonths[utility]; }
  MonthNames monthNames(Utility utility) const { return rotatedMonthNames(startMonth(utility)); }

  // Whether remarks may be longer than a text column holds.
  bool holdsLongRemarks(Utility utility) const;

  const FieldValues& values() const { return values_; }

  // What is stored, to be read. Written in a transaction only.
  const YearRows& rows() const { return rows_; }
  const RecordSource& adoStrom = rows_.adoStrom;
  const RecordSource& adoWasser = rows_.adoWasser;
  const RecordSource& adoGas = rows_.adoGas;
  const RecordSource& adoVerbrM = rows_.adoVerbrM;
  const RecordSource& adoZStaende = rows_.adoZStaende;

  // --- changes ---
  using Edit = std::function<base::Result<void>(YearRows&)>;
  // Runs the edit in one transaction. On failure everything is as before.
  base::Result<void> transact(const Change& change, const Edit& edit);

  // Settings of the year.
  base::Result<void> storeStartReading(Meter meter, std::optional<double> value);
  base::Result<void> storeVat(Meter meter, std::optional<double> percent);
  base::Result<void> storeBaseFee(Meter meter, std::optional<Money> euro);
  // Re-prices every month with its own stored price.
  base::Result<void> storeGasFactor(std::optional<double> kwhPerCubicMetre);
  base::Result<void> storeFreeKwh(std::optional<double> kwh);
  // A valid date, as typed; the caller has checked it. "" clears the field.
  base::Result<void> storeStartDate(const std::string& text);
  // "on" or "off" in the year.
  base::Result<void> setNightShown(bool shown);

  // One price of day electricity or gas for all twelve months, each re-priced. An empty day price
  // writes 0; an empty gas price writes nothing.
  base::Result<void> storePrice(Meter meter, std::optional<double> centPerKwh);
  base::Result<void> storeAdvance(Utility utility, int position, std::optional<Money> euro);
  base::Result<void> zeroAdvances(Utility utility);
  base::Result<void> storeRemark(Utility utility, int position, const std::string& text);

  // Moves the twelve rows so that the month comes first; the rows keep their data.
  base::Result<void> shiftStartMonth(Utility utility, int startMonth);
  // Sets all entries of a utility to 0. Afterwards its fields are empty, what is stored is 0.
  base::Result<void> clear(Utility utility);
  // Stores the month amounts and the charts' table as they follow from the months, in case that
  // another program has left them otherwise.
  base::Result<void> bringUpToDate();

  // Holds for all years of the data folder once saveFlatRate() has written "pauschale.dat", until
  // then for the open one.
  void setFlatRate(bool on);
  base::Result<void> saveFlatRate();

 private:
  YearSession(base::FileSystem& files, std::string dataFolder, jet::Database database,
              YearRows rows, base::Date openedOn);
  base::Result<void> load();
  base::Result<void> storeSetting(const Change& change, const Field& setting,
                                  std::optional<double> value);
  base::Result<void> follow(const Change& change);
  void showValues() { values_ = valuesOf(rows_, modes_); }

  base::FileSystem& files_;
  std::string dataFolder_;
  base::Date openedOn_;
  Modes modes_;
  FieldValues values_;
};

}  // namespace yearbook
