#pragma once

#include <string>

#include "base/Bytes.h"
#include "base/Result.h"

class QWidget;

namespace dialogs {

// What changes an open year as a whole.
enum class Harm {
  Clearing,          // the entries of a utility are set to 0
  DeletingReadings,  // all readings of a meter go
  ShiftingStart,     // the twelve months move
};

// Keeps a safety copy of the open year before that. app_ui implements it.
class YearKeeper {
 public:
  virtual ~YearKeeper() = default;
  // After the user has agreed to the action and before it. database is the year's image, which only
  // its session can read. False when there is no copy and the user does not go on without.
  virtual bool keepBefore(Harm harm, QWidget* owner, const std::string& yearPath,
                          const base::Result<base::Bytes>& database) = 0;
};

}  // namespace dialogs
