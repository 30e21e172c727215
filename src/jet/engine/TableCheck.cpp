#include "jet/engine/TableCheck.h"

#include <algorithm>

#include "jet/engine/Damage.h"
#include "jet/engine/IndexPage.h"
#include "jet/engine/LongValue.h"
#include "jet/engine/TableIndexes.h"
#include "jet/engine/UsageMap.h"

namespace jet {
namespace {

using Kind = PageUse::Kind;

bool contains(const std::vector<std::uint32_t>& sorted, std::uint32_t page) {
  return std::binary_search(sorted.begin(), sorted.end(), page);
}

}  // namespace

void TableCheck::run() {
  auto opened = Table::openDefinition(*pager_, definition_, name_);
  if (!opened) {
    use_->markIncomplete();
    return use_->report(opened.error(), name_);
  }
  table_ = std::move(*opened);
  for (const std::uint32_t page : table_->def().pages)
    use_->claim(page, Kind::Definition, definition_, name_);
  checkMaps();
  for (const std::uint32_t page : pages_) checkPage(page);
  // Rows are compared with each other and with the indexes only when all of them can be found.
  if (auto found = table_->scan(); !found) {
    use_->markIncomplete();
    return use_->report(found.error(), name_);
  }
  checkRows();
}

void TableCheck::checkRows() {
  for (std::size_t i = 0; i < table_->rowCount() && !use_->isFull(); ++i) checkRow(i);
  checkTargets();
  for (const ColumnDef& column : table_->def().columns)
    if (column.isLongValue()) checkLongValues(column);
  checkIndexes();
  checkRowCount();
}

// System tables count carelessly. A row more than counted is there all the same; one less is lost.
void TableCheck::checkRowCount() {
  const TableDef& def = table_->def();
  if (def.systemTable || def.rowCount == table_->rowCount()) return;
  constexpr char kReason[] = "the table has %1 rows instead of %2";
  if (def.rowCount > table_->rowCount())
    use_->report(definition_, name_, kReason, table_->rowCount(), def.rowCount);
  else
    use_->warn(definition_, name_, kReason, table_->rowCount(), def.rowCount);
}

void TableCheck::checkMaps() {
  if (!claimMap(table_->def().ownedPages, pages_)) return;
  for (const std::uint32_t page : pages_) use_->claim(page, Kind::Rows, definition_, name_);
  checkHint(pages_, table_->def().freeSpacePages,
            "the map of pages with room names a page of others");
}

bool TableCheck::claimMap(RowPointer map, std::vector<std::uint32_t>& pages) {
  auto row = UsageMapRow::read(*pager_, map);
  if (!row) {
    use_->report(row.error(), name_);
    return false;
  }
  use_->claim(map.page, Kind::Maps, 0, name_);
  use_->claimRow(map, name_, "page map %1 is used twice");
  if (row->form() == format::UsageMapForm::Reference)
    for (std::size_t i = 0; i < row->bitmapCount(); ++i)
      if (row->bitmapPage(i) != 0) use_->claim(row->bitmapPage(i), Kind::Bitmap, 0, name_);
  auto found = UsageMap(*pager_, map).pages();
  if (!found) {
    use_->report(found.error(), name_);
    return false;
  }
  pages = std::move(*found);
  return true;
}

void TableCheck::checkHint(const std::vector<std::uint32_t>& owned, RowPointer hint,
                           const char* strange) {
  std::vector<std::uint32_t> pages;
  if (!claimMap(hint, pages)) return;
  for (const std::uint32_t page : pages)
    if (!contains(owned, page)) use_->report(page, name_, strange);
}

void TableCheck::checkPage(std::uint32_t number) {
  auto page = pager_->page(number, format::PageKind::Data);
  if (!page) return use_->report(page.error(), name_);
  auto rows = DataPage::parse(pager_->version(), number, **page);
  if (!rows) return use_->report(rows.error(), name_);
  if (auto sound = rows->checkSlots(); !sound) return use_->report(sound.error(), name_);
  if (rows->storedFreeBytes() != rows->freeBytes())
    use_->warn(number, name_, "the page's free bytes are counted wrongly");
  for (std::size_t i = 0; i < rows->slotCount(); ++i)
    if (rows->slot(i)->state == SlotState::Target)
      targets_.insert({number, static_cast<std::uint8_t>(i)});
}

void TableCheck::checkRow(std::size_t position) {
  const RowPointer home = table_->row(position);
  auto row = table_->stored(home);
  if (!row) return use_->report(row.error(), name_);
  if (row->place != home && !reached_.insert(row->place).second)
    use_->report(row->place.page, name_, "two pointers lead to the same row");
  auto view = RowView::parse(pager_->version(), table_->def(), row->bytes);
  if (!view) return use_->report(at(row->place.page, view.error()).value(), name_);
  for (std::size_t column = 0; column < table_->def().columns.size(); ++column) {
    const ColumnDef& def = table_->def().columns[column];
    auto value = table_->decode(*view, column);
    if (!value && value.error().code != ErrorCode::Unsupported)
      use_->report(at(row->place.page, value.error()).value(), name_);
    if (!value || !def.isLongValue()) continue;
    if (const auto field = view->field(def)) claimLongValue(def, *field);
  }
}

void TableCheck::checkTargets() {
  for (const RowPointer target : targets_)
    if (reached_.count(target) == 0)
      use_->report(target.page, name_, "no pointer leads to the moved row %1", target.slot);
}

void TableCheck::claimLongValue(const ColumnDef& column, ByteSpan field) {
  auto rows = longValueRows(*pager_, field);
  if (!rows) return;  // reading the value has told
  for (const RowPointer row : *rows)
    use_->claimRow(row, name_ + "." + column.column.name, "part %1 of long values is used twice");
}

void TableCheck::checkLongValues(const ColumnDef& column) {
  if (!column.ownedPages || !column.freeSpacePages) return;
  // In some of Access' own tables the lists do not exist; nothing depends on them.
  if (table_->def().systemTable && !UsageMapRow::read(*pager_, *column.ownedPages)) return;
  std::vector<std::uint32_t> owned;
  if (!claimMap(*column.ownedPages, owned)) return;
  checkHint(owned, *column.freeSpacePages,
            "the map of long value pages with room names a page of others");
  const std::string subject = name_ + "." + column.column.name;
  std::size_t orphans = 0;
  std::uint32_t firstOrphan = 0;
  for (const std::uint32_t number : owned) {
    use_->claim(number, Kind::LongValues, definition_, subject);
    auto page = pager_->page(number, format::PageKind::Data);
    if (!page) {
      use_->report(page.error(), subject);
      continue;
    }
    auto rows = DataPage::parse(pager_->version(), number, **page);
    auto sound = rows ? rows->checkSlots() : base::Result<void>();
    if (!rows || !sound) {
      use_->report(rows ? sound.error() : rows.error(), subject);
      continue;
    }
    if (rows->owner() != format::kLongValueOwner)
      use_->report(number, subject, "the page is none of long values");
    for (std::size_t i = 0; i < rows->slotCount(); ++i) {
      const RowPointer row{number, static_cast<std::uint8_t>(i)};
      if (rows->slot(i)->state == SlotState::Row && !use_->isClaimed(row) && orphans++ == 0)
        firstOrphan = number;
    }
  }
  // Some programs leave them behind when they delete a row.
  if (orphans > 0)
    use_->warn(firstOrphan, subject, "%1 stored long values belong to no row", orphans);
}

void TableCheck::checkIndexes() {
  TableIndexes indexes(*pager_, *table_);
  for (std::size_t i = 0; i < table_->def().indexes.size(); ++i) {
    std::vector<std::uint32_t> tree;
    if (auto sound = indexes.verify(i, &tree); !sound) {
      // Damage of rows has been reported with the rows.
      if (sound.error().code == ErrorCode::IndexDamaged) use_->report(sound.error(), name_);
    }
    checkIndexPages(i, tree);
  }
}

void TableCheck::checkIndexPages(std::size_t i, const std::vector<std::uint32_t>& tree) {
  const IndexDef& index = table_->def().indexes[i];
  const std::string subject = name_ + ", Index " + index.name;
  for (const std::uint32_t number : tree) {
    use_->claim(number, Kind::Index, definition_, subject);
    auto page = pager_->page(number);
    if (!page) continue;
    const std::size_t free = pager_->version().indexPage.freeBytes.get(**page);
    if (IndexPage::usedBytes(**page, pager_->version()) + free != pager_->version().indexRoom())
      use_->warn(number, subject, "the page's free bytes are counted wrongly");
  }
  std::vector<std::uint32_t> listed;
  if (!claimMap(index.pages, listed) || tree.empty()) return;
  for (const std::uint32_t number : tree)
    if (!contains(listed, number))
      use_->report(number, subject, "the index page is missing in the index' page map");
  std::vector<std::uint32_t> sorted = tree;
  std::sort(sorted.begin(), sorted.end());
  for (const std::uint32_t number : listed)
    if (!contains(sorted, number))
      use_->warn(number, subject, "the index' page map names a page that is not of it");
}

}  // namespace jet
