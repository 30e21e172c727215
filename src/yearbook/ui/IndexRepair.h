#pragma once

#include <QString>
#include <string>
#include <vector>

#include "yearbook/YearSession.h"

// A year whose rows are sound but one of whose indexes is not: what is offered to the user.
namespace yearbook {

std::vector<std::string> tablesWithDamagedIndex(const jet::Database& database);
QString damagedIndexNotice(const std::vector<std::string>& tables);
QString indexRepairQuestion(const std::vector<std::string>& tables);
base::Result<void> rebuildIndexes(YearSession& session, const std::vector<std::string>& tables);

}  // namespace yearbook
