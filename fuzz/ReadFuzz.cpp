#include "FuzzInput.h"
#include "jet/Database.h"
#include "support/MemoryFileSystem.h"

// Opens a file and reads everything in it. Whatever its bytes are, that ends, and the file is not
// touched; every message names it.

namespace {

const std::string kPath = "/eingabe.kwd";

void namesFile(const base::Error& error) {
  fuzz::require(base::germanMessage(error).find(kPath) != std::string::npos,
                "message without the file: " + base::germanMessage(error));
}

void readTable(jet::Database& database, const std::string& name) {
  auto rows = database.openTable(name);
  if (!rows) return namesFile(rows.error());
  for (std::size_t i = 0; i < rows->count(); ++i)
    if (const auto row = rows->row(i); !row) namesFile(row.error());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  support::MemoryFileSystem files({{kPath, fuzz::databaseFrom(input)}});
  const auto before = files.contents();
  {
    auto database =
        jet::Database::open(files, kPath, {.acceptPassword = true, .acceptEncryption = true});
    if (database) {
      for (const std::string& name : database->tableNames()) readTable(*database, name);
      for (const jet::Finding& finding : database->check()) namesFile(finding.error);
    } else {
      namesFile(database.error());
    }
  }
  fuzz::require(files.contents() == before, "reading wrote");
  return 0;
}
