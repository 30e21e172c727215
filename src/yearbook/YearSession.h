#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/File.h"
#include "base/GermanDate.h"
#include "base/JointChange.h"
#include "yearbook/StepHistory.h"

namespace yearbook {

// What a change of the year is about.
struct Change {
  // What it is called when it is to be taken back; without a name it is none of the user's steps.
  std::string name = {};
  // Whose summary follows: once cleared, its totals are shown again.
  std::optional<Utility> summary = {};
  // Where it is typed: the keys that follow there are part of the same step, until endEntry().
  std::optional<Cell> entry = {};
  // Side files that change with the year: both or neither.
  std::vector<SideFile> sides = {};
  // Cells that are shown empty afterwards, whatever is stored there.
  std::vector<Cell> empties = {};
  // Whose totals are shown empty afterwards.
  std::optional<Utility> clears = {};
  // The rows only change places: the charts' copy waits for the next change.
  bool chartTableWaits = false;
  // What it was before, where that can be said in few words. More than one typed cell is announced
  // to the user, who may have had his eye on one.
  std::string before = {};
  // Whether it is announced, where that does not follow from the cells.
  std::optional<bool> mass = {};
};

// The open year: its database, its five record sources, the values that the main window's fields
// show and what has changed. The windows share one session; none reads another's widgets.
//
// Every change is one transaction: it is stored whole and durable when the call returns, or not at
// all, and then values() show what is stored. It is also one step that undo() takes back. What
// follows from the changed cells (month amounts, the charts' table, the values) follows at its end
// by itself. Errors name month and field as the household does, or the file.
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
  // Why nothing can be stored at present, if so.
  std::optional<base::Error> writeObstacle() const { return database_.writeObstacle(); }
  jet::Database& database() { return database_; }
  // After a failure of the disk: what is stored becomes certain when the year is opened again;
  // until then nothing can be changed.
  bool needsReopen() const { return sidesPending_ || database_.needsReopen(); }

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

  // The steps since the year was opened. Each way is one transaction again; nothing happens when
  // there is no step.
  const StepHistory& history() const { return history_; }
  base::Result<void> undo();
  base::Result<void> redo();
  // What is typed next is a step of its own.
  void endEntry() { history_.endEntry(); }

  // Settings of the year.
  base::Result<void> storeStartReading(Meter meter, std::optional<double> value);
  base::Result<void> storeVat(Meter meter, std::optional<double> percent);
  base::Result<void> storeBaseFee(Meter meter, std::optional<Money> euro,
                                  std::vector<SideFile> sides = {});
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

  // Holds for all years of the data folder; for the open one also when "pauschale.dat" cannot be
  // written, which is the error then.
  base::Result<void> storeFlatRate(bool on);

 private:
  YearSession(base::FileSystem& files, std::string dataFolder, jet::Database database,
              YearRows rows, base::Date openedOn);
  base::Result<void> load();
  base::Result<void> storeSetting(std::optional<Utility> summary, const Field& setting,
                                  std::optional<double> value);
  base::Result<void> checkOpen() const;
  base::Result<std::vector<CellChange>> follow(const Change& change);
  base::Result<std::vector<SideChange>> changesOf(const std::vector<SideFile>& sides) const;
  base::Result<void> store(const std::vector<CellChange>& cells,
                           const std::vector<SideChange>& sides);
  base::Result<base::JointChange> stage(const std::string& folder,
                                        const std::vector<SideChange>& sides) const;
  base::Result<void> storeSides(const std::string& folder, const std::vector<SideChange>& sides);
  base::Result<void> storeTogether(const std::string& folder, const std::vector<SideChange>& sides);
  base::Result<void> replay(const Step& step, bool back);
  void remember(const Change& change, Step step);
  void takeBack(const Modes& modes);
  void showValues() { values_ = valuesOf(rows_, modes_); }

  base::FileSystem& files_;
  std::string dataFolder_;
  base::Date openedOn_;
  Modes modes_;
  FieldValues values_;
  StepHistory history_;
  bool sidesPending_ = false;
};

}  // namespace yearbook
