#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/GermanDate.h"

namespace app {

// The safety copy of a year that is being opened, as it was before: the database and its side
// files in Sicherungen/<yyyy-mm-dd>/ under the data folder, from where the restore window takes
// them. At most one a day, none when nothing has changed since the newest, the newest ten are kept.
//
// Opening does not wait for it: before the database is opened prepare() only reads, within a time
// budget; the copy is written by finish() once the window stands. A year that is too large for the
// budget is copied by afterClosing().
class SafetyCopy {
 public:
  SafetyCopy(base::FileSystem& files, std::string dataFolder, std::string yearName,
             base::Date today);

  static std::string folderIn(const std::string& dataFolder);
  // For a year that cannot be opened any more: of which day there is a copy, and how it comes back.
  // "" when there is none, or when the error is not one that a copy would cure.
  std::string advice(const base::Error& error) const;

  void prepare(std::chrono::milliseconds budget = std::chrono::milliseconds(8));
  // The error names the file; a copy that failed does not count as made.
  base::Result<void> finish();
  base::Result<void> afterClosing();

 private:
  using Contents = std::map<std::string, base::Bytes>;

  bool isDue() const;
  std::vector<std::string> copiedDays() const;  // oldest first
  base::Result<std::vector<std::string>> namesIn(const std::string& folder) const;
  bool sameAsNewest() const;
  bool olderThanNewest() const;
  std::string todaysFolder() const;
  base::Result<void> write();
  base::Result<void> makeFolders();
  base::Result<void> removeOldest();

  base::FileSystem& files_;
  std::string dataFolder_;
  std::string yearName_;
  std::string day_;
  Contents contents_;
  bool postponed_ = false;
};

}  // namespace app
