// Prints every table of an Access file as comma-separated values: TablesAsCsv FILE
#include <chrono>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <string>

#include "base/File.h"
#include "jet/Database.h"

namespace {

int failed(const base::Error& error) {
  std::cerr << base::describe(error) << '\n';
  return 1;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) result += c == '"' ? "\"\"" : std::string(1, c);
  return result + '"';
}

template <class Number>
std::string formatted(const char* format, Number number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

template <class List>
std::string hex(const List& bytes) {
  std::string text;
  for (const unsigned byte : bytes) text += formatted("%02x", byte);
  return text;
}

// Days since 1899-12-30; the fraction counts forwards before that day as well.
std::string date(jet::DateTime value) {
  using namespace std::chrono;
  const double day = std::trunc(value.days);
  const year_month_day ymd(sys_days(1899y / December / 30) + days(static_cast<int>(day)));
  const auto seconds = static_cast<int>(std::lround(std::abs(value.days - day) * 86400));
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(ymd.year()),
                static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()),
                seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}

// One overload per alternative of jet::Value.
struct Field {
  std::string operator()(jet::Null) const { return ""; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(float value) const { return formatted("%.9g", double{value}); }
  std::string operator()(double value) const { return formatted("%.17g", value); }
  std::string operator()(base::Money value) const {
    return formatted("%.4f", static_cast<double>(value.tenThousandths()) / 10000);
  }
  std::string operator()(jet::DateTime value) const { return date(value); }
  std::string operator()(const std::string& value) const { return quoted(value); }
  std::string operator()(const base::Bytes& value) const { return hex(value); }
  std::string operator()(const jet::Guid& value) const { return hex(value.bytes); }
  std::string operator()(const jet::Decimal& value) const { return value.toString(); }
};

base::Result<void> print(const jet::RecordSet& rows) {
  std::cout << rows.tableName() << '\n';
  const char* separator = "";
  for (const jet::Column& column : rows.columns()) {
    std::cout << separator << quoted(column.name);
    separator = ",";
  }
  std::cout << '\n';
  for (std::size_t row = 0; row < rows.count(); ++row) {
    const auto values = rows.row(row);
    if (!values) return base::Failure(values.error());
    separator = "";
    for (const jet::Value& value : *values) {
      std::cout << separator << std::visit(Field(), value);
      separator = ",";
    }
    std::cout << '\n';
  }
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "TablesAsCsv FILE\n";
    return 2;
  }
  const auto files = base::makeDiskFileSystem();
  auto database = jet::Database::open(*files, argv[1], {.readOnly = true});
  if (!database) return failed(database.error());
  for (const std::string& name : database->tableNames()) {
    const auto rows = database->openTable(name);
    if (!rows) return failed(rows.error());
    if (const auto printed = print(*rows); !printed) return failed(printed.error());
    std::cout << '\n';
  }
  return 0;
}
