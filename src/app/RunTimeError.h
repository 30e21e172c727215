#pragma once

#include <string>

#include "base/Result.h"

namespace app {

// The text of the error box of a file action: "Fehler # 70 wurde ausgelöst von Kalvira", and below
// it what went wrong with which file. The numbers are those that the household knows from the
// program's earlier versions (53 not found, 57 device, 61 disk full, 70 access denied ...).
std::string runTimeErrorText(const base::Error& error);

}  // namespace app
