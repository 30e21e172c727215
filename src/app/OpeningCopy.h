#pragma once

#include <chrono>

#include "app/SafetyCopies.h"

namespace app {

// The safety copy of a year that is being opened, as it was before, at most one a day.
//
// Opening does not wait for it: before the database is opened prepare() only reads, within a time
// budget; the copy is written by finish() once the window stands. A year that is too large for the
// budget is copied when it is closed.
class OpeningCopy {
 public:
  OpeningCopy(base::FileSystem& files, std::string dataFolder, std::string year,
              const base::Clock& clock);

  void prepare(std::chrono::milliseconds budget = std::chrono::milliseconds(8));
  base::Result<void> finish();
  // With a copy of the year as it is then, if it was changed.
  base::Result<void> afterClosing();

 private:
  base::FileSystem& files_;
  std::string dataFolder_;
  std::string year_;
  const base::Clock& clock_;
  SafetyCopies::Contents contents_;
};

}  // namespace app
