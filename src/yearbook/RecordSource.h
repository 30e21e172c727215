#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Money.h"
#include "jet/Database.h"
#include "yearbook/Schema.h"

namespace yearbook {

// A field of a row of the year.
struct Cell {
  const Field* field = nullptr;
  int row = 0;
  // clang-tidy takes the comparison with zero for one with a null pointer.
  auto operator<=>(const Cell&) const = default;  // NOLINT(modernize-use-nullptr)
};

// What has become of a cell.
struct CellChange {
  Cell cell;
  jet::Value before, after;
};

// The number that a stored value means: whatever its type, a text that is a number included.
// nullopt when it is empty or means none.
std::optional<double> numberOf(const jet::Value& value);

// One table of the open year: its rows by position, its fields by name, every value read once and
// kept. Writing goes to the database (within the running transaction) and into the kept rows;
// after a rollback refresh() brings back what is stored.
//
// Fields are read in whatever type the file has: a number in an integer, single, double, currency
// or text column, a text in a text or memo column.
class RecordSource {
 public:
  // MissingTable, MissingColumn or WrongShape (too few rows) name what is not as a year needs it.
  static base::Result<RecordSource> open(jet::Database& database, const Table& table);

  const Table& table() const { return *table_; }
  // A memo column, which takes texts of any length.
  bool isMemo(const Field& field) const { return typeOf(field) == jet::ColumnType::Memo; }
  int count() const { return table_->rows; }
  base::Result<void> refresh();

  // nullopt when the field is empty (or holds what is no number).
  std::optional<double> number(int row, const Field& field) const;
  std::optional<base::Money> money(int row, const Field& field) const;
  std::string text(int row, const Field& field) const;
  const jet::Value& raw(int row, const Field& field) const;

  // An empty value clears the field. InvalidValue when the column cannot hold the value; the error
  // names month and field as the household does.
  base::Result<void> setNumber(int row, const Field& field, std::optional<double> value);
  base::Result<void> setMoney(int row, const Field& field, std::optional<base::Money> value);
  base::Result<void> setText(int row, const Field& field, const std::string& value);
  base::Result<void> setRaw(int row, const Field& field, const jet::Value& value);
  // Shows a derived value without storing it, for years that can only be read.
  void keep(int row, const Field& field, jet::Value value);

  // The cells that have been set since the last call, in that order, also to what they held.
  std::vector<CellChange> takeWritten() { return std::exchange(written_, {}); }

 private:
  RecordSource(const Table& table, jet::RecordSet records);
  std::size_t fieldIndex(const Field& field) const;
  jet::ColumnType typeOf(const Field& field) const;
  base::Error named(base::Error error, int row, const Field& field) const;

  const Table* table_;
  jet::RecordSet records_;
  std::vector<std::size_t> columns_;             // per field of the table: column of the record set
  std::vector<std::vector<jet::Value>> values_;  // rows x fields
  std::vector<CellChange> written_;
};

}  // namespace yearbook
