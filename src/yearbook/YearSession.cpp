#include "yearbook/YearSession.h"

#include "yearbook/Clearing.h"
#include "yearbook/FieldTexts.h"
#include "yearbook/FlatRate.h"
#include "yearbook/StartMonthShift.h"

namespace yearbook {

using base::Failure;
using base::Result;

namespace {

Change typedInto(const Field& field, std::optional<Utility> summary = {}, int row = 0) {
  Change change;
  change.name = field.words;
  change.summary = summary;
  change.entry = Cell{&field, row};
  return change;
}

}  // namespace

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
  if (!database_.writeObstacle()) {
    auto stored = transact({}, [&](YearRows& rows) { return amounts(rows, Follow::Stored); });
    if (stored || !database_.writeObstacle()) return stored;
  }
  base::ignore(amounts(rows_, Follow::ShownOnly), "nothing is stored");
  for (Meter meter : kMeters)
    base::ignore(followChartTable(rows_, meter, Follow::ShownOnly), "nothing is stored");
  showValues();
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

Result<void> YearSession::storeSetting(std::optional<Utility> summary, const Field& setting,
                                       std::optional<double> value) {
  return transact(typedInto(setting, summary),
                  [&](YearRows& rows) { return rows.adoZStaende.setNumber(0, setting, value); });
}

Result<void> YearSession::storeStartReading(Meter meter, std::optional<double> value) {
  const Field& setting = *factsOf(meter).startReading;
  return transact(typedInto(setting, utilityOf(meter)), [&](YearRows& rows) -> Result<void> {
    // Both columns come from their fields: with water's, waste water's is stored as it is shown.
    if (meter == Meter::Water)
      if (auto done = rows.adoZStaende.setNumber(0, zstaende::startWasteWater,
                                                 values_.startReadings[Meter::WasteWater]);
          !done)
        return done;
    return rows.adoZStaende.setNumber(0, setting, value);
  });
}

Result<void> YearSession::storeVat(Meter meter, std::optional<double> percent) {
  return storeSetting(utilityOf(meter), *factsOf(meter).vat, percent);
}

Result<void> YearSession::storeBaseFee(Meter meter, std::optional<Money> euro,
                                       std::vector<SideFile> sides) {
  const Field& setting = *factsOf(meter).baseFee;
  Change change = typedInto(setting);
  // Only the page of water shows the VAT on its base fees.
  if (utilityOf(meter) == Utility::Water) change.summary = Utility::Water;
  if (!sides.empty()) change.entry.reset();
  change.sides = std::move(sides);
  return transact(change,
                  [&](YearRows& rows) { return rows.adoZStaende.setMoney(0, setting, euro); });
}

Result<void> YearSession::storeGasFactor(std::optional<double> kwhPerCubicMetre) {
  const Change change = typedInto(zstaende::gasFactor, Utility::Gas);
  return transact(change, [&](YearRows& rows) -> Result<void> {
    if (auto done = rows.adoZStaende.setNumber(0, zstaende::gasFactor, kwhPerCubicMetre); !done)
      return done;
    for (int i = 0; i < kMonths; ++i)
      if (auto done = rows.price(Meter::Gas, i, orZero(kwhPerCubicMetre)); !done) return done;
    return {};
  });
}

Result<void> YearSession::storeFreeKwh(std::optional<double> kwh) {
  return storeSetting(Utility::Electricity, zstaende::freeKwh, kwh);
}

Result<void> YearSession::storeStartDate(const std::string& text) {
  return transact(typedInto(zstaende::startDate), [&](YearRows& rows) {
    return rows.adoZStaende.setText(0, zstaende::startDate, text);
  });
}

Result<void> YearSession::setNightShown(bool shown) {
  return transact(
      {shown ? "Nachtstrom eingeblendet" : "Nachtstrom ausgeblendet"}, [&](YearRows& rows) {
        return rows.adoZStaende.setText(0, zstaende::nightDisplay, shown ? "on" : "off");
      });
}

// --- months ---

Result<void> YearSession::storePrice(Meter meter, std::optional<double> centPerKwh) {
  if (!centPerKwh && meter == Meter::Gas) return {};
  const MeterFacts& facts = factsOf(meter);
  const double factor = orZero(values_.gasFactor);
  Change change = typedInto(*facts.price, facts.utility, kPriceRow);
  change.name = std::string(facts.price->words) + " für 12 Monate";
  change.before = priceStepsText(rows_, meter);
  change.mass = !change.before.empty();
  if (*change.mass) change.before = "vorher " + change.before;
  if (!centPerKwh) change.empties = {{facts.price, kPriceRow}};
  return transact(change, [&](YearRows& rows) -> Result<void> {
    for (int i = 0; i < kMonths; ++i) {
      if (auto set = rows.of(meter).setNumber(i, *facts.price, orZero(centPerKwh)); !set)
        return set;
      if (auto priced = rows.price(meter, i, factor); !priced) return priced;
    }
    return {};
  });
}

Result<void> YearSession::storeAdvance(Utility utility, int position, std::optional<Money> euro) {
  const Field& advance = *factsOf(utility).advance;
  Change change = typedInto(advance, utility, position);
  change.name += " " + monthNames(utility)[position];
  return transact(
      change, [&](YearRows& rows) { return rows.of(utility).setMoney(position, advance, euro); });
}

Result<void> YearSession::zeroAdvances(Utility utility) {
  Change change{"Abschläge " + std::string(factsOf(utility).name) + " auf 0,00 gesetzt", utility};
  change.before = "vorher zusammen " + formatMoney(values_.advanceSums[utility]) + " Euro";
  return transact(change, [&](YearRows& rows) -> Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto done = rows.of(utility).setMoney(i, *factsOf(utility).advance, Money()); !done)
        return done;
    return {};
  });
}

Result<void> YearSession::storeRemark(Utility utility, int position, const std::string& text) {
  const Field& remark = *factsOf(utility).remark;
  Change change = typedInto(remark, {}, position);
  change.name += " " + monthNames(utility)[position];
  return transact(change,
                  [&](YearRows& rows) { return rows.of(utility).setText(position, remark, text); });
}

Result<void> YearSession::shiftStartMonth(Utility utility, int startMonth) {
  Change change{"Startmonat " + std::string(factsOf(utility).name), utility};
  change.chartTableWaits = true;
  return transact(change, [&](YearRows& rows) { return shiftRows(rows.of(utility), startMonth); });
}

Result<void> YearSession::clear(Utility utility) {
  Change change{"Alle Werte " + std::string(factsOf(utility).name) + " gelöscht", utility};
  change.empties = emptiedByClearing(utility);
  change.clears = utility;
  return transact(change, [&](YearRows& rows) { return clearUtility(rows, utility); });
}

// --- flat rate ---

Result<void> YearSession::storeFlatRate(bool on) {
  Step step;
  step.name = on ? "Pauschale eingeschaltet" : "Pauschale ausgeschaltet";
  step.before = modes_;
  modes_.flatRate = on;
  modes_.cleared[Utility::Electricity] = false;
  step.after = modes_;
  showValues();
  auto sides = changesOf({flatRateFile(dataFolder_, on)});
  if (!sides) return Failure(sides.error());
  if (!sides->empty())
    if (auto done = storeSides(dataFolder_, *sides); !done) return done;
  step.sides = std::move(*sides);
  if (!readOnlyReason()) history_.add(std::move(step));
  return {};
}

}  // namespace yearbook
