#include "yearbook/YearSummary.h"

#include <initializer_list>

#include "jet/Database.h"
#include "yearbook/RecordSource.h"
#include "yearbook/Schema.h"

namespace yearbook {
namespace {

int monthsWith(const RecordSource& rows, std::initializer_list<const Field*> fields) {
  int months = 0;
  for (int row = 0; row < rows.count(); ++row) {
    bool filled = false;
    for (const Field* field : fields) filled |= rows.number(row, *field).value_or(0) != 0;
    months += filled;
  }
  return months;
}

bool hasNumbers(const RecordSource& rows) {
  for (int row = 0; row < rows.count(); ++row)
    for (const Field* field : rows.table().fields)
      if (field->kind != Field::Kind::Text && rows.number(row, *field).value_or(0) != 0)
        return true;
  return false;
}

}  // namespace

base::Result<YearSummary> summarizeYear(base::FileSystem& files, const std::string& path) {
  jet::OpenOptions options;
  options.readOnly = true;
  auto database = jet::Database::open(files, path, options);
  if (!database) return base::Failure(database.error());
  YearSummary summary;
  for (const Table* table : allTables()) {
    const auto rows = RecordSource::open(*database, *table);
    if (!rows) return base::Failure(rows.error());
    if (table == &kStrom)
      summary.electricity = monthsWith(*rows, {&strom::dayReading, &strom::nightReading,
                                               &strom::dayConsumption, &strom::nightConsumption});
    if (table == &kWasser)
      summary.water = monthsWith(*rows, {&wasser::reading, &wasser::wasteReading,
                                         &wasser::consumption, &wasser::wasteConsumption});
    if (table == &kGas) summary.gas = monthsWith(*rows, {&gas::reading, &gas::consumption});
    summary.hasEntries |= hasNumbers(*rows);
  }
  return summary;
}

std::string describe(const YearSummary& summary) {
  std::string text;
  const auto add = [&](int months, const char* name) {
    if (months == 0) return;
    const char* unit = months == 1 ? " Monat " : " Monate ";
    text +=
        (text.empty() ? "" : ", ") + std::to_string(months) + (text.empty() ? unit : " ") + name;
  };
  add(summary.electricity, "Strom");
  add(summary.water, "Wasser");
  add(summary.gas, "Gas");
  if (!text.empty()) return text;
  return summary.hasEntries ? "noch keine Ablesung" : "leer";
}

}  // namespace yearbook
