#pragma once

#include <string>

#include "jet/engine/PageUse.h"
#include "jet/engine/Table.h"

namespace jet {

// Checks one table with everything that belongs to it: definition, maps, pages, rows, long texts,
// indexes. Reads only; what is wrong goes to the page use.
class TableCheck {
 public:
  TableCheck(Pager& pager, PageUse& use, std::uint32_t definition, std::string name)
      : pager_(&pager), use_(&use), definition_(definition), name_(std::move(name)) {}

  void run();

 private:
  void checkMaps();
  // The pages of a map, its own row and bitmap pages claimed; false when it cannot be read.
  bool claimMap(RowPointer map, std::vector<std::uint32_t>& pages);
  void checkHint(const std::vector<std::uint32_t>& owned, RowPointer hint, const char* strange);
  void checkPage(std::uint32_t number);
  void checkRows();
  void checkRow(std::size_t position);
  void checkRowCount();
  void checkTargets();
  void claimLongValue(const ColumnDef& column, base::ByteSpan field);
  void checkLongValues(const ColumnDef& column);
  void checkIndexes();
  void checkIndexPages(std::size_t index, const std::vector<std::uint32_t>& tree);

  Pager* pager_;
  PageUse* use_;
  std::uint32_t definition_;
  std::string name_;
  std::unique_ptr<Table> table_;
  std::vector<std::uint32_t> pages_;
  std::set<RowPointer> targets_;  // rows that lie away from home
  std::set<RowPointer> reached_;  // those of them that a pointer leads to
};

}  // namespace jet
