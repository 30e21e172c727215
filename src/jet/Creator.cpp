#include "jet/Creator.h"

#include <algorithm>
#include <bit>

#include "jet/engine/CatalogRows.h"
#include "jet/engine/PageAllocator.h"
#include "jet/engine/Table.h"

namespace jet {
namespace {

using base::Failure;
using base::Result;

// The catalog of a file says when its objects were made. The same moment always, so that the same
// tables give the same file.
constexpr std::uint64_t kMade = 0x40E4AB3E3BD3FB4E;

// The map of free pages names those beyond the end of the file, as far as it reaches.
Result<void> addGlobalMap(Pager& pager) {
  auto number = pager.append();
  if (!number) return Failure(number.error());
  auto bytes = pager.edit(*number);
  if (!bytes) return Failure(bytes.error());
  auto maps = DataPageEditor::format(pager.version(), *bytes, *number);
  base::Bytes map(pager.version().usageMap.rowLength);
  for (int i = 0; i < 2; ++i) maps.insert(map, SlotState::Row);
  const auto bits = maps.bytes(kGlobalMap.slot).subspan(sizeof(format::InlineMapHead));
  std::fill(bits.begin(), bits.end(), std::uint8_t{0xFF});
  bits[0] = 0xFC;  // but for the header page and its own
  return {};
}

// Definitions on pages 2 to 5, all maps on the next, the rest in turn.
Result<std::vector<std::unique_ptr<Table>>> makeSystemTables(Pager& pager) {
  std::vector<TableDef> defs = {objectsTable(pager.version()), permissionsTable(pager.version()),
                                queriesTable(pager.version()), relationshipsTable(pager.version())};
  for (TableDef& def : defs) {
    auto page = PageAllocator(pager).allocate();
    if (!page) return Failure(page.error());
    def.page = *page;
  }
  MapPages maps(pager);
  std::vector<std::unique_ptr<Table>> tables;
  for (TableDef& def : defs) {
    if (auto done = layOut(pager, maps, def); !done) return Failure(done.error());
    auto table = Table::open(pager, def.page, {});
    if (!table) return Failure(table.error());
    tables.push_back(std::move(*table));
  }
  return tables;
}

}  // namespace

Result<base::Bytes> createDatabase(const std::vector<NewTable>& tables, FileVersion version) {
  const auto pager = Pager::ofNewFile(version == FileVersion::Jet3 ? format::kJet3 : format::kJet4);
  const DateTime made{std::bit_cast<double>(kMade)};
  if (auto done = addGlobalMap(*pager); !done) return Failure(done.error());
  auto system = makeSystemTables(*pager);
  if (!system) return Failure(system.error());
  const CatalogTables catalog{*(*system)[0], *(*system)[1]};
  if (auto done = enterSystemTables(*pager, catalog, made); !done) return Failure(done.error());
  for (const NewTable& table : tables)
    if (auto done = makeTable(*pager, catalog, table, made); !done) return Failure(done.error());
  return pager->content();
}

}  // namespace jet
