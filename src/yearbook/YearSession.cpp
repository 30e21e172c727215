#include "yearbook/YearSession.h"

#include "yearbook/Clearing.h"
#include "yearbook/FlatRate.h"
#include "yearbook/StartMonthShift.h"

namespace yearbook {

using base::Failure;
using base::Result;

YearSession::YearSession(base::FileSystem& files, std::string dataFolder, jet::Database database,
                         YearRows rows, base::Date openedOn)
    : database_(std::move(database)),
      rows_(std::move(rows)),
      files_(files),
      dataFolder_(std::move(dataFolder)),
      openedOn_(openedOn) {}

Result<std::unique_ptr<YearSession>> YearSession::open(base::FileSystem& files,
                                                       const std::string& path,
                                                       const std::string& dataFolder,
                                                       const base::Clock& clock,
                                                       jet::OpenOptions options) {
  auto database = jet::Database::open(files, path, options);
  if (!database) return Failure(database.error());
  auto rows = YearRows::open(*database);
  if (!rows) return Failure(rows.error());
  std::unique_ptr<YearSession> session(
      new YearSession(files, dataFolder, std::move(*database), std::move(*rows), clock.today()));
  if (auto loaded = session->load(); !loaded) return Failure(loaded.error());
  return session;
}

std::string YearSession::currentMonthName() const {
  return std::string(base::kMonthNames[static_cast<std::size_t>(openedMonth() - 1)]);
}

bool YearSession::holdsLongRemarks(Utility utility) const {
  return rows_.of(utility).isMemo(*factsOf(utility).remark);
}

Result<void> YearSession::load() {
  modes_.flatRate = readFlatRate(files_, dataFolder_);
  const auto amounts = [this](YearRows& rows, Follow how) -> Result<void> {
    for (Utility utility : kUtilities)
      if (auto done = followMonthAmounts(rows, utility, how); !done) return done;
    return {};
  };
  if (!readOnlyReason())
    return transact({}, [&](YearRows& rows) { return amounts(rows, Follow::Stored); });
  base::ignore(amounts(rows_, Follow::ShownOnly), "nothing is stored");
  for (Meter meter : kMeters)
    base::ignore(followChartTable(rows_, meter, Follow::ShownOnly), "nothing is stored");
  showValues();
  return {};
}

Result<void> YearSession::transact(const Change& change, const Edit& edit) {
  if (auto begun = database_.begin(); !begun) return begun;
  const Modes before = modes_;
  if (change.summary) modes_.cleared[*change.summary] = false;
  auto done = edit(rows_);
  if (done) done = follow(change);
  if (done) done = database_.commit();
  if (!done) {
    if (database_.inTransaction()) database_.rollback();
    modes_ = before;
    rows_.takeWritten();
    base::ignore(rows_.refresh(),
                 "the edit's own error is the one to tell; kept rows stay readable");
  }
  showValues();
  return done;
}

// Only what has been written is followed: a copy that an older file cannot hold does not keep the
// household from changing something else.
Result<void> YearSession::follow(const Change& change) {
  PerUtility<bool> amounts{};
  PerMeter<bool> consumptions{};
  for (const Cell& cell : rows_.takeWritten()) {
    modes_.emptied.erase(cell);
    for (Meter meter : kMeters) {
      const MeterFacts& facts = factsOf(meter);
      if (cell.field == facts.amount || cell.field == factsOf(facts.utility).monthAmount)
        amounts[facts.utility] = true;
      if (cell.field == facts.consumption) consumptions[meter] = !change.chartTableWaits;
    }
  }
  for (Utility utility : kUtilities)
    if (amounts[utility])
      if (auto done = followMonthAmounts(rows_, utility, Follow::Stored); !done) return done;
  for (Meter meter : kMeters)
    if (consumptions[meter])
      if (auto done = followChartTable(rows_, meter, Follow::Stored); !done) return done;
  rows_.takeWritten();
  return {};
}

Result<void> YearSession::bringUpToDate() {
  if (readOnlyReason()) return {};
  return transact({}, [](YearRows& rows) -> Result<void> {
    for (Meter meter : kMeters) {
      if (auto done = followMonthAmounts(rows, utilityOf(meter), Follow::Stored); !done)
        return done;
      if (auto done = followChartTable(rows, meter, Follow::Stored); !done) return done;
    }
    return {};
  });
}

// --- settings ---

Result<void> YearSession::storeSetting(const Change& change, const Field& setting,
                                       std::optional<double> value) {
  return transact(change,
                  [&](YearRows& rows) { return rows.adoZStaende.setNumber(0, setting, value); });
}

Result<void> YearSession::storeStartReading(Meter meter, std::optional<double> value) {
  return transact({utilityOf(meter)}, [&](YearRows& rows) -> Result<void> {
    // Both columns come from their fields: with water's, waste water's is stored as it is shown.
    if (meter == Meter::Water)
      if (auto done = rows.adoZStaende.setNumber(0, zstaende::startWasteWater,
                                                 values_.startReadings[Meter::WasteWater]);
          !done)
        return done;
    return rows.adoZStaende.setNumber(0, *factsOf(meter).startReading, value);
  });
}

Result<void> YearSession::storeVat(Meter meter, std::optional<double> percent) {
  return storeSetting({utilityOf(meter)}, *factsOf(meter).vat, percent);
}

Result<void> YearSession::storeBaseFee(Meter meter, std::optional<Money> euro) {
  Change change;
  // Only the page of water shows the VAT on its base fees.
  if (utilityOf(meter) == Utility::Water) change.summary = Utility::Water;
  return transact(change, [&](YearRows& rows) {
    return rows.adoZStaende.setMoney(0, *factsOf(meter).baseFee, euro);
  });
}

Result<void> YearSession::storeGasFactor(std::optional<double> kwhPerCubicMetre) {
  return transact({Utility::Gas}, [&](YearRows& rows) -> Result<void> {
    if (auto done = rows.adoZStaende.setNumber(0, zstaende::gasFactor, kwhPerCubicMetre); !done)
      return done;
    for (int i = 0; i < kMonths; ++i)
      if (auto done = rows.price(Meter::Gas, i, orZero(kwhPerCubicMetre)); !done) return done;
    return {};
  });
}

Result<void> YearSession::storeFreeKwh(std::optional<double> kwh) {
  return storeSetting({Utility::Electricity}, zstaende::freeKwh, kwh);
}

Result<void> YearSession::storeStartDate(const std::string& text) {
  return transact(
      {}, [&](YearRows& rows) { return rows.adoZStaende.setText(0, zstaende::startDate, text); });
}

Result<void> YearSession::setNightShown(bool shown) {
  return transact({}, [&](YearRows& rows) {
    return rows.adoZStaende.setText(0, zstaende::nightDisplay, shown ? "on" : "off");
  });
}

// --- months ---

Result<void> YearSession::storePrice(Meter meter, std::optional<double> centPerKwh) {
  if (!centPerKwh && meter == Meter::Gas) return {};
  const MeterFacts& facts = factsOf(meter);
  const double factor = orZero(values_.gasFactor);
  const auto done = transact({facts.utility}, [&](YearRows& rows) -> Result<void> {
    for (int i = 0; i < kMonths; ++i) {
      if (auto set = rows.of(meter).setNumber(i, *facts.price, orZero(centPerKwh)); !set)
        return set;
      if (auto priced = rows.price(meter, i, factor); !priced) return priced;
    }
    return {};
  });
  if (done && !centPerKwh) {
    modes_.emptied.insert({facts.price, kPriceRow});
    showValues();
  }
  return done;
}

Result<void> YearSession::storeAdvance(Utility utility, int position, std::optional<Money> euro) {
  return transact({utility}, [&](YearRows& rows) {
    return rows.of(utility).setMoney(position, *factsOf(utility).advance, euro);
  });
}

Result<void> YearSession::zeroAdvances(Utility utility) {
  return transact({utility}, [&](YearRows& rows) -> Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto done = rows.of(utility).setMoney(i, *factsOf(utility).advance, Money()); !done)
        return done;
    return {};
  });
}

Result<void> YearSession::storeRemark(Utility utility, int position, const std::string& text) {
  return transact({}, [&](YearRows& rows) {
    return rows.of(utility).setText(position, *factsOf(utility).remark, text);
  });
}

Result<void> YearSession::shiftStartMonth(Utility utility, int startMonth) {
  return transact({utility, true},
                  [&](YearRows& rows) { return shiftRows(rows.of(utility), startMonth); });
}

Result<void> YearSession::clear(Utility utility) {
  const auto done =
      transact({utility}, [&](YearRows& rows) { return clearUtility(rows, utility); });
  if (!done) return done;
  for (const Cell& cell : emptiedByClearing(utility)) modes_.emptied.insert(cell);
  modes_.cleared[utility] = true;
  showValues();
  return done;
}

// --- flat rate ---

void YearSession::setFlatRate(bool on) {
  modes_.flatRate = on;
  modes_.cleared[Utility::Electricity] = false;
  showValues();
}

Result<void> YearSession::saveFlatRate() {
  return writeFlatRate(files_, dataFolder_, values_.flatRate);
}

}  // namespace yearbook
