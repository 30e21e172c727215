#pragma once

#include "app/ui/CommandLineRun.h"
#include "base/Result.h"

namespace app {

// The reports that look at several years: all years, forecast, tariffs.
bool isTableReport(CommandLine::Action action);

// Prints the report, or writes its table where the line names a target. Damaged years are named on
// err, each with its reason, and the others count.
base::Result<void> writeTableReport(const CommandLine& line, const Console& console);

}  // namespace app
