#include "yearbook/YearCheck.h"

#include <algorithm>
#include <cmath>

#include "base/Paths.h"
#include "yearbook/RecordSource.h"

namespace yearbook {
namespace {

bool isMeantAsYear(const jet::Database& database) {
  const std::string path = base::lowerCase(database.path());
  if (path.ends_with(".kwd") || path.ends_with(".kwx")) return true;
  const auto names = database.tableNames();
  return std::any_of(names.begin(), names.end(), [](const std::string& name) {
    const auto& tables = allTables();
    return std::any_of(tables.begin(), tables.end(), [&](const Table* table) {
      return base::equalsIgnoreCase(table->name, name);
    });
  });
}

bool isAboutShape(base::ErrorCode code) {
  return code == base::ErrorCode::MissingTable || code == base::ErrorCode::MissingColumn ||
         code == base::ErrorCode::WrongShape;
}

// A wrong bit in the type of a column makes an amount of a number and a number of an amount:
// hundreds of trillions, and numbers smaller than anybody can enter.
bool isOfAnotherKind(const jet::Value& value) {
  constexpr std::int64_t kHuge = 4'000'000'000'000'000'000;
  if (const auto* number = std::get_if<double>(&value))
    return std::fpclassify(*number) == FP_SUBNORMAL;
  const auto* money = std::get_if<base::Money>(&value);
  return money != nullptr && (money->tenThousandths() > kHuge || money->tenThousandths() < -kHuge);
}

void checkKinds(const RecordSource& rows, std::vector<jet::Finding>& findings) {
  const std::string table(rows.table().name);
  for (const Field* field : rows.table().fields) {
    int row = 0;
    while (row < rows.count() && !isOfAnotherKind(rows.raw(row, *field))) ++row;
    if (row == rows.count()) continue;
    auto error = base::fail(base::ErrorCode::Damaged, "die Werte haben einen anderen Datentyp");
    error.value().subject = table + ": " + std::string(field->words);
    findings.push_back({error.value(), false, table});
  }
}

}  // namespace

std::vector<jet::Finding> checkYear(jet::Database& database) {
  std::vector<jet::Finding> findings = database.check();
  if (!isMeantAsYear(database)) return findings;
  for (const Table* table : allTables()) {
    const auto rows = RecordSource::open(database, *table);
    if (rows)
      checkKinds(*rows, findings);
    else if (isAboutShape(rows.error().code))  // what is damaged has been found by now
      findings.push_back({rows.error(), false, std::string(table->name)});
  }
  return findings;
}

}  // namespace yearbook
