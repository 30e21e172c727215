#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "base/File.h"

namespace jet {

// Pages of one transaction: page number -> image (whole pages, as they go to disk).
using PageImages = std::map<std::uint32_t, base::Bytes>;

// The redo journal "NAME-journal" beside a database. A commit writes and syncs the journal (new and
// old images of the changed pages with a strong checksum), writes the pages in place and syncs
// them, then marks the journal finished. So at every moment either the database is untouched or the
// journal can complete it.
//
// Two syncs per commit. The journal file stays between commits, at its length, so that
// rewriting it costs the disk no bookkeeping, and its name is synced only when it is made. Marking
// it finished needs no sync: if the mark is lost in a power cut the pages are written once more,
// and they are the same, since the next commit touches the database only after it has replaced the
// journal.
//
// When the pages can be written neither anew nor back, as on a disk with a bad spot, the journal is
// marked: whoever opens the database next takes the transaction back.
//
// A journal is applied only to the file that it was made for; JournalMatch.h says how a file that
// has been replaced or edited meanwhile is told from one that a crash left half written.
//
// Lifetime: declare it after the database's File, so that the journal is dropped before the lock.
class Journal {
 public:
  Journal(base::FileSystem& files, const std::string& databasePath, std::uint32_t pageSize);
  ~Journal();  // close()
  Journal(Journal&&) noexcept = default;
  Journal& operator=(Journal&&) = delete;

  enum class Outcome {
    Stored,       // in place and durable
    NotStored,    // the database holds the old state, and the journal cannot change that any more
    TakenBack,    // the database holds parts of it, which the next opening takes back; commits no
                  // more
    Interrupted,  // the journal may complete the transaction at the next opening; commits no more
  };
  struct Commit {
    Outcome outcome = Outcome::NotStored;
    base::Result<void> result;
  };
  // The database must be open for writing by the caller (who holds its lock), its length a multiple
  // of the page size. Pages beyond its end must join it without a gap.
  // before: the pages as the caller read them from this file; a page of it that is another on disk
  // now is ChangedOnDisk, and nothing is stored. Pages not in it are not compared.
  Commit commit(base::File& database, const PageImages& pages, const PageImages& before = {});

  // Whether there is permission and room for a journal. Not after TakenBack or Interrupted.
  base::Result<void> probe(const std::string& databasePath);

  // Completes a waiting journal, or takes it back if it is marked so, and removes it; one that is
  // incomplete, finished or made for another file is removed without a change. True when pages were
  // written. Safe to be interrupted and run again any number of times.
  base::Result<bool> recover(base::File& database);

  // For reading without the right to write: the pages that recover() would write, or none. Never
  // writes.
  base::Result<PageImages> pending(const base::File& database) const;

  // Drops the finished journal file. Nothing happens while it is needed, or without a commit.
  void close();

  const std::string& path() const { return path_; }

  // --- for whoever copies, replaces, renames or deletes database files ---
  static std::string pathFor(const std::string& databasePath) { return databasePath + "-journal"; }
  // Before a database is copied: completes a journal that is waiting. True when pages were written.
  // Without a journal the database is not even opened; with one it must not be in use.
  static base::Result<bool> complete(base::FileSystem& files, const std::string& databasePath);
  // Whether a journal of whatever name holds an interrupted transaction of this database. Never
  // writes.
  static base::Result<bool> belongs(base::FileSystem& files, const std::string& journalPath,
                                    const std::string& databasePath);
  // Before a database is replaced or deleted: drops its journal, whatever it holds.
  static base::Result<void> discard(base::FileSystem& files, const std::string& databasePath);

 private:
  base::Result<void> writeJournal(const std::string& databasePath, const base::Bytes& content);
  base::Result<void> openJournal(const std::string& databasePath, std::size_t length);
  bool invalidate();
  bool markUndone(const base::Bytes& journal);
  bool undo(base::File& database, const PageImages& old, std::uint64_t size);
  void removeFile() const;

  base::FileSystem* files_;
  std::string path_;
  std::uint32_t pageSize_;
  std::unique_ptr<base::File> file_;  // open from the first commit on
  bool interrupted_ = false;
};

}  // namespace jet
