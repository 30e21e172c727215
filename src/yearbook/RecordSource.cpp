#include "yearbook/RecordSource.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

#include "base/GermanNumber.h"

namespace yearbook {
namespace {

using base::ErrorCode;
using base::Money;
using base::Result;
using jet::ColumnType;
using jet::Value;

// A single-precision 21.45 is meant as 21.45, not as 21.450000762939453: its shortest decimal form.
double asTyped(float value) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  double result = value;
  std::from_chars(buffer.data(), end.ptr, result);
  return result;
}

struct ToNumber {
  std::optional<double> operator()(std::int64_t value) const { return static_cast<double>(value); }
  std::optional<double> operator()(float value) const { return finite(asTyped(value)); }
  std::optional<double> operator()(double value) const { return finite(value); }
  std::optional<double> operator()(Money value) const { return value.toDouble(); }
  std::optional<double> operator()(const std::string& text) const {
    return base::parseNumber(text);
  }
  std::optional<double> operator()(const jet::Decimal& value) const { return value.toDouble(); }
  template <class T>
  std::optional<double> operator()(const T&) const {
    return std::nullopt;
  }

 private:
  static std::optional<double> finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
  }
};

bool isText(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isNumeric(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::Numeric:
      return true;
    default:
      return false;
  }
}

bool serves(const Field& field, ColumnType type) {
  // Older templates keep the free kWh as a number, this one as a text.
  if (isText(type)) return true;
  return isNumeric(type) && (field.kind != Field::Kind::Text || &field == &zstaende::freeKwh);
}

base::Error shapeError(ErrorCode code, std::string subject, std::string detail) {
  base::Error error;
  error.code = code;
  error.subject = std::move(subject);
  error.detail = std::move(detail);
  return error;
}

// In the household's words; what the file calls it means nothing to the user.
std::string qualified(const Table& table, const Field& field) {
  return std::string(table.name) + ": " + std::string(field.words);
}

}  // namespace

std::optional<double> numberOf(const Value& value) {
  return std::visit(ToNumber(), value);
}

RecordSource::RecordSource(const Table& table, jet::RecordSet records)
    : table_(&table), records_(std::move(records)) {}

Result<RecordSource> RecordSource::open(jet::Database& database, const Table& table) {
  auto records = database.openTable(table.name);
  if (!records) return base::Failure(records.error());
  RecordSource source(table, std::move(*records));
  for (const Field* field : table.fields) {
    const auto column = source.records_.columnIndex(field->name);
    if (!column) {
      base::Error error = shapeError(ErrorCode::MissingColumn, qualified(table, *field), "");
      error.file = database.path();
      return base::fail(error);
    }
    if (!serves(*field, source.records_.columns()[*column].type)) {
      base::Error error = shapeError(ErrorCode::WrongShape, qualified(table, *field),
                                     "das Feld hat einen anderen Datentyp");
      error.file = database.path();
      return base::fail(error);
    }
    source.columns_.push_back(*column);
  }
  if (auto filled = source.refresh(); !filled) {
    base::Error error = filled.error();
    if (error.file.empty()) error.file = database.path();
    return base::fail(error);
  }
  return source;
}

Result<void> RecordSource::refresh() {
  if (auto positions = records_.refresh(); !positions) return positions;
  const auto rows = static_cast<std::size_t>(table_->rows);
  if (records_.count() < rows)
    return base::fail(shapeError(
        ErrorCode::WrongShape, std::string(table_->name),
        std::to_string(records_.count()) + " statt " + std::to_string(rows) + " Zeilen"));
  std::vector<std::vector<Value>> values(rows, std::vector<Value>(columns_.size()));
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t field = 0; field < columns_.size(); ++field) {
      auto value = records_.value(row, columns_[field]);
      if (!value) return base::Failure(value.error());
      values[row][field] = std::move(*value);
    }
  }
  values_ = std::move(values);
  return {};
}

std::size_t RecordSource::fieldIndex(const Field& field) const {
  for (std::size_t i = 0; i < table_->fields.size(); ++i)
    if (table_->fields[i] == &field) return i;
  assert(false && "field of another table");
  return 0;
}

jet::ColumnType RecordSource::typeOf(const Field& field) const {
  return records_.columns()[columns_[fieldIndex(field)]].type;
}

const Value& RecordSource::raw(int row, const Field& field) const {
  return values_.at(static_cast<std::size_t>(row)).at(fieldIndex(field));
}

std::optional<double> RecordSource::number(int row, const Field& field) const {
  return numberOf(raw(row, field));
}

std::optional<Money> RecordSource::money(int row, const Field& field) const {
  const Value& value = raw(row, field);
  if (const auto* money = std::get_if<Money>(&value)) return *money;
  const auto number = numberOf(value);
  return number ? Money::tryRoundHalfEven(*number) : std::nullopt;
}

std::string RecordSource::text(int row, const Field& field) const {
  const Value& value = raw(row, field);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  const auto number = numberOf(value);
  return number ? base::formatShort(*number) : std::string();
}

base::Error RecordSource::named(base::Error error, int row, const Field& field) const {
  if (!error.subject.empty() && error.code != ErrorCode::InvalidValue) return error;
  const Field& first = *table_->fields[0];
  error.subject = std::string(field.words);
  if (&first != &field && first.kind == Field::Kind::Text)
    error.subject = text(row, first) + ", " + error.subject;
  return error;
}

Result<void> RecordSource::setRaw(int row, const Field& field, const Value& value) {
  const std::size_t index = fieldIndex(field);
  Value& kept = values_.at(static_cast<std::size_t>(row)).at(index);
  written_.push_back({{&field, row}, kept, kept});
  if (kept == value) return {};
  if (auto stored = records_.set(static_cast<std::size_t>(row), columns_[index], value); !stored)
    return base::fail(named(stored.error(), row, field));
  // The column's type decides what is stored (a double may become a long): keep what is there.
  auto read = records_.value(static_cast<std::size_t>(row), columns_[index]);
  if (!read) return base::fail(named(read.error(), row, field));
  kept = std::move(*read);
  written_.back().after = kept;
  return {};
}

void RecordSource::keep(int row, const Field& field, Value value) {
  values_.at(static_cast<std::size_t>(row)).at(fieldIndex(field)) = std::move(value);
}

Result<void> RecordSource::setNumber(int row, const Field& field, std::optional<double> value) {
  if (!value) return setRaw(row, field, jet::Null());
  // A single 21.45 is that number already, though not to the last digit of a double.
  if (number(row, field) == value) return setRaw(row, field, raw(row, field));
  const ColumnType type = typeOf(field);
  if (isText(type)) return setRaw(row, field, base::formatShort(*value));
  if (type != ColumnType::Currency) return setRaw(row, field, *value);
  if (const auto money = Money::tryRoundHalfEven(*value)) return setRaw(row, field, *money);
  return base::fail(
      named(shapeError(ErrorCode::InvalidValue, {}, "der Betrag ist zu groß"), row, field));
}

Result<void> RecordSource::setMoney(int row, const Field& field, std::optional<Money> value) {
  if (!value) return setRaw(row, field, jet::Null());
  if (typeOf(field) == ColumnType::Currency) return setRaw(row, field, *value);
  return setNumber(row, field, value->toDouble());
}

Result<void> RecordSource::setText(int row, const Field& field, const std::string& value) {
  // Text columns may forbid the empty text; a cleared field is an empty one.
  if (value.empty()) return setRaw(row, field, jet::Null());
  if (isText(typeOf(field))) return setRaw(row, field, value);
  if (const auto number = base::parseNumber(value)) return setNumber(row, field, number);
  return base::fail(named(
      shapeError(ErrorCode::InvalidValue, {}, "\"" + value + "\" ist keine Zahl"), row, field));
}

}  // namespace yearbook
