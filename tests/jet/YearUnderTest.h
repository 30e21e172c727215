#pragma once

#include <functional>
#include <string>
#include <vector>

#include "jet/Creator.h"
#include "jet/Database.h"

// A small year and the kinds of changes that users make to it, for the tests of what happens when
// something goes wrong in between.
namespace year {

inline constexpr const char* kMonths[] = {"Januar",    "Februar", "März",     "April",
                                          "Mai",       "Juni",    "Juli",     "August",
                                          "September", "Oktober", "November", "Dezember"};

// Tables Strom and Gas of twelve rows with a counting key, an index on Monat, and a column of each
// kind that behaves in its own way: fixed length, text, long text.
base::Bytes file();

// The changes of one user action in the table Strom.
using Action = std::function<base::Result<void>(jet::RecordSet&)>;

// In a transaction of its own; rolled back when the action fails.
base::Result<void> transact(jet::Database& database, const Action& action);

struct Scenario {
  const char* name;
  std::vector<Action> actions;  // one transaction each
};
// A single field, twelve rows, rows that grow, move and shrink, long texts, keys that change.
const std::vector<Scenario>& scenarios();

base::Result<void> set(jet::RecordSet& rows, std::size_t row, const char* column,
                       const jet::Value& value);
Action everyRow(const char* column, const std::function<jet::Value(std::size_t)>& value);

}  // namespace year
