#pragma once

#include <string>
#include <vector>

#include "yearbook/YearSession.h"

// A year whose rows are sound but one of whose indexes is not: what is offered to the user, UTF-8.
namespace yearbook {

std::vector<std::string> tablesWithDamagedIndex(const jet::Database& database);
std::string damagedIndexNotice(const std::vector<std::string>& tables);
std::string indexRepairQuestion(const std::vector<std::string>& tables);
base::Result<void> rebuildIndexes(YearSession& session, const std::vector<std::string>& tables);

}  // namespace yearbook
