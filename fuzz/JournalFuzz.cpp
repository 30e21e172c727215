#include "BaseFiles.h"
#include "FuzzInput.h"
#include "jet/Database.h"
#include "jet/JournalFormat.h"
#include "support/MemoryFileSystem.h"

// A journal beside a database: any bytes at all, or a well-formed journal of any content. Opening
// ends, and a journal that is not about this file does not change it.

namespace {

const std::string kPath = "/eingabe.kwd";

base::Bytes journalFrom(fuzz::Input& input, const base::Bytes& database) {
  if (input.byte() % 4 == 0) return {input.rest().begin(), input.rest().end()};
  jet::JournalContent content;
  content.pageSize = input.byte() % 8 == 0 ? input.number() : 4096;
  content.sizeBefore = input.byte() % 4 == 0 ? input.longNumber() : database.size();
  content.sizeAfter = content.sizeBefore + input.byte() * std::uint64_t{4096};
  content.witnessCount = input.byte();
  content.witnessSum = input.longNumber();
  while (!input.empty() && content.after.size() < 8) {
    const std::uint32_t page = input.byte() % 4 == 0 ? input.number() << 8 : input.byte();
    base::Bytes image(content.pageSize, input.byte());
    const base::ByteSpan part = input.take(input.byte());
    std::copy_n(part.begin(), std::min(part.size(), image.size()), image.begin());
    if (input.byte() % 2 == 0) content.before[page] = image;
    content.after[page] = std::move(image);
  }
  return jet::encodeJournal(content);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const base::Bytes& database = fuzz::baseFiles()[0];
  const base::Bytes journal = journalFrom(input, database);
  support::MemoryFileSystem files({{kPath, database}, {kPath + "-journal", journal}});
  base::ignore(jet::Database::open(files, kPath, {.readOnly = true}), "any outcome is right");
  base::ignore(jet::Journal::complete(files, kPath), "any outcome is right");
  // The witnesses of a journal that was made for it have a sum that no input guesses.
  fuzz::require(files.get(kPath) == database, "a foreign journal was applied");
  return 0;
}
