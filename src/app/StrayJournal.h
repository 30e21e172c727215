#pragma once

#include <string>

#include "base/File.h"

// A year that a crash left in mid-change and that was then given another name by hand: what would
// complete it lies beside it under the old name, and the year alone may be half of each state.
namespace app {

// The year that the waiting change was made for, under its old name ("Haushalt.kwd"); "" when there
// is none that belongs to this year. Years that are there themselves are left theirs.
std::string formerNameOf(base::FileSystem& files, const std::string& folder,
                         const std::string& year);
// Lets the next opening of the year complete that change.
base::Result<void> adoptWaitingChange(base::FileSystem& files, const std::string& folder,
                                      const std::string& formerName, const std::string& year);

// What the program asks before it opens such a year, and what the check says of it.
std::string waitingChangeQuestion(const std::string& formerName, const std::string& year);
std::string waitingChangeFinding(const std::string& formerName);

}  // namespace app
