#pragma once

#include "base/File.h"
#include "base/GermanDate.h"
#include "base/PathState.h"

namespace dialogs {

class Navigator;
class Prompts;
class Shell;
class YearKeeper;

// What windows need from the rest of the program; made in main, handed down by reference.
struct Services {
  base::PathState& paths;
  base::FileSystem& files;
  const base::Clock& clock;
  Prompts& prompts;
  Shell& shell;
  Navigator& navigator;
  YearKeeper* keeper = nullptr;  // none: no copies are kept
};

}  // namespace dialogs
