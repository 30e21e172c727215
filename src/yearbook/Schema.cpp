#include "yearbook/Schema.h"

#include <array>

#include "base/GermanDate.h"

namespace yearbook {
namespace {

constexpr std::array kStromFields = {
    &strom::month,          &strom::dayReading,       &strom::nightReading,
    &strom::dayConsumption, &strom::nightConsumption, &strom::dayPrice,
    &strom::nightPrice,     &strom::dayAmount,        &strom::nightAmount,
    &strom::monthAmount,    &strom::advance,          &strom::oldAdvance,
    &strom::remark};
constexpr std::array kWasserFields = {
    &wasser::month,       &wasser::reading,          &wasser::wasteReading,
    &wasser::consumption, &wasser::wasteConsumption, &wasser::price,
    &wasser::wastePrice,  &wasser::amount,           &wasser::wasteAmount,
    &wasser::monthAmount, &wasser::advance,          &wasser::remark};
constexpr std::array kGasFields = {&gas::month,  &gas::reading, &gas::consumption, &gas::price,
                                   &gas::amount, &gas::advance, &gas::remark};
constexpr std::array kVerbrMonatFields = {&verbrMonat::day, &verbrMonat::night, &verbrMonat::water,
                                          &verbrMonat::wasteWater, &verbrMonat::gas};
constexpr std::array kZStaendeFields = {
    &zstaende::startDay,        &zstaende::startNight,    &zstaende::baseFeeElectricity,
    &zstaende::vatElectricity,  &zstaende::freeKwh,       &zstaende::startWater,
    &zstaende::startWasteWater, &zstaende::baseFeeWater,  &zstaende::baseFeeWasteWater,
    &zstaende::vatWater,        &zstaende::vatWasteWater, &zstaende::startGas,
    &zstaende::gasFactor,       &zstaende::baseFeeGas,    &zstaende::vatGas,
    &zstaende::nightDisplay,    &zstaende::startDate};

jet::NewColumn newColumn(const Field& field) {
  jet::NewColumn column;
  column.name = field.name;
  switch (field.kind) {
    case Field::Kind::Number:
      column.type = jet::ColumnType::Double;
      break;
    case Field::Kind::Money:
      column.type = jet::ColumnType::Currency;
      break;
    case Field::Kind::Text:
      column.type = jet::ColumnType::Text;
      column.length = field.length;
      break;
  }
  return column;
}

jet::NewTable newTable(const Table& table) {
  jet::NewTable result;
  result.name = table.name;
  for (const Field* field : table.fields) result.columns.push_back(newColumn(*field));
  for (int row = 0; row < table.rows; ++row) {
    std::vector<jet::Value> values(table.fields.size(), jet::Null());
    if (table.fields[0] == &strom::month || table.fields[0] == &wasser::month ||
        table.fields[0] == &gas::month)
      values[0] = std::string(base::kMonthNames[static_cast<std::size_t>(row)]);
    result.rows.push_back(std::move(values));
  }
  return result;
}

}  // namespace

const Table kStrom{"Strom", kStromFields, kMonths};
const Table kWasser{"Wasser", kWasserFields, kMonths};
const Table kGas{"Gas", kGasFields, kMonths};
const Table kVerbrMonat{"VerbrMonat", kVerbrMonatFields, kMonths};
const Table kZStaende{"ZStaende", kZStaendeFields, 1};

std::span<const Table* const> allTables() {
  static constexpr std::array tables = {&kStrom, &kWasser, &kGas, &kVerbrMonat, &kZStaende};
  return tables;
}

std::vector<jet::NewTable> templateTables() {
  std::vector<jet::NewTable> tables;
  for (const Table* table : allTables()) tables.push_back(newTable(*table));
  return tables;
}

}  // namespace yearbook
