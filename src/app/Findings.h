#pragma once

#include <string>
#include <vector>

#include "jet/Database.h"

// What the check of a database has found, for a person.
namespace app {

// One line: where, and what is wrong. "Strom, Seite 42: ...".
std::string describe(const jet::Finding& finding);
// What to do about all of them together, one or two sentences; empty when there are none.
std::string advice(const std::vector<jet::Finding>& findings);

}  // namespace app
