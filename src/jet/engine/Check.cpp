#include "jet/engine/Check.h"

#include <set>

#include "jet/engine/DataPage.h"
#include "jet/engine/PageUse.h"
#include "jet/engine/TableCheck.h"
#include "jet/engine/UsageMap.h"

namespace jet {
namespace {

using Kind = PageUse::Kind;

void claimGlobalMap(Pager& pager, PageUse& use) {
  auto row = UsageMapRow::read(pager, kGlobalMap);
  if (!row) return use.report(row.error(), "");
  use.claim(kGlobalMap.page, Kind::Maps, 0, "");
  if (row->form() != format::UsageMapForm::Reference) return;
  for (std::size_t i = 0; i < row->bitmapCount(); ++i)
    if (row->bitmapPage(i) != 0) use.claim(row->bitmapPage(i), Kind::Bitmap, 0, "");
}

// Rows that nobody finds: a page of a table that does not list it, or the definition of a table
// that the catalog does not name. Other pages that are neither used nor free are only lost space.
void checkLostPage(const Pager& pager, const std::set<std::uint32_t>& tables, std::uint32_t number,
                   PageUse& use) {
  auto page = pager.page(number);
  if (!page) return use.report(page.error(), "");
  if ((**page)[0] == static_cast<std::uint8_t>(format::PageKind::TableDef) &&
      TableDef::read(pager, number))
    return use.report(number, "", "a table is in no catalog");
  auto data = DataPage::parse(pager.version(), number, **page);
  if (!data || tables.count(data->owner()) == 0) return;
  for (std::size_t i = 0; i < data->slotCount(); ++i)
    if (auto slot = data->slot(i); slot && slot->state != SlotState::Deleted)
      return use.report(number, "", "the rows of the page are lost to their table");
}

// A page that is used and free would be handed out a second time.
void checkFreePages(const Pager& pager, const std::set<std::uint32_t>& tables, PageUse& use) {
  const UsageMap map(pager, kGlobalMap);
  std::uint32_t lost = 0, firstLost = 0;
  for (std::uint32_t page = 0; page < use.pageCount(); ++page) {
    auto free = map.contains(page, true);
    if (!free) return use.report(free.error(), "");
    if (use.isUsed(page)) {
      if (*free) use.report(page, "", "the page is used but counts as free");
    } else if (!*free) {
      if (lost++ == 0) firstLost = page;
      if (!use.isIncomplete()) checkLostPage(pager, tables, page, use);
    }
  }
  if (lost > 0 && !use.isIncomplete())
    use.warn(firstLost, "", "%1 pages are not used but do not count as free", lost);
}

}  // namespace

std::vector<Finding> checkDatabase(Pager& pager, const Catalog& catalog) {
  PageUse use(pager);
  use.claim(0, Kind::Header, 0, "");
  claimGlobalMap(pager, use);
  std::set<std::uint32_t> seen;
  for (const Catalog::Entry& entry : catalog.tables) {
    if (!seen.insert(entry.definition).second) {
      use.report(entry.definition, entry.name, "two tables have the same definition");
      continue;
    }
    if (!use.isFull()) TableCheck(pager, use, entry.definition, entry.name).run();
  }
  checkFreePages(pager, seen, use);
  return use.take();
}

}  // namespace jet
