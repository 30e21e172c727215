#include "support/JetDump.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "base/TextCodec.h"

namespace support {
namespace {

using jet::ColumnType;

std::string hex(const std::uint8_t* bytes, std::size_t size, const char* format) {
  std::string text;
  char buffer[8];
  for (std::size_t i = 0; i < size; ++i) {
    std::snprintf(buffer, sizeof buffer, format, bytes[i]);
    text += buffer;
  }
  return text;
}

std::string escaped(const std::string& text) {
  std::string result;
  for (char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (c == '\\') {
      result += "\\\\";
    } else if (c == '\t') {
      result += "\\t";
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\r') {
      result += "\\r";
    } else if (byte < 0x20) {
      result += "\\x" + hex(&byte, 1, "%02x");
    } else {
      result += c;
    }
  }
  return result;
}

// Shortest digits that read back the same; a power of ten from 10^7 on and below 10^-3.
template <class Float>
std::string shortest(Float value) {
  if (value == 0) return std::signbit(value) ? "-0.0" : "0.0";
  if (!std::isfinite(value))
    return std::isnan(value) ? "NaN" : value > 0 ? "Infinity" : "-Infinity";
  char buffer[400];
  const bool plain = std::abs(value) >= Float(1e-3) && std::abs(value) < Float(1e7);
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  std::string text(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, format).ptr);
  if (plain) return text.find('.') == std::string::npos ? text + ".0" : text;
  const std::size_t e = text.find('e');
  std::string digits = text.substr(0, e);
  if (digits.find('.') == std::string::npos) digits += ".0";
  return digits + "E" + std::to_string(std::stoi(text.substr(e + 1)));
}

std::string shownDate(double days) {
  const double day = std::trunc(days);
  const auto seconds = static_cast<long long>(std::llround(std::abs(days - day) * 86400));
  // Days since 1899-12-30 to a date of the calendar, by eras of 400 years.
  long long z = static_cast<long long>(day) + 693899;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const auto dayOfEra = z - era * 146097;
  const auto yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const auto dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const auto month = (5 * dayOfYear + 2) / 153;
  const auto calendarMonth = month < 10 ? month + 3 : month - 9;
  char buffer[128];
  std::snprintf(buffer, sizeof buffer, "%04lld-%02lld-%02lldT%02lld:%02lld",
                yearOfEra + era * 400 + (calendarMonth <= 2 ? 1 : 0), calendarMonth,
                dayOfYear - (153 * month + 2) / 5 + 1, seconds / 3600, seconds / 60 % 60);
  std::string text = buffer;
  if (seconds % 60 != 0) {
    std::snprintf(buffer, sizeof buffer, ":%02lld", seconds % 60);
    text += buffer;
  }
  return text;
}

std::string shownMoney(base::Money money) {
  const std::int64_t count = money.tenThousandths();
  const std::string digits = std::to_string(count < 0 ? 0 - static_cast<std::uint64_t>(count)
                                                      : static_cast<std::uint64_t>(count));
  const std::string padded = std::string(digits.size() < 5 ? 5 - digits.size() : 0, '0') + digits;
  return (count < 0 ? "-" : "") + padded.substr(0, padded.size() - 4) + "." +
         padded.substr(padded.size() - 4);
}

// The first three parts of a GUID are numbers, stored lowest byte first.
std::string shownGuid(const jet::Guid& guid) {
  const auto& b = guid.bytes;
  const std::uint8_t head[] = {b[3], b[2], b[1], b[0], b[5], b[4], b[7], b[6]};
  return "{" + hex(head, 4, "%02X") + "-" + hex(head + 4, 2, "%02X") + "-" +
         hex(head + 6, 2, "%02X") + "-" + hex(&b[8], 2, "%02X") + "-" + hex(&b[10], 6, "%02X") +
         "}";
}

std::string typeName(const jet::Column& column, bool wide) {
  switch (column.type) {
    case ColumnType::Boolean:
      return "BOOLEAN";
    case ColumnType::Byte:
      return "BYTE";
    case ColumnType::Integer:
      return "INT";
    case ColumnType::Long:
      return "LONG";
    case ColumnType::Currency:
      return "MONEY";
    case ColumnType::Single:
      return "FLOAT";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::DateTime:
      return "SHORT_DATE_TIME";
    case ColumnType::Binary:
      return "BINARY(" + std::to_string(column.length) + ")";
    case ColumnType::Text:
      return "TEXT(" + std::to_string(wide ? column.length / 2 : column.length) + ")";
    case ColumnType::Ole:
      return "OLE";
    case ColumnType::Memo:
      return "MEMO";
    case ColumnType::Guid:
      return "GUID";
    case ColumnType::Numeric:
      return "NUMERIC(" + std::to_string(column.length) + ")(" + std::to_string(column.precision) +
             "," + std::to_string(column.scale) + ")";
    case ColumnType::FixedBinary:
      return "UNKNOWN_11";
  }
  return "UNKNOWN";
}

std::string header(const jet::RecordSet& rows, bool wide) {
  std::string text = "== table " + rows.tableName() + "\trows " + std::to_string(rows.count()) +
                     "\tcolumns " + std::to_string(rows.columns().size()) + "\n";
  for (const jet::Column& column : rows.columns()) {
    text += "-- column " + column.name + "\t" + typeName(column, wide);
    if (column.type == ColumnType::Text && column.fixedLength) text += "\tfixed";
    if (column.autoNumber) text += "\tautonumber";
    if (column.compressed) text += "\tcompressed";
    text += "\n";
  }
  for (const jet::Index& index : rows.indexes()) {
    text += "-- index " + index.name;
    for (const jet::IndexColumn& part : index.columns)
      text += "\t" + part.column + (part.ascending ? "+" : "-");
    if (index.primary) text += "\tprimary";
    if (index.foreign) text += "\tforeign";
    if (index.unique) text += "\tunique";
    if (index.ignoreNulls) text += "\tignorenulls";
    if (index.required) text += "\trequired";
    text += "\n";
  }
  text += "#";
  for (const jet::Column& column : rows.columns()) text += "\t" + column.name;
  return text + "\n";
}

}  // namespace

std::string dumpValue(const jet::Column& column, const jet::Value& value) {
  struct Shown {
    bool byte;
    std::string operator()(jet::Null) const { return "\\N"; }
    std::string operator()(bool truth) const { return truth ? "true" : "false"; }
    // The dumps show bytes with a sign.
    std::string operator()(std::int64_t number) const {
      return std::to_string(byte && number > 127 ? number - 256 : number);
    }
    std::string operator()(float number) const { return shortest(number); }
    std::string operator()(double number) const { return shortest(number); }
    std::string operator()(base::Money money) const { return shownMoney(money); }
    std::string operator()(jet::DateTime date) const { return shownDate(date.days); }
    std::string operator()(const std::string& text) const { return escaped(text); }
    std::string operator()(const base::Bytes& bytes) const {
      return "0x" + hex(bytes.data(), bytes.size(), "%02x");
    }
    std::string operator()(const jet::Guid& guid) const { return shownGuid(guid); }
    std::string operator()(const jet::Decimal& decimal) const { return decimal.toString(); }
  };
  return std::visit(Shown{column.type == ColumnType::Byte}, value);
}

base::Result<std::string> dumpTable(jet::Database& database, const std::string& name) {
  auto rows = database.openTable(name);
  if (!rows) return base::Failure(rows.error());
  std::string text = header(*rows, database.formatName() == "Jet 4");
  for (std::size_t i = 0; i < rows->count(); ++i) {
    auto row = rows->row(i);
    if (!row) return base::Failure(row.error());
    text += std::to_string(i);
    for (std::size_t c = 0; c < row->size(); ++c)
      text += "\t" + dumpValue(rows->columns()[c], (*row)[c]);
    text += "\n";
  }
  return text;
}

base::Result<std::string> dumpTables(jet::Database& database) {
  std::string text;
  for (const std::string& name : database.tableNames()) {
    auto table = dumpTable(database, name);
    if (!table) return table;
    text += "\n" + *table;
  }
  return text;
}

}  // namespace support
