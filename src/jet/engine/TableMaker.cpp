#include "jet/engine/TableMaker.h"

#include <algorithm>
#include <cstring>

#include "jet/engine/CatalogRows.h"
#include "jet/engine/Damage.h"
#include "jet/engine/DataPage.h"
#include "jet/engine/IndexTree.h"
#include "jet/engine/NewTableDef.h"
#include "jet/engine/PageAllocator.h"
#include "jet/engine/TableEditor.h"

namespace jet {
namespace {

constexpr std::size_t kPageHead = sizeof(format::TableDefPage);

Result<void> addMaps(MapPages& maps, TableDef& table) {
  Result<void> done;
  const auto add = [&](RowPointer& map) {
    if (!done) return;
    auto added = maps.add();
    if (added)
      map = *added;
    else
      done = Failure(added.error());
  };
  add(table.ownedPages);
  add(table.freeSpacePages);
  for (ColumnDef& column : table.columns) {
    if (!column.isLongValue()) continue;
    add(column.ownedPages.emplace());
    add(column.freeSpacePages.emplace());
  }
  for (IndexDef& index : table.indexes) add(index.pages);
  return done;
}

// Each page begins with a head of its own; the definition runs on behind it.
Result<void> writeDefinition(Pager& pager, const TableDef& table, const Bytes& bytes) {
  const std::size_t room = pager.version().pageSize - kPageHead;
  for (std::size_t i = 0; i < table.pages.size(); ++i) {
    auto target = pager.edit(table.pages[i]);
    if (!target) return Failure(target.error());
    const std::size_t start = kPageHead + i * room;
    const std::size_t length = std::min(room, bytes.size() - start);
    format::TableDefPage head{};
    head.kind = static_cast<std::uint8_t>(format::PageKind::TableDef);
    head.used = 1;
    // A page of the definition keeps eight bytes of what is left to itself.
    const auto left = static_cast<std::uint16_t>(std::max<std::size_t>(room - length, 8) - 8);
    const std::uint16_t mark = pager.version().table.pageMark;
    head.freeBytes = mark != 0 ? mark : left;
    head.next = i + 1 < table.pages.size() ? table.pages[i + 1] : 0;
    std::memcpy(target->data(), &head, sizeof head);
    std::memcpy(target->data() + kPageHead, bytes.data() + start, length);
  }
  return {};
}

}  // namespace

Result<RowPointer> MapPages::add() {
  const format::Version& version = pager_->version();
  Bytes map(version.usageMap.rowLength);
  for (bool fresh = page_ == 0;; fresh = true) {
    if (fresh) {
      auto page = PageAllocator(*pager_).allocate();
      if (!page) return Failure(page.error());
      page_ = *page;
    }
    auto bytes = pager_->edit(page_);
    if (!bytes) return Failure(bytes.error());
    if (fresh) DataPageEditor::format(version, *bytes, 0);
    auto rows = DataPageEditor::open(version, page_, *bytes);
    if (!rows) return Failure(rows.error());
    if (!rows->hasRoomFor(map.size())) continue;
    return RowPointer{page_, static_cast<std::uint8_t>(rows->insert(map, SlotState::Row))};
  }
}

Result<void> layOut(Pager& pager, MapPages& maps, TableDef& table) {
  if (auto done = addMaps(maps, table); !done) return done;
  const std::size_t room = pager.version().pageSize - kPageHead;
  // The length is known now, whatever the roots will be.
  const std::size_t length = table.encode(pager.version()).size() - kPageHead;
  for (table.pages = {table.page}; table.pages.size() * room < length;) {
    auto more = PageAllocator(pager).allocate();
    if (!more) return Failure(more.error());
    table.pages.push_back(*more);
  }
  for (IndexDef& index : table.indexes) {
    auto root = IndexTree(pager, table.page, index).rebuild({}, {});
    if (!root) return Failure(root.error());
    index.root = *root;
  }
  return writeDefinition(pager, table, table.encode(pager.version()));
}

Result<std::uint32_t> makeTable(Pager& pager, CatalogTables catalog, const NewTable& table,
                                DateTime made) {
  auto def = newTableDef(pager.version(), table);
  if (!def) return Failure(def.error());
  auto page = PageAllocator(pager).allocate();
  if (!page) return page;
  def->page = *page;
  MapPages maps(pager);
  if (auto done = layOut(pager, maps, *def); !done) return Failure(done.error());
  auto entered = enterTable(pager, catalog, table.name, *page, made);
  if (!entered) return Failure(entered.error());
  auto opened = Table::open(pager, *page, table.name);
  if (!opened) return Failure(opened.error());
  TableEditor editor(pager, **opened);
  for (const std::vector<Value>& row : table.rows)
    if (auto added = editor.insert(row); !added) return Failure(added.error());
  return page;
}

}  // namespace jet
