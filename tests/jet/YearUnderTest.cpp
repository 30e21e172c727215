#include "YearUnderTest.h"

namespace year {

using base::Result;
using jet::ColumnType;
using jet::RecordSet;
using jet::Value;

namespace {

std::string text(std::size_t length, const char* character) {
  std::string result;
  for (std::size_t i = 0; i < length; ++i) result += character;
  return result;
}

Action field(std::size_t row, double value) {
  return [=](RecordSet& rows) { return set(rows, row, "VTagStrom", value); };
}
Action remark(std::size_t row, std::size_t length) {
  return [=](RecordSet& rows) { return set(rows, row, "Anmerkungen", text(length, "a")); };
}
Action history(std::size_t row, std::size_t length) {
  return [=](RecordSet& rows) { return set(rows, row, "Verlauf", text(length, "x")); };
}

Result<void> insert(RecordSet& rows, const char* month, std::size_t historyLength) {
  auto done = rows.insert(
      {jet::Null(), std::string(month), 1.0, base::Money(), jet::Null(), text(historyLength, "x")});
  return done ? Result<void>() : base::Failure(done.error());
}

}  // namespace

base::Bytes file() {
  jet::NewTable table{"Strom",
                      {{"Nr", ColumnType::Long, 0, true},
                       {"Monat", ColumnType::Text, 50},
                       {"VTagStrom", ColumnType::Double},
                       {"PTagStrom", ColumnType::Currency},
                       {"Anmerkungen", ColumnType::Text, 255},
                       {"Verlauf", ColumnType::Memo}},
                      {{"PrimaryKey", {{"Nr", true}}, true}, {"Monat", {{"Monat", true}}}},
                      {}};
  for (const char* month : kMonths)
    table.rows.push_back(
        {jet::Null(), std::string(month), 1.0, base::Money(), jet::Null(), jet::Null()});
  jet::NewTable gas = table;
  gas.name = "Gas";
  return *jet::createDatabase({table, gas});
}

Result<void> set(RecordSet& rows, std::size_t row, const char* column, const Value& value) {
  return rows.set(row, *rows.columnIndex(column), value);
}

Action everyRow(const char* column, const std::function<Value(std::size_t)>& value) {
  return [=](RecordSet& rows) -> Result<void> {
    for (std::size_t row = 0; row < rows.count(); ++row)
      if (auto done = set(rows, row, column, value(row)); !done) return done;
    return {};
  };
}

Result<void> transact(jet::Database& database, const Action& action) {
  auto rows = database.openTable("Strom");
  if (!rows) return base::Failure(rows.error());
  if (auto begun = database.begin(); !begun) return begun;
  if (auto done = action(*rows); !done) {
    database.rollback();
    return done;
  }
  return database.commit();
}

const std::vector<Scenario>& scenarios() {
  static const std::vector<Scenario> kScenarios = {
      {"OneField", {field(3, 2.5)}},
      {"OneFieldAgainAndAgain", {field(3, 2.5), field(3, 3.5), field(4, 4.5), field(3, 5.5)}},
      {"TwelveRows",
       {everyRow("VTagStrom",
                 [](std::size_t row) { return Value(10.0 + static_cast<double>(row)); }),
        everyRow("PTagStrom",
                 [](std::size_t row) {
                   const auto count = static_cast<std::int64_t>(row) + 1;
                   return Value(base::Money::fromTenThousandths(count));
                 })}},
      {"RowThatGrows", {remark(2, 40), remark(2, 255), remark(2, 3)}},
      {"RowsThatGrowAndMove",
       {everyRow("Anmerkungen", [](std::size_t) { return Value(text(255, "€")); }), remark(5, 10),
        everyRow("Anmerkungen", [](std::size_t) { return Value(jet::Null()); })}},
      {"LongTexts", {history(1, 60), history(1, 9000), history(2, 3000), history(1, 20)}},
      {"KeysThatChange",
       {everyRow("Monat", [](std::size_t row) { return Value(std::string(kMonths[11 - row])); }),
        [](RecordSet& rows) { return set(rows, 0, "Monat", std::string("Zusatz")); }}},
      {"RowsThatComeAndGo",
       {[](RecordSet& rows) {
          return rows.count() > 12 ? Result<void>() : insert(rows, "Zusatz", 9000);
        },
        [](RecordSet& rows) { return rows.erase(rows.count() - 1); },
        [](RecordSet& rows) -> Result<void> {
          for (int i = 0; i < 20; ++i)
            if (auto done = insert(rows, "Mehr", 50); !done) return done;
          while (rows.count() > 9)
            if (auto done = rows.erase(rows.count() / 2); !done) return done;
          return {};
        }}},
  };
  return kScenarios;
}

}  // namespace year
