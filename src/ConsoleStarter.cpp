// kalvira.com, beside kalvira.exe: a command prompt does not wait for a program with windows, so a
// plain "kalvira --uebersicht ..." finds this one first. It starts the program, waits, and hands
// its exit code on.

#include <windows.h>

#include <cstdio>
#include <string>

namespace {

std::wstring programBeside() {
  constexpr std::size_t kLongestName = 32768;
  std::wstring name(kLongestName, L'\0');
  name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  return name.substr(0, name.rfind(L'\\') + 1) + L"kalvira.exe";
}

}  // namespace

int main() {
  const std::wstring program = programBeside();
  std::wstring line = GetCommandLineW();
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                      &start, &process)) {
    std::fputs("kalvira.exe fehlt neben kalvira.com.\n", stderr);
    return 1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 1;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(code);
}
