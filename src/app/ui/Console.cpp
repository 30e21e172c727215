#include "app/ui/Console.h"

#ifdef _WIN32
#include <windows.h>
// shellapi.h needs windows.h before it.
#include <shellapi.h>

#include <cstdio>

#include "base/Paths.h"
#endif

namespace app {

#ifdef _WIN32

std::vector<std::string> commandLineArguments(int, char**) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** all = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(base::fromPath(all[i]));
  LocalFree(all);
  return arguments;
}

void attachConsole() {
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
  SetConsoleOutputCP(CP_UTF8);
  std::freopen("CONOUT$", "wb", stdout);
  std::freopen("CONOUT$", "wb", stderr);
}

#else

std::vector<std::string> commandLineArguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

void attachConsole() {}

#endif

}  // namespace app
