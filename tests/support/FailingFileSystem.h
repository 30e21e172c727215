#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/File.h"

namespace support {

// Which call goes wrong, and how.
struct Fault {
  std::size_t call = 0;  // counted from 0 since arming
  bool forGood = false;  // every later call fails as well
  base::ErrorCode code = base::ErrorCode::IoError;
  bool shortWrite = false;  // a failing write stores its first half
  std::string file{};       // calls for this file alone count, as on a disk with a bad spot
  std::size_t lasts = 1;    // so many calls fail
};

// A disk on which a chosen call fails. Every call counts: those of the file system and those of
// the files opened through it (but not closing, which cannot fail).
class FailingFileSystem final : public base::FileSystem {
 public:
  explicit FailingFileSystem(base::FileSystem& inner);

  // Starts counting anew.
  void arm(const Fault& fault);
  void disarm();
  // Calls since arming or disarming.
  std::size_t calls() const;
  // True when the chosen call has come.
  bool struck() const;

  base::Result<std::unique_ptr<base::File>> open(const std::string& path,
                                                 base::OpenMode mode) override;
  base::Result<base::FileInfo> info(const std::string& path) const override;
  base::Result<std::vector<std::string>> list(const std::string& folder) const override;
  base::Result<void> remove(const std::string& path) override;
  base::Result<void> rename(const std::string& from, const std::string& to) override;
  base::Result<void> makeFolder(const std::string& path) override;
  base::Result<void> syncFolder(const std::string& folder) override;
  base::Result<void> makeWritable(const std::string& path) override;

  // Shared with the open files, which may outlive a change of the fault.
  struct Counter {
    std::optional<Fault> fault;
    std::size_t calls = 0;
    // Success, or the error of the fault if its turn has come.
    base::Result<void> next(const std::string& path);
  };

 private:
  base::FileSystem& inner_;
  std::shared_ptr<Counter> counter_ = std::make_shared<Counter>();
};

}  // namespace support
