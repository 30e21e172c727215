#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/File.h"

namespace jet {

// Pages of one transaction: page number -> new image (whole pages, as they go to disk).
using PageImages = std::map<std::uint32_t, base::Bytes>;

// The redo journal "NAME-journal" beside a database: new page images with a checksum. A commit
// writes and syncs the journal, writes the pages in place and syncs, then drops the journal. So at
// every moment either the database is untouched or the journal can complete it.
//
// The journal also keeps the database's size before the transaction and a checksum of the pages'
// old content, so that a journal left beside a file that has been replaced meanwhile (a restored
// backup) is recognised and not applied to it.
class Journal {
 public:
  Journal(base::FileSystem& files, std::string databasePath, std::uint32_t pageSize);

  enum class Outcome {
    Stored,       // in place and durable
    NotStored,    // the database holds the old state
    Interrupted,  // the journal is complete and durable, the pages are not: recover() finishes it
  };
  struct Commit {
    Outcome outcome = Outcome::NotStored;
    base::Result<void> result;
  };
  // The database must be open for writing by the caller (who holds its lock).
  Commit commit(base::File& database, const PageImages& pages);

  // Completes a valid journal, discards an incomplete one. True when pages were written.
  base::Result<bool> recover(base::File& database);

  // For reading without the right to write: the pages of a valid waiting journal (an overlay), or
  // none. Never writes.
  base::Result<PageImages> pending(const base::File& database) const;

  const std::string& path() const { return path_; }

 private:
  base::FileSystem& files_;
  std::string path_;
  std::string databasePath_;
  std::uint32_t pageSize_;
};

}  // namespace jet
