#include "app/ui/Console.h"

#ifdef _WIN32
#include <windows.h>
// shellapi.h needs windows.h before it.
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>

#include "base/Paths.h"
#endif

namespace app {

#ifdef _WIN32

namespace {

UINT codePageOfCaller = CP_UTF8;

// Output into a file or to another program stays where the caller has led it.
bool isRedirected(DWORD stream) {
  const DWORD type = GetFileType(GetStdHandle(stream));
  return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}

// The console would show single bytes of a letter as letters, so lines go out whole.
void reopen(std::FILE* stream) {
  constexpr std::size_t kBufferSize = 1U << 16;
  if (std::freopen("CONOUT$", "w", stream) != nullptr)
    std::setvbuf(stream, nullptr, _IOFBF, kBufferSize);
}

}  // namespace

std::vector<std::string> commandLineArguments(int, char**) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** all = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(base::fromPath(all[i]));
  LocalFree(all);
  return arguments;
}

void attachConsole() {
  const bool outputRedirected = isRedirected(STD_OUTPUT_HANDLE);
  const bool errorsRedirected = isRedirected(STD_ERROR_HANDLE);
  if ((outputRedirected && errorsRedirected) || !AttachConsole(ATTACH_PARENT_PROCESS)) return;
  codePageOfCaller = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  if (!outputRedirected) reopen(stdout);
  if (!errorsRedirected) reopen(stderr);
  std::atexit([] {
    std::fflush(nullptr);
    SetConsoleOutputCP(codePageOfCaller);
  });
}

#else

std::vector<std::string> commandLineArguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

void attachConsole() {}

#endif

}  // namespace app
