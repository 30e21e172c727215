// Changes one field of an Access file: ChangeCell FILE TABLE ROW COLUMN VALUE
// Rows count from 0. VALUE is a number for columns of numbers, true or false for those of truth,
// else text; "null" empties the field.
#include <cstdlib>
#include <iostream>
#include <string>

#include "base/File.h"
#include "jet/Database.h"

namespace {

jet::Value valueFor(const jet::Column& column, const std::string& text) {
  if (text == "null") return jet::Null();
  switch (column.type) {
    case jet::ColumnType::Text:
    case jet::ColumnType::Memo:
      return text;
    case jet::ColumnType::Boolean:
      return text == "true";
    default:
      // The engine stores a number in the column's own type, or says that it does not fit.
      return std::strtod(text.c_str(), nullptr);
  }
}

base::Result<void> change(jet::Database& database, const std::string& table, std::size_t row,
                          const std::string& columnName, const std::string& text) {
  auto rows = database.openTable(table);
  if (!rows) return base::Failure(rows.error());
  const auto column = rows->columnIndex(columnName);
  if (!column) return base::fail(base::ErrorCode::MissingColumn, columnName, database.path());
  if (auto begun = database.begin(); !begun) return begun;
  // A transaction that is not committed leaves nothing behind.
  const jet::Value value = valueFor(rows->columns()[*column], text);
  if (auto done = rows->set(row, *column, value); !done) return done;
  return database.commit();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::cerr << "ChangeCell FILE TABLE ROW COLUMN VALUE\n";
    return 2;
  }
  const auto files = base::makeDiskFileSystem();
  auto database = jet::Database::open(*files, argv[1]);
  auto done = database
                  ? change(*database, argv[2], std::strtoul(argv[3], nullptr, 10), argv[4], argv[5])
                  : base::Failure(database.error());
  if (done) return 0;
  std::cerr << base::describe(done.error()) << '\n';
  return 1;
}
