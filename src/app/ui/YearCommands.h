#pragma once

#include "app/ui/CommandLineRun.h"

namespace app {

// --einlesen: the readings of a table into the book and the months of a year, all or nothing. What
// becomes of each month goes to the output, what is wrong with the table to the errors.
int importTable(const CommandLine& line, const Console& console);

// --fortfuehren: a new year from the template that begins with what another one ended with.
int continueYear(const CommandLine& line, const Console& console);

}  // namespace app
