#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/File.h"

namespace base {

// Files of one folder that change together: all of them or none, whatever fails and whenever the
// power goes.
//
// The new contents are written beside the files ("NAME-vorhaben") and synced. Then an intention,
// "Kalvira-Vorhaben", that names them is written and synced: from that moment on they count. Then
// they are renamed into their places, and the intention goes. What an interruption leaves is
// completed by finish() if the intention is whole, and swept away if it is not. The intention is
// held open from begin() on, so that nobody takes a change that is under way for an interrupted
// one.
//
// A change can also be tied to a file that changes in place by means of its own, a database with
// its journal: then it counts if and when that file has changed. prepare() comes before the
// database's commit, complete() after it.
class JointChange {
 public:
  // InUse while another change of this folder is under way. Finishes an interrupted one first.
  static Result<JointChange> begin(FileSystem& files, const std::string& folder);
  // Without commit() or complete() everything stays as it was.
  ~JointChange();
  JointChange(JointChange&&) noexcept;
  JointChange& operator=(JointChange&&) = delete;

  // What is to happen to a file of the folder, by its bare name; each name at most once. Errors
  // that can be foreseen come here: a file that is held by somebody or write-protected, no space.
  Result<void> replace(const std::string& name, ByteSpan content, const std::string& rightsOf = {});
  Result<void> copy(const std::string& from, const std::string& name,
                    const FileSystem::Progress& progress = {});
  // A file that is not there counts as removed.
  Result<void> remove(const std::string& name);

  // Success: all is done and durable. Failure: nothing is, and nothing will be; unless
  // isPending(): then a file that could not be renamed now follows at the next finish().
  Result<void> commit();

  // The two halves of commit(). After a failure of the first nothing is; unless isPending(): then
  // only the next finish() finds out. After a failure of the second see commit().
  Result<void> prepare() { return writeIntention(); }
  Result<void> complete();

  // The intention, tied to a file of the folder that the caller holds open: it counts once that
  // file's content is another than this, which it has now.
  Result<void> prepare(const std::string& name, ByteSpan content);
  // After that file has changed comes complete(), whose failure is always pending.
  // It shall not count, as without this call when the change goes. False when that cannot be
  // promised: the file must not change any more then, until finish() has seen it unchanged.
  bool withdraw();
  // Nobody knows whether that file has changed: finish() will see.
  void leaveToFinish();

  // Something is left to the next finish(): a file, or only the intention.
  bool isPending() const { return pending_; }

  // For whoever starts to use a folder: completes or sweeps away what an interruption has left. A
  // change that is under way elsewhere is left alone. settle brings a file that a change is tied to
  // into its final state (completes a database's journal) before it is looked at. True when an
  // interrupted change was completed.
  using Settle = std::function<Result<void>(const std::string& path)>;
  static Result<bool> finish(FileSystem& files, const std::string& folder,
                             const Settle& settle = {});

  // What tells one content of a file from another.
  struct Mark {
    std::uint64_t size = 0;
    std::uint64_t sum = 0;
    bool operator==(const Mark&) const = default;
  };
  enum class Kind { Replace, Remove, TiedTo };
  struct Entry {
    Kind kind = Kind::Replace;
    std::string name;
    Mark mark;  // of the new content; of the file that goes; of the file before it changes
  };

 private:
  JointChange(FileSystem& files, std::string folder, std::unique_ptr<File> intention);
  Result<void> checkFree(const std::string& name) const;
  Result<void> stage(const std::string& name, Result<void> written);
  Result<void> writeIntention();
  Result<void> carryOut();
  void dropStaged();

  FileSystem* files_;
  std::string folder_;
  std::unique_ptr<File> intention_;
  std::vector<Entry> entries_;
  bool pending_ = false;
};

}  // namespace base
