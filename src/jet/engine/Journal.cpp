#include "jet/engine/Journal.h"

#include <algorithm>
#include <utility>

#include "base/OpenOutcome.h"
#include "base/Paths.h"
#include "jet/engine/Damage.h"
#include "jet/engine/JournalFormat.h"
#include "jet/engine/JournalMatch.h"

namespace jet {
namespace {

using base::fail;
using base::OpenMode;

// Room for a usual transaction, so that the file keeps its length from the first commit on.
constexpr std::size_t kFirstLength = 0x10000;
// No transaction of ours comes near; a larger file is none of our journals.
constexpr std::uint64_t kLargestJournal = std::uint64_t{1} << 30;

// Whoever is told this shall not take the transaction for not stored.
Failure openOutcome(base::Error error) {
  error.detail = base::kOutcomeOpen;
  return Failure(std::move(error));
}

Failure misuse(const base::File& database, const char* detail) {
  return fail(ErrorCode::InvalidValue, detail, database.path());
}

// The household knows its year and the folder, not the journal.
base::Error inTheHouseholdsWords(base::Error error, const std::string& journal,
                                 const std::string& database) {
  if (error.file != journal) return error;
  const bool ofFolder = error.code == ErrorCode::AccessDenied ||
                        error.code == ErrorCode::ReadOnly || error.code == ErrorCode::NotFound;
  const std::string_view folder = base::folderOf(database);
  error.file = ofFolder && !folder.empty() ? std::string(folder) : database;
  return error;
}

// Length of the database after the transaction.
Result<std::uint64_t> checkPages(const base::File& database, const PageImages& pages,
                                 std::uint32_t pageSize, std::uint64_t size) {
  if (size % pageSize != 0)
    return fail(ErrorCode::Truncated, "the length is no multiple of the page size",
                database.path());
  std::uint64_t end = size / pageSize;
  for (const auto& [number, image] : pages) {
    if (image.size() != pageSize) return misuse(database, "a page has the wrong size");
    if (number > end) return misuse(database, "a new page does not follow the last");
    end = std::max(end, std::uint64_t{number} + 1);
  }
  return end * pageSize;
}

Result<PageImages> readOld(const base::File& database, const PageImages& pages,
                           const PageImages& before, std::uint32_t pageSize, std::uint64_t size) {
  PageImages old;
  for (const auto& [number, image] : pages) {
    if (std::uint64_t{number} * pageSize >= size) break;
    base::Bytes& current = old[number];
    current.resize(pageSize);
    if (auto read = database.readAt(std::uint64_t{number} * pageSize, current); !read)
      return Failure(read.error());
    const auto expected = before.find(number);
    if (expected == before.end() || expected->second == current) continue;
    auto changed = fail(ErrorCode::ChangedOnDisk, {}, database.path());
    changed.value().page = number;
    return changed;
  }
  return old;
}

// Neighbours in one write each. The last come first: if the disk is too full for new pages at the
// end, that shows before an old page is touched.
Result<void> writePages(base::File& database, const PageImages& pages, std::uint32_t pageSize) {
  struct Run {
    std::uint32_t first;
    base::Bytes bytes;
  };
  std::vector<Run> runs;
  std::uint32_t next = 0;
  for (const auto& [number, image] : pages) {
    if (runs.empty() || number != next) runs.push_back({number, {}});
    runs.back().bytes.insert(runs.back().bytes.end(), image.begin(), image.end());
    next = number + 1;
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    auto written = database.writeAt(std::uint64_t{run->first} * pageSize, run->bytes);
    if (!written) return written;
  }
  return database.sync();
}

// The waiting transaction of a journal file, if there is one.
Result<std::optional<JournalContent>> load(base::FileSystem& files, const std::string& path) {
  auto file = files.open(path, OpenMode::Read);
  if (!file) {
    if (file.error().code == ErrorCode::NotFound) return std::nullopt;
    return Failure(file.error());
  }
  const auto size = (*file)->size();
  if (!size) return Failure(size.error());
  if (*size < sizeof(JournalHeader) || *size > kLargestJournal) return std::nullopt;
  base::Bytes bytes(static_cast<std::size_t>(*size));
  if (auto read = (*file)->readAt(0, bytes); !read) return Failure(read.error());
  return decodeJournal(bytes);
}

// The transaction if it waits for this database.
Result<std::optional<JournalContent>> loadFor(base::FileSystem& files, const std::string& path,
                                              const base::File& database) {
  auto journal = load(files, path);
  if (!journal) journal.error().file = database.path();
  if (!journal || !*journal) return journal;
  const auto size = database.size();
  if (!size) return Failure(size.error());
  Result<void> read;
  const bool fits = matches(**journal, database, *size, read);
  if (!read) return Failure(read.error());
  if (!fits) journal->reset();
  return journal;
}

}  // namespace

Journal::Journal(base::FileSystem& files, const std::string& databasePath, std::uint32_t pageSize)
    : files_(&files), path_(pathFor(databasePath)), pageSize_(pageSize) {}

Journal::~Journal() {
  close();
}

void Journal::close() {
  if (!file_) return;
  file_.reset();
  if (!interrupted_) removeFile();
}

void Journal::removeFile() const {
  base::ignore(files_->remove(path_), "what is left is finished, or is recognised as such");
}

Journal::Commit Journal::commit(base::File& database, const PageImages& pages,
                                const PageImages& before) {
  if (interrupted_)
    return {Outcome::Interrupted,
            fail(ErrorCode::IoError, "the file has to be opened anew", database.path())};
  if (pages.empty()) return {Outcome::Stored, {}};
  const auto size = database.size();
  if (!size) return {Outcome::NotStored, Failure(size.error())};
  const auto sizeAfter = checkPages(database, pages, pageSize_, *size);
  if (!sizeAfter) return {Outcome::NotStored, Failure(sizeAfter.error())};
  const auto old = readOld(database, pages, before, pageSize_, *size);
  if (!old) return {Outcome::NotStored, Failure(old.error())};
  const auto witnesses = sumWitnesses(database, *size, pageSize_, pages);
  if (!witnesses) return {Outcome::NotStored, Failure(witnesses.error())};

  const JournalContent content{pageSize_,      *size, *sizeAfter, witnesses->count,
                               witnesses->sum, *old,  pages};
  const base::Bytes journal = encodeJournal(content);
  auto written = writeJournal(database.path(), journal);
  const bool waits = written.has_value();
  if (waits) written = writePages(database, pages, pageSize_);
  if (!written) {
    written = Failure(inTheHouseholdsWords(written.error(), path_, database.path()));
    const bool untouched = !waits || undo(database, *old, *size);
    if (untouched && invalidate()) return {Outcome::NotStored, written};
    interrupted_ = true;
    if (!untouched && markUndone(journal)) return {Outcome::TakenBack, written};
    return {Outcome::Interrupted, openOutcome(written.error())};
  }
  base::ignore(file_->writeAt(0, kJournalFinished), "a lost mark only repeats what is in place");
  return {Outcome::Stored, {}};
}

Result<void> Journal::probe(const std::string& databasePath) {
  file_.reset();
  const auto opened = openJournal(databasePath, 0);
  file_.reset();
  removeFile();
  if (opened) return {};
  return Failure(inTheHouseholdsWords(opened.error(), path_, databasePath));
}

Result<void> Journal::openJournal(const std::string& databasePath, std::size_t length) {
  // Whoever may not read the database may not read its pages here either.
  auto file = files_->createLike(path_, databasePath, base::Rights::Same);
  if (!file) return Failure(file.error());
  file_ = std::move(*file);
  // The mark must not fail for want of room.
  const base::Bytes room(std::max(length + 2 * kJournalSector, kFirstLength));
  if (auto written = file_->writeAt(0, room); !written) return written;
  return {};
}

Result<void> Journal::writeJournal(const std::string& databasePath, const base::Bytes& content) {
  const bool fresh = !file_;
  if (fresh)
    if (auto opened = openJournal(databasePath, content.size()); !opened) return opened;
  if (auto written = file_->writeAt(0, content); !written) return written;
  if (auto synced = file_->sync(); !synced) return synced;
  if (!fresh) return {};
  auto named = files_->syncFolder(std::string(base::folderOf(path_)));
  if (!named) named.error().file = path_;
  return named;
}

// After a failure: makes sure that no later opening takes the journal for a waiting one. The file
// is made anew at the next commit. False when that cannot be promised.
bool Journal::invalidate() {
  if (!file_) return true;
  const bool marked = file_->writeAt(0, kJournalFinished) && file_->sync();
  file_.reset();
  const auto removed = files_->remove(path_);
  if (marked || (!removed && removed.error().code == ErrorCode::NotFound)) return true;
  return removed && files_->syncFolder(std::string(base::folderOf(path_)));
}

bool Journal::markUndone(const base::Bytes& journal) {
  const PlacedUndoMark placed = undoMarkFor(journal);
  base::Bytes sector(kJournalSector);
  std::memcpy(sector.data(), &placed.mark, sizeof(placed.mark));
  return file_ && file_->writeAt(placed.offset, sector) && file_->sync();
}

// Brings the old pages back, durably.
bool Journal::undo(base::File& database, const PageImages& old, std::uint64_t size) {
  return writePages(database, old, pageSize_) && database.resize(size) && database.sync();
}

Result<bool> Journal::recover(base::File& database) {
  const auto journal = loadFor(*files_, path_, database);
  if (!journal) return Failure(journal.error());
  if (*journal) {
    const JournalContent& content = **journal;
    auto written =
        writePages(database, content.undone ? content.before : content.after, content.pageSize);
    if (written && content.undone) written = database.resize(content.sizeBefore);
    if (written && content.undone) written = database.sync();
    if (!written) return Failure(written.error());
  }
  removeFile();
  return journal->has_value();
}

Result<PageImages> Journal::pending(const base::File& database) const {
  auto journal = loadFor(*files_, path_, database);
  if (!journal) return Failure(journal.error());
  if (!*journal) return PageImages();
  if (!(*journal)->undone) return std::move((*journal)->after);
  // Nobody refers to the pages behind the old end.
  PageImages pages = std::move((*journal)->before);
  for (const auto& [number, image] : (*journal)->after)
    pages.emplace(number, base::Bytes(image.size()));
  return pages;
}

Result<bool> Journal::belongs(base::FileSystem& files, const std::string& journalPath,
                              const std::string& databasePath) {
  const auto database = files.open(databasePath, OpenMode::Read);
  if (!database) return Failure(database.error());
  const auto journal = loadFor(files, journalPath, **database);
  if (!journal) return Failure(journal.error());
  return journal->has_value();
}

Result<bool> Journal::complete(base::FileSystem& files, const std::string& databasePath) {
  auto journal = load(files, pathFor(databasePath));
  if (!journal) journal.error().file = databasePath;
  if (!journal) return Failure(journal.error());
  if (!*journal) {
    base::ignore(discard(files, databasePath), "without a transaction it does no harm");
    return false;
  }
  const auto database = files.open(databasePath, OpenMode::ReadWrite);
  if (!database) return Failure(database.error());
  return Journal(files, databasePath, (*journal)->pageSize).recover(**database);
}

Result<void> Journal::discard(base::FileSystem& files, const std::string& databasePath) {
  auto removed = files.remove(pathFor(databasePath));
  if (!removed && removed.error().code == ErrorCode::NotFound) return {};
  return removed;
}

}  // namespace jet
