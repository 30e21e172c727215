#pragma once

#include <string>
#include <vector>

namespace app {

// The arguments behind the program's name as UTF-8; argv is in the ANSI code page on Windows.
std::vector<std::string> commandLineArguments(int argc, char** argv);

// Lets a program with windows write to the console that it was called from; nothing to do but on
// Windows.
void attachConsole();

}  // namespace app
