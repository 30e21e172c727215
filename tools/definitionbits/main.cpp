// Flips every bit in the pages of a year's table definitions, one at a time, and counts the flips
// that change a value which the program reads without the check finding an error: definitionbits
// FILE
#include <iostream>
#include <map>

#include "base/File.h"
#include "jet/engine/Catalog.h"
#include "jet/engine/TableDef.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/RecordSource.h"
#include "yearbook/YearCheck.h"

namespace {

constexpr char kPath[] = "/jahr.kwd";
using Values = std::vector<std::string>;

// All that the program reads, as it reads it; nullopt when it cannot.
std::optional<Values> valuesOf(jet::Database& database) {
  Values values;
  for (const yearbook::Table* table : yearbook::allTables()) {
    const auto rows = yearbook::RecordSource::open(database, *table);
    if (!rows) return std::nullopt;
    for (int row = 0; row < rows->count(); ++row) {
      for (const yearbook::Field* field : table->fields) {
        const auto number = rows->number(row, *field);
        values.push_back(rows->text(row, *field) + (number ? " " + std::to_string(*number) : ""));
      }
    }
  }
  return values;
}

// nullopt when the change is noticed.
std::optional<Values> unnoticed(const base::Bytes& content) {
  support::MemoryFileSystem disk({{kPath, content}});
  auto database = jet::Database::open(disk, kPath, {.readOnly = true});
  if (!database) return std::nullopt;
  for (const jet::Finding& finding : yearbook::checkYear(*database))
    if (!finding.warning) return std::nullopt;
  return valuesOf(*database);
}

std::vector<std::uint32_t> definitionPages(const base::Bytes& content) {
  support::MemoryFileSystem disk({{kPath, content}});
  std::vector<std::uint32_t> pages;
  const auto pager = jet::Pager::open(disk, kPath, {.readOnly = true});
  const auto catalog = jet::Catalog::read(**pager);
  for (const auto& entry : catalog->tables)
    if (const auto def = jet::TableDef::read(**pager, entry.definition))
      pages.insert(pages.end(), def->pages.begin(), def->pages.end());
  return pages;
}

}  // namespace

int main(int argc, char** argv) {
  const auto files = base::makeDiskFileSystem();
  const auto text = files->readText(argc == 2 ? argv[1] : "", 16 << 20);
  if (!text) {
    std::cerr << "definitionbits FILE\n" << base::describe(text.error()) << '\n';
    return 2;
  }
  base::Bytes content(text->begin(), text->end());
  const auto sound = unnoticed(content);
  if (!sound) {
    std::cerr << "The file is no sound year.\n";
    return 1;
  }
  const std::size_t pageSize = content[0x14] == 0 ? 2048 : 4096;
  std::size_t flips = 0, bad = 0;
  for (const std::uint32_t page : definitionPages(content)) {
    const auto& version = pageSize == 4096 ? jet::format::kJet4 : jet::format::kJet3;
    const std::size_t length =
        version.table.length.get(base::ByteSpan(content).subspan(page * pageSize, pageSize));
    for (std::size_t bit = 0; bit < 8 * std::min(length, pageSize); ++bit) {
      std::uint8_t& byte = content[page * pageSize + bit / 8];
      const std::uint8_t old = byte;
      byte ^= static_cast<std::uint8_t>(1u << bit % 8);
      const auto found = unnoticed(content);
      ++flips;
      if (found && *found != *sound) {
        ++bad;
        std::cout << "page " << page << ", offset " << bit / 8 << ", bit " << bit % 8 << ": "
                  << int{old} << " -> " << int{byte} << '\n';
      }
      byte = old;
    }
  }
  std::cout << bad << " of " << flips << " flips change a value unnoticed\n";
  return 0;
}
