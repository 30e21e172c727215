#include "yearbook/IndexRepair.h"

#include <algorithm>

namespace yearbook {

std::vector<std::string> tablesWithDamagedIndex(const jet::Database& database) {
  std::vector<std::string> tables;
  for (const jet::Finding& finding : database.warnings()) {
    const bool known = std::find(tables.begin(), tables.end(), finding.table) != tables.end();
    if (!finding.table.empty() && !known) tables.push_back(finding.table);
  }
  return tables;
}

std::string damagedIndexNotice(const std::vector<std::string>& tables) {
  std::string names;
  for (const std::string& table : tables) names += (names.empty() ? "" : ", ") + table;
  return "Die Zeilen dieses Jahres sind in Ordnung, ein Index ist es nicht (Tabelle " + names +
         ").";
}

std::string indexRepairQuestion(const std::vector<std::string>& tables) {
  return damagedIndexNotice(tables) + "\nSoll der Index aus den Zeilen neu aufgebaut werden?";
}

base::Result<void> rebuildIndexes(YearSession& session, const std::vector<std::string>& tables) {
  return session.transact({}, [&](YearRows&) -> base::Result<void> {
    for (const std::string& table : tables)
      if (auto done = session.database().rebuildIndexes(table); !done) return done;
    return {};
  });
}

}  // namespace yearbook
