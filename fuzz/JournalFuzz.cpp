#include "BaseFiles.h"
#include "FuzzInput.h"
#include "jet/Database.h"
#include "jet/engine/JournalFormat.h"
#include "jet/engine/JournalMatch.h"
#include "support/MemoryFileSystem.h"

// A journal beside a database: any bytes at all, a well-formed journal of any content, or one that
// was made for this database. Opening ends, a journal that is not about this file does not change
// it, and one that is brings exactly its pages.

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

// A transaction on this database, with the old pages and the sum that a commit writes.
jet::JournalContent transactionOn(const base::Bytes& database, fuzz::Input& input) {
  constexpr std::size_t kPage = 4096;
  const auto pages = static_cast<std::uint32_t>(database.size() / kPage);
  jet::JournalContent content;
  content.pageSize = kPage;
  content.sizeBefore = content.sizeAfter = database.size();
  while (!input.empty() && content.after.size() < 8) {
    const std::uint32_t page = input.byte() % pages;
    const auto old = base::ByteSpan(database).subspan(page * kPage, kPage);
    content.before[page].assign(old.begin(), old.end());
    base::Bytes& image = content.after[page];
    image = content.before[page];
    const std::size_t start = input.number() % kPage;
    const base::ByteSpan part = input.take(std::min<std::size_t>(input.byte(), kPage - start));
    std::copy(part.begin(), part.end(), image.begin() + static_cast<std::ptrdiff_t>(start));
  }
  support::MemoryFileSystem files({{kPath, database}});
  const auto file = files.open(kPath, base::OpenMode::Read);
  const auto witnesses = jet::sumWitnesses(**file, database.size(), kPage, content.after);
  content.witnessCount = witnesses->count;
  content.witnessSum = witnesses->sum;
  return content;
}

base::Bytes applied(base::Bytes database, const jet::JournalContent& content) {
  for (const auto& [page, image] : content.after)
    std::copy(image.begin(), image.end(),
              database.begin() + static_cast<std::ptrdiff_t>(page * image.size()));
  return database;
}

void recoverOwn(const base::Bytes& database, fuzz::Input& input) {
  const jet::JournalContent content = transactionOn(database, input);
  if (content.after.empty()) return;
  const base::Bytes journal = jet::encodeJournal(content);
  support::MemoryFileSystem files({{kPath, database}, {kPath + "-journal", journal}});
  base::ignore(jet::Database::open(files, kPath, {.readOnly = true}), "any outcome is right");
  fuzz::require(files.get(kPath) == database, "reading wrote");
  base::ignore(jet::Database::open(files, kPath), "any outcome is right");
  base::ignore(jet::Journal::complete(files, kPath), "done at opening, or the header page is new");
  fuzz::require(files.get(kPath) == applied(database, content), "pages of the journal are missing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const base::Bytes& database = fuzz::baseFiles()[0];
  if (input.byte() % 2 == 0) {
    recoverOwn(database, input);
    return 0;
  }
  const base::Bytes journal = journalFrom(input, database);
  support::MemoryFileSystem files({{kPath, database}, {kPath + "-journal", journal}});
  base::ignore(jet::Database::open(files, kPath, {.readOnly = true}), "any outcome is right");
  base::ignore(jet::Journal::complete(files, kPath), "any outcome is right");
  // The witnesses of a journal that was made for it have a sum that no input guesses.
  fuzz::require(files.get(kPath) == database, "a foreign journal was applied");
  return 0;
}
