#include "yearbook/YearSession.h"

#include "yearbook/BillInput.h"
#include "yearbook/Clearing.h"
#include "yearbook/FlatRate.h"
#include "yearbook/StartMonthShift.h"

namespace yearbook {
namespace {

using base::Failure;
using base::Result;

struct NumberSetting {
  const Field* field;
  std::optional<double> FieldValues::*value;
  Utility utility;
};
constexpr NumberSetting kNumberSettings[] = {
    {&zstaende::startDay, &FieldValues::startDay, Utility::Electricity},
    {&zstaende::startNight, &FieldValues::startNight, Utility::Electricity},
    {&zstaende::vatElectricity, &FieldValues::vatElectricity, Utility::Electricity},
    {&zstaende::freeKwh, &FieldValues::freeKwh, Utility::Electricity},
    {&zstaende::startWater, &FieldValues::startWater, Utility::Water},
    {&zstaende::startWasteWater, &FieldValues::startWasteWater, Utility::Water},
    {&zstaende::vatWater, &FieldValues::vatWater, Utility::Water},
    {&zstaende::vatWasteWater, &FieldValues::vatWasteWater, Utility::Water},
    {&zstaende::startGas, &FieldValues::startGas, Utility::Gas},
    {&zstaende::gasFactor, &FieldValues::gasFactor, Utility::Gas},
    {&zstaende::vatGas, &FieldValues::vatGas, Utility::Gas},
};

struct MoneySetting {
  const Field* field;
  std::optional<Money> FieldValues::*value;
  Utility utility;
  bool summarized;  // its VAT is shown on the page, so the summary follows
};
constexpr MoneySetting kMoneySettings[] = {
    {&zstaende::baseFeeElectricity, &FieldValues::baseFeeElectricity, Utility::Electricity, false},
    {&zstaende::baseFeeWater, &FieldValues::baseFeeWater, Utility::Water, true},
    {&zstaende::baseFeeWasteWater, &FieldValues::baseFeeWasteWater, Utility::Water, true},
    {&zstaende::baseFeeGas, &FieldValues::baseFeeGas, Utility::Gas, false},
};

struct UtilityFields {
  RecordSource YearSession::*rows;
  const Field* month;
  const Field* advance;
  const Field* remark;
  const Field* shownConsumption;  // beside the month on the utility's page
};
constexpr UtilityFields kUtilityFields[] = {
    {&YearSession::adoStrom, &strom::month, &strom::advance, &strom::remark,
     &strom::dayConsumption},
    {&YearSession::adoWasser, &wasser::month, &wasser::advance, &wasser::remark,
     &wasser::consumption},
    {&YearSession::adoGas, &gas::month, &gas::advance, &gas::remark, &gas::consumption},
};

const UtilityFields& fieldsOf(Utility utility) {
  return kUtilityFields[at(utility)];
}

// The price fields show the month at which the load's walk over the rows ends.
constexpr int kLastMonth = kMonths - 1;

}  // namespace

YearSession::YearSession(base::FileSystem& files, std::string dataFolder, jet::Database database,
                         std::array<RecordSource, 5> sources, base::Date openedOn)
    : database_(std::move(database)),
      adoStrom(std::move(sources[0])),
      adoWasser(std::move(sources[1])),
      adoGas(std::move(sources[2])),
      adoVerbrM(std::move(sources[3])),
      adoZStaende(std::move(sources[4])),
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
  std::vector<RecordSource> sources;
  for (const Table* table : allTables()) {
    auto source = RecordSource::open(*database, *table);
    if (!source) return Failure(source.error());
    sources.push_back(std::move(*source));
  }
  std::unique_ptr<YearSession> session(
      new YearSession(files, dataFolder, std::move(*database),
                      {std::move(sources[0]), std::move(sources[1]), std::move(sources[2]),
                       std::move(sources[3]), std::move(sources[4])},
                      clock.today()));
  if (auto loaded = session->load(); !loaded) return Failure(loaded.error());
  return session;
}

std::string YearSession::currentMonthName() const {
  return std::string(base::kMonthNames[static_cast<unsigned>(openedOn_.month()) - 1]);
}

bool YearSession::holdsLongRemarks(Utility utility) const {
  const UtilityFields& fields = fieldsOf(utility);
  return (this->*fields.rows).isMemo(*fields.remark);
}

Result<void> YearSession::load() {
  values_.flatRate = readFlatRate(files_, dataFolder_);
  for (Utility utility : kUtilities) readMonths(utility);
  readSettings();
  for (Utility utility : kUtilities) {
    readPrices(utility);
    updateTotals(utility);
  }
  const Edit follow = [this]() -> Result<void> {
    if (auto done = followMonthAmounts(Utility::Electricity); !done) return done;
    return followMonthAmounts(Utility::Water);
  };
  return readOnlyReason() ? follow() : transact(follow);
}

RecordSource& YearSession::source(Utility utility) {
  return this->*fieldsOf(utility).rows;
}

Result<void> YearSession::refreshSources() {
  for (RecordSource* table : {&adoStrom, &adoWasser, &adoGas, &adoVerbrM, &adoZStaende})
    if (auto done = table->refresh(); !done) return done;
  return {};
}

void YearSession::readSettings() {
  for (const NumberSetting& setting : kNumberSettings)
    values_.*setting.value = adoZStaende.number(0, *setting.field);
  for (const MoneySetting& setting : kMoneySettings)
    values_.*setting.value = adoZStaende.money(0, *setting.field);
  values_.nightShown = adoZStaende.text(0, zstaende::nightDisplay) != "off";
  const std::string date = adoZStaende.text(0, zstaende::startDate);
  values_.startDate = base::parseDate(date) ? date : std::string();
}

void YearSession::readMonths(Utility utility) {
  const RecordSource& rows = source(utility);
  const UtilityFields& fields = fieldsOf(utility);
  values_.startMonths[at(utility)] = base::monthNumber(rows.text(0, *fields.month));
  for (int i = 0; i < kMonths; ++i) {
    const auto month = static_cast<std::size_t>(i);
    values_.advances[at(utility)][month] = rows.money(i, *fields.advance);
    values_.remarks[at(utility)][month] = rows.text(i, *fields.remark);
  }
}

void YearSession::readPrices(Utility utility) {
  switch (utility) {
    case Utility::Electricity:
      values_.dayPrice = adoStrom.number(kLastMonth, strom::dayPrice);
      values_.nightPrice = adoStrom.number(kLastMonth, strom::nightPrice);
      break;
    case Utility::Water:
      values_.waterPrice = adoWasser.number(kLastMonth, wasser::price);
      values_.wasteWaterPrice = adoWasser.number(kLastMonth, wasser::wastePrice);
      break;
    case Utility::Gas:
      values_.gasPrice = adoGas.number(kLastMonth, gas::price);
      break;
  }
}

void YearSession::updateTotals(Utility utility) {
  switch (utility) {
    case Utility::Electricity:
      values_.electricity = summarizeElectricity(electricityInput(adoStrom, values_));
      break;
    case Utility::Water:
      values_.water = summarizeWater(waterInput(adoWasser, values_));
      break;
    case Utility::Gas:
      values_.gas = summarizeGas(gasInput(adoGas, values_));
      break;
  }
  Money sum;
  for (int i = 0; i < kMonths; ++i) {
    const auto month = static_cast<std::size_t>(i);
    values_.consumptions[at(utility)][month] =
        source(utility).text(i, *fieldsOf(utility).shownConsumption);
    sum += orZero(values_.advances[at(utility)][month]);
  }
  values_.advanceSums[at(utility)] = sum;
  values_.cleared[at(utility)] = false;
}

Result<void> YearSession::followMonthAmounts(Utility utility) {
  if (utility == Utility::Gas) return {};
  const bool electricity = utility == Utility::Electricity;
  const auto& amounts = electricity ? values_.electricity.monthAmounts : values_.water.monthAmounts;
  const Field& field = electricity ? strom::monthAmount : wasser::monthAmount;
  RecordSource& rows = source(utility);
  if (readOnlyReason()) {
    for (int i = 0; i < kMonths; ++i) rows.keep(i, field, amounts[static_cast<std::size_t>(i)]);
    return {};
  }
  return transact([&]() -> Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto done = rows.setMoney(i, field, amounts[static_cast<std::size_t>(i)]); !done)
        return done;
    return {};
  });
}

Result<void> YearSession::summarize(Utility utility) {
  updateTotals(utility);
  return followMonthAmounts(utility);
}

Result<void> YearSession::reload(Utility utility) {
  if (auto done = source(utility).refresh(); !done) return done;
  readMonths(utility);
  readPrices(utility);
  return summarize(utility);
}

Result<void> YearSession::copyToChartTable() {
  struct Copy {
    const RecordSource& from;
    const Field& source;
    const Field& target;
  };
  const Copy copies[] = {{adoStrom, strom::dayConsumption, verbrMonat::day},
                         {adoStrom, strom::nightConsumption, verbrMonat::night},
                         {adoWasser, wasser::consumption, verbrMonat::water},
                         {adoWasser, wasser::wasteConsumption, verbrMonat::wasteWater},
                         {adoGas, gas::consumption, verbrMonat::gas}};
  if (readOnlyReason()) {
    for (const Copy& copy : copies)
      for (int i = 0; i < kMonths; ++i)
        adoVerbrM.keep(i, copy.target, copy.from.raw(i, copy.source));
    return {};
  }
  return transact([&]() -> Result<void> {
    for (const Copy& copy : copies)
      for (int i = 0; i < kMonths; ++i)
        if (auto done = adoVerbrM.setNumber(i, copy.target, copy.from.number(i, copy.source));
            !done)
          return done;
    return {};
  });
}

Result<void> YearSession::transact(const Edit& edit) {
  if (database_.inTransaction()) return edit();
  if (auto begun = database_.begin(); !begun) return begun;
  const FieldValues before = values_;
  auto done = edit();
  if (done) done = database_.commit();
  if (done) return done;
  if (database_.inTransaction()) database_.rollback();
  values_ = before;
  base::ignore(refreshSources(),
               "the edit's own error is the one to tell; kept rows stay readable");
  return done;
}

Result<void> YearSession::storeNumber(const Field& setting, std::optional<double> value) {
  for (const NumberSetting& known : kNumberSettings) {
    if (known.field != &setting) continue;
    return transact([&]() -> Result<void> {
      if (auto done = adoZStaende.setNumber(0, setting, value); !done) return done;
      values_.*known.value = value;
      return summarize(known.utility);
    });
  }
  return base::fail(base::ErrorCode::InvalidValue, std::string(setting.name));
}

Result<void> YearSession::storeBaseFee(const Field& setting, std::optional<Money> value) {
  for (const MoneySetting& known : kMoneySettings) {
    if (known.field != &setting) continue;
    return transact([&]() -> Result<void> {
      if (auto done = adoZStaende.setMoney(0, setting, value); !done) return done;
      values_.*known.value = value;
      return known.summarized ? summarize(known.utility) : Result<void>();
    });
  }
  return base::fail(base::ErrorCode::InvalidValue, std::string(setting.name));
}

Result<void> YearSession::storeStartWater(std::optional<double> value) {
  return transact([&]() -> Result<void> {
    const auto waste = values_.startWasteWater;
    if (auto done = adoZStaende.setNumber(0, zstaende::startWasteWater, waste); !done) return done;
    return storeNumber(zstaende::startWater, value);
  });
}

Result<void> YearSession::storeStartDate(const std::string& text) {
  return transact([&]() -> Result<void> {
    if (auto done = adoZStaende.setText(0, zstaende::startDate, text); !done) return done;
    values_.startDate = text;
    return {};
  });
}

Result<void> YearSession::storeDayPrice(std::optional<double> centPerKwh) {
  return transact([&]() -> Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto done = adoStrom.setNumber(i, strom::dayPrice, orZero(centPerKwh)); !done)
        return done;
    for (int i = 0; i < kMonths; ++i) {
      const Money amount =
          priceInCent(orZero(adoStrom.number(i, strom::dayConsumption)), orZero(centPerKwh));
      if (auto done = adoStrom.setMoney(i, strom::dayAmount, amount); !done) return done;
    }
    values_.dayPrice = centPerKwh;
    return summarize(Utility::Electricity);
  });
}

Result<void> YearSession::storeGasPrice(std::optional<double> centPerKwh) {
  if (!centPerKwh) return {};
  return transact([&]() -> Result<void> {
    values_.gasPrice = centPerKwh;
    return recalculatePrices(Utility::Gas);
  });
}

Result<void> YearSession::storeGasFactor(std::optional<double> kwhPerCubicMetre) {
  return transact([&]() -> Result<void> {
    if (auto done = adoZStaende.setNumber(0, zstaende::gasFactor, kwhPerCubicMetre); !done)
      return done;
    values_.gasFactor = kwhPerCubicMetre;
    for (int i = 0; i < kMonths; ++i) {
      const Money amount =
          priceOfGas(orZero(adoGas.number(i, gas::consumption)), orZero(kwhPerCubicMetre),
                     orZero(adoGas.number(i, gas::price)));
      if (auto done = adoGas.setMoney(i, gas::amount, amount); !done) return done;
    }
    return summarize(Utility::Gas);
  });
}

Result<void> YearSession::recalculatePrices(Utility utility) {
  return transact([&]() -> Result<void> {
    if (auto done = repriceRows(utility); !done) return done;
    return summarize(utility);
  });
}

Result<void> YearSession::repriceRows(Utility utility) {
  for (int i = 0; i < kMonths; ++i) {
    Result<void> done;
    const auto store = [&](RecordSource& rows, const Field& field, Money amount) {
      if (done) done = rows.setMoney(i, field, amount);
    };
    if (utility == Utility::Electricity) {
      const double night = orZero(adoStrom.number(i, strom::nightConsumption));
      // A month without night consumption keeps its night amount.
      if (night > 0)
        store(adoStrom, strom::nightAmount,
              priceInCent(night, orZero(adoStrom.number(i, strom::nightPrice))));
      store(adoStrom, strom::dayAmount,
            priceInCent(orZero(adoStrom.number(i, strom::dayConsumption)),
                        orZero(adoStrom.number(i, strom::dayPrice))));
    } else if (utility == Utility::Water) {
      store(adoWasser, wasser::wasteAmount,
            priceInEuro(orZero(adoWasser.number(i, wasser::wasteConsumption)),
                        orZero(adoWasser.number(i, wasser::wastePrice))));
      store(adoWasser, wasser::amount,
            priceInEuro(orZero(adoWasser.number(i, wasser::consumption)),
                        orZero(adoWasser.number(i, wasser::price))));
    } else {
      const double price = orZero(values_.gasPrice);
      done = adoGas.setNumber(i, gas::price, price);
      store(
          adoGas, gas::amount,
          priceOfGas(orZero(adoGas.number(i, gas::consumption)), orZero(values_.gasFactor), price));
    }
    if (!done) return done;
  }
  return {};
}

Result<void> YearSession::storeAdvance(Utility utility, int position, std::optional<Money> euro) {
  return transact([&]() -> Result<void> {
    if (auto done = source(utility).setMoney(position, *fieldsOf(utility).advance, euro); !done)
      return done;
    values_.advances[at(utility)][static_cast<std::size_t>(position)] = euro;
    updateTotals(utility);
    return {};
  });
}

Result<void> YearSession::zeroAdvances(Utility utility) {
  return transact([&]() -> Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto done = storeAdvance(utility, i, Money()); !done) return done;
    return {};
  });
}

Result<void> YearSession::storeRemark(Utility utility, int position, const std::string& text) {
  return transact([&]() -> Result<void> {
    if (auto done = source(utility).setText(position, *fieldsOf(utility).remark, text); !done)
      return done;
    values_.remarks[at(utility)][static_cast<std::size_t>(position)] = text;
    return {};
  });
}

Result<void> YearSession::shiftStartMonth(Utility utility, int startMonth) {
  return transact([&]() -> Result<void> {
    if (auto done = shiftRows(source(utility), startMonth); !done) return done;
    readMonths(utility);
    readPrices(utility);
    updateTotals(utility);
    return {};
  });
}

Result<void> YearSession::clear(Utility utility) {
  return transact([&]() -> Result<void> {
    const Clearing& clearing = clearingOf(utility);
    for (int i = 0; i < kMonths; ++i)
      for (const Field* field : clearing.monthFields)
        if (auto done = source(utility).setNumber(i, *field, 0); !done) return done;
    for (const Field* field : clearing.settings)
      if (auto done = adoZStaende.setNumber(0, *field, 0); !done) return done;
    if (auto done = copyToChartTable(); !done) return done;
    readMonths(utility);
    updateTotals(utility);
    emptyFields(values_, utility);
    return {};
  });
}

Result<void> YearSession::setNightShown(bool shown) {
  return transact([&]() -> Result<void> {
    const std::string flag = shown ? "on" : "off";
    if (auto done = adoZStaende.setText(0, zstaende::nightDisplay, flag); !done) return done;
    values_.nightShown = shown;
    return {};
  });
}

Result<void> YearSession::setFlatRate(bool on) {
  values_.flatRate = on;
  return summarize(Utility::Electricity);
}

Result<void> YearSession::saveFlatRate() {
  return writeFlatRate(files_, dataFolder_, values_.flatRate);
}

}  // namespace yearbook
