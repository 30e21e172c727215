#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/GermanDate.h"

namespace app {

// When a copy is made; part of its folder's name.
enum class CopyMoment {
  Opening,           // the first of a day, before anything can be changed
  Closing,           // after it was changed
  Deleting,          // before the year goes, with all its side files
  Clearing,          // before the entries of a utility are set to 0
  DeletingReadings,  // before all readings of a meter go
  ShiftingStart,     // before the twelve months move
  Restoring,         // before a saved one takes its place
  Replacing,         // before an empty one takes its place
};

// The safety copies of the years of a data folder: the database and its side files in
// Sicherungen/<yyyy-mm-dd>/ (the first opening of a day) or Sicherungen/<yyyy-mm-dd hh.mm.ss ...>/
// under the data folder, from where the restore window takes them.
//
// A copy equal to the newest, or to one of the same day, is not made again; one equal to an older
// takes its place. Of each year the copies of ten days are kept, never taking today's away; days
// that have not come yet, from when the clock was wrong, go first.
class SafetyCopies {
 public:
  SafetyCopies(base::FileSystem& files, const std::string& dataFolder, const base::Clock& clock);

  static std::string folderIn(const std::string& dataFolder);

  // By bare name.
  using Contents = std::map<std::string, base::Bytes>;

  // A copy of a year as it lies on the disk, complete although a journal may wait beside it, and of
  // the other files of the folder that are named. Gives the copy's folder, the one that was there
  // already if it is equal. The error names the file; a copy that failed does not count as made.
  base::Result<std::string> keep(CopyMoment moment, const std::string& year,
                                 const std::vector<std::string>& also = {});
  // The same for a year that is open: nobody but who holds it can read it.
  base::Result<std::string> keepOpen(CopyMoment moment, const std::string& year,
                                     base::Bytes database);
  base::Result<std::string> keepContents(CopyMoment moment, const std::string& year,
                                         const Contents& contents);

  // A copy of the first opening today is there.
  bool hasTodays(const std::string& year) const;
  // For a year that cannot be opened any more: of which day there is a copy, and how it comes back.
  // "" when there is none, or when the error is not one that a copy would cure.
  std::string advice(const std::string& year, const base::Error& error) const;

 private:
  // The folders that hold a copy of the year, the oldest first.
  std::vector<std::string> momentsOf(const std::string& year) const;
  bool isEqual(const std::string& moment, const std::string& year, const Contents& contents) const;
  std::string newMoment(CopyMoment moment, const std::string& year) const;
  base::Result<void> write(const std::string& moment, const std::string& year,
                           const Contents& contents);
  base::Result<void> removeCopy(const std::string& moment, const std::string& year);
  base::Result<void> removeOldest(const std::string& year);

  base::FileSystem& files_;
  std::string dataFolder_;
  base::Moment now_;
  std::string today_;
};

}  // namespace app
