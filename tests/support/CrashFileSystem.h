#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/MemoryFileSystem.h"

namespace support {

// A simulated disk of a computer whose power can fail.
//
// While the program runs it sees an ordinary disk. Every change is recorded in order: making,
// writing, resizing and syncing files, renaming and removing names, syncing folders. Afterwards
// survivor() tells what would lie on the medium if the power had failed at any moment of that
// history. The rules:
//
// - What a completed sync of a file covers is on the medium: its content and size as they were
//   then. What was written or resized later is pending.
// - Each pending write has its own fate, in any combination, as a disk reorders what it caches:
//     Keep    all of it reached the medium
//     Drop    nothing of it did
//     Tear    some of its 512-byte sectors did, the others hold what was there before
//     Garble  each sector that it touches, the bytes around it included, holds random bytes, or
//             zeros, or is kept or dropped
//   A sector that tears or garbles is damaged as a whole; writes that were synced before keep what
//   they hold outside of it. A dropped write at the end leaves the file short unless a later one is
//   kept; the gap between is zeros. Pending resizes are kept, unless their fate is Drop.
// - Names (made, renamed, removed) become durable by syncing their folder. Of the pending changes
//   the first k are on the medium, for a k that the caller chooses: a file system keeps their
//   order, but says nothing about when. Syncing a file does not make its name durable. Renaming
//   replaces in one step.
// - Reading never changes anything.
class CrashFileSystem final : public base::FileSystem {
 public:
  // What lies on the medium at the start.
  explicit CrashFileSystem(const MemoryFileSystem::Contents& start);

  enum class Fate { Keep, Drop, Tear, Garble };

  // The moments at which the power can fail: 0 (before the first change) to moments() - 1 (after
  // the last). A sync that is under way at the failure is the moment before it.
  std::size_t moments() const { return changes_.size() + 1; }
  // Pending writes and resizes of a moment, and pending changes of names.
  std::size_t pendingWrites(std::size_t moment) const;
  std::size_t pendingNames(std::size_t moment) const;

  // fate(i) is asked once for each pending write i (0 is the oldest). random decides which sectors
  // tear and what garbage is like.
  MemoryFileSystem::Contents survivor(std::size_t moment,
                                      const std::function<Fate(std::size_t)>& fate,
                                      std::size_t keptNames, std::uint64_t random) const;

  base::Result<std::unique_ptr<base::File>> open(const std::string& path,
                                                 base::OpenMode mode) override;
  base::Result<base::FileInfo> info(const std::string& path) const override;
  base::Result<std::vector<std::string>> list(const std::string& folder) const override;
  base::Result<void> remove(const std::string& path) override;
  base::Result<void> rename(const std::string& from, const std::string& to) override;
  base::Result<void> makeFolder(const std::string& path) override;
  base::Result<void> syncFolder(const std::string& folder) override;
  base::Result<void> makeWritable(const std::string& path) override;

  struct Change {
    enum class Kind { Write, Resize, Sync, Make, Rename, Remove, SyncFolder };
    Kind kind;
    std::size_t file = 0;  // identity of the file, whatever its name
    std::uint64_t offset = 0;
    base::Bytes bytes{};
    std::string name{};
    std::string newName{};
  };

 private:
  using Names = std::map<std::string, std::size_t>;
  std::vector<bool> durable(std::size_t moment) const;
  static void applyName(Names& names, const Change& change);

  MemoryFileSystem live_;
  Names liveNames_;
  Names startNames_;
  std::map<std::size_t, base::Bytes> startContent_;
  std::size_t nextFile_ = 0;
  std::vector<Change> changes_;
};

}  // namespace support
