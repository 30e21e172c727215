// Prints a Jet file page by page, through the engine's own descriptions of what lies on them:
//   jetdump FILE          one line for each page
//   jetdump FILE PAGE     what is on that page
#include <charconv>
#include <cstdio>
#include <iostream>
#include <map>

#include "jet/engine/Catalog.h"
#include "jet/engine/DataPage.h"
#include "jet/engine/IndexPage.h"
#include "jet/engine/Row.h"
#include "jet/engine/Table.h"
#include "jet/engine/UsageMap.h"

namespace {

using jet::format::PageKind;

std::string hex(base::ByteSpan bytes) {
  std::string text;
  char digits[4];
  for (const unsigned byte : bytes) {
    std::snprintf(digits, sizeof digits, "%02X ", byte);
    text += digits;
  }
  return text;
}

std::string kindName(std::uint8_t kind) {
  static const std::map<std::uint8_t, const char*> kNames = {
      {0, "header or unused"}, {1, "data"},   {2, "table definition"}, {3, "index node"},
      {4, "index leaf"},       {5, "bitmap"}, {8, "freed definition"}, {9, "freed"}};
  const auto found = kNames.find(kind);
  return found == kNames.end() ? "kind " + std::to_string(kind) : found->second;
}

std::string stateName(jet::SlotState state) {
  switch (state) {
    case jet::SlotState::Row:
      return "row";
    case jet::SlotState::Moved:
      return "moved";
    case jet::SlotState::Target:
      return "target";
    case jet::SlotState::Deleted:
      return "deleted";
  }
  return "";
}

class Dump {
 public:
  Dump(jet::Pager& pager, const jet::Catalog& catalog) : pager_(pager) {
    for (const jet::Catalog::Entry& entry : catalog.tables) names_[entry.definition] = entry.name;
  }

  void all() const {
    for (std::uint32_t number = 0; number < pager_.pageCount(); ++number) {
      const auto page = pager_.page(number);
      if (!page) continue;
      std::cout << number << '\t' << kindName((**page)[0]) << '\t' << owner(number, **page) << '\n';
    }
  }

  void one(std::uint32_t number) const {
    const auto page = pager_.page(number);
    if (!page) {
      std::cout << germanMessage(page.error()) << '\n';
      return;
    }
    std::cout << "page " << number << ": " << kindName((**page)[0]) << ", " << owner(number, **page)
              << '\n';
    switch (static_cast<PageKind>((**page)[0])) {
      case PageKind::Data:
        return rows(number, **page);
      case PageKind::TableDef:
        return definition(number);
      case PageKind::IndexNode:
      case PageKind::IndexLeaf:
        return index(number, **page);
      default:
        std::cout << hex((**page).first(256)) << '\n';
    }
  }

 private:
  std::string owner(std::uint32_t number, base::ByteSpan page) const {
    std::uint32_t table = 0;
    const auto kind = static_cast<PageKind>(page[0]);
    if (kind == PageKind::TableDef) table = number;
    if (kind == PageKind::Data) table = pager_.version().dataPage.owner.get(page);
    if (kind == PageKind::IndexLeaf || kind == PageKind::IndexNode)
      table = pager_.version().indexPage.tableDef.get(page);
    if (table == jet::format::kLongValueOwner) return "long values";
    if (kind == PageKind::Data && table <= 1) return "page lists";
    const auto name = names_.find(table);
    return name != names_.end() ? name->second : table == 0 ? "" : "table " + std::to_string(table);
  }

  void rows(std::uint32_t number, base::ByteSpan bytes) const {
    const auto page = jet::DataPage::parse(pager_.version(), number, bytes);
    if (!page) {
      std::cout << germanMessage(page.error()) << '\n';
      return;
    }
    std::cout << "free " << page->storedFreeBytes() << ", slots " << page->slotCount() << '\n';
    for (std::size_t i = 0; i < page->slotCount(); ++i) {
      const auto slot = page->slot(i);
      if (!slot) {
        std::cout << i << "\t" << germanMessage(slot.error()) << '\n';
        continue;
      }
      std::cout << i << '\t' << stateName(slot->state) << '\t' << slot->start << "+"
                << slot->length() << '\t' << hex(page->bytes(*slot)) << '\n';
    }
  }

  void definition(std::uint32_t number) const {
    const auto table = jet::TableDef::read(pager_, number);
    if (!table) {
      std::cout << germanMessage(table.error()) << '\n';
      return;
    }
    std::cout << "rows " << table->rowCount << ", columns ever " << table->maxColumns
              << ", variable " << table->variableSlots << ", fixed bytes " << table->fixedLength
              << "\nowned " << where(table->ownedPages) << ", with room "
              << where(table->freeSpacePages) << '\n';
    for (const jet::ColumnDef& def : table->columns) {
      const jet::Column& column = def.column;
      std::cout << "column " << column.number << '\t' << column.name << "\ttype "
                << static_cast<int>(column.type) << "\tlength " << column.length
                << (def.isFixed() ? "\tfixed at " : "\tslot ")
                << (def.isFixed() ? def.fixedOffset : def.slot) << "\tflags "
                << static_cast<int>(def.flags) << '\n';
    }
    for (const jet::IndexDef& index : table->indexes) {
      std::cout << "index " << index.name << "\troot " << index.root << "\tpages "
                << where(index.pages);
      for (const jet::IndexDef::Part& part : index.parts)
        std::cout << '\t' << table->columns[part.column].column.name
                  << (part.ascending ? '+' : '-');
      std::cout << '\n';
    }
  }

  void index(std::uint32_t number, base::ByteSpan bytes) const {
    const std::uint32_t table = pager_.version().indexPage.tableDef.get(bytes);
    const auto page = jet::IndexPage::parse(pager_.version(), number, bytes, table);
    if (!page) {
      std::cout << germanMessage(page.error()) << '\n';
      return;
    }
    std::cout << "level " << int{page->level} << ", previous " << page->previous << ", next "
              << page->next << ", tail " << page->tail << '\n';
    for (const jet::IndexEntry& entry : page->entries) {
      std::cout << where(entry.row()) << '\t' << hex(entry.key());
      if (!page->leaf) std::cout << "-> " << entry.child;
      std::cout << '\n';
    }
  }

  static std::string where(jet::RowPointer row) {
    return std::to_string(row.page) + ":" + std::to_string(row.slot);
  }

  jet::Pager& pager_;
  std::map<std::uint32_t, std::string> names_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::cerr << "jetdump FILE [PAGE]\n";
    return 2;
  }
  const auto files = base::makeDiskFileSystem();
  auto pager = jet::Pager::open(
      *files, argv[1], {.readOnly = true, .acceptPassword = true, .acceptEncryption = true});
  if (!pager) {
    std::cerr << germanMessage(pager.error()) << '\n';
    return 1;
  }
  // Without a catalog the pages can be shown all the same.
  auto catalog = jet::Catalog::read(**pager);
  if (!catalog) std::cerr << germanMessage(catalog.error()) << '\n';
  const Dump dump(**pager, catalog.value_or(jet::Catalog()));
  if (argc == 2) {
    dump.all();
    return 0;
  }
  std::uint32_t number = 0;
  const std::string_view text = argv[2];
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size()) {
    std::cerr << "jetdump FILE [PAGE]\n";
    return 2;
  }
  dump.one(number);
  return 0;
}
