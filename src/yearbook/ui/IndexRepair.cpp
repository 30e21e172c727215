#include "yearbook/ui/IndexRepair.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace yearbook {

std::vector<std::string> tablesWithDamagedIndex(const jet::Database& database) {
  std::vector<std::string> tables;
  for (const jet::Finding& finding : database.warnings()) {
    const bool known = std::find(tables.begin(), tables.end(), finding.table) != tables.end();
    if (!finding.table.empty() && !known) tables.push_back(finding.table);
  }
  return tables;
}

QString damagedIndexNotice(const std::vector<std::string>& tables) {
  QString names;
  for (const std::string& table : tables)
    names += (names.isEmpty() ? QString() : u", "_s) + QString::fromStdString(table);
  return u"Die Zeilen dieses Jahres sind in Ordnung, ein Index ist es nicht (Tabelle "_s + names +
         u")."_s;
}

QString indexRepairQuestion(const std::vector<std::string>& tables) {
  return damagedIndexNotice(tables) + u"\nSoll der Index aus den Zeilen neu aufgebaut werden?"_s;
}

base::Result<void> rebuildIndexes(YearSession& session, const std::vector<std::string>& tables) {
  return session.transact([&]() -> base::Result<void> {
    for (const std::string& table : tables)
      if (auto done = session.database().rebuildIndexes(table); !done) return done;
    return {};
  });
}

}  // namespace yearbook
