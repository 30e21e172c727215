#include "support/Command.h"

#include <array>
#include <cstdio>

#ifdef _WIN32
#define popen _popen
#define pclose _pclose
#endif

namespace support {

CommandResult run(const std::string& commandLine) {
  CommandResult result;
  FILE* pipe = popen((commandLine + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> buffer;
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
    result.output.append(buffer.data(), count);
  const int status = pclose(pipe);
#ifdef _WIN32
  result.exitCode = status;
#else
  result.exitCode = (status & 0x7F) == 0 ? (status >> 8) & 0xFF : -1;
#endif
  return result;
}

bool isInstalled(const std::string& program) {
#ifdef _WIN32
  return run("where " + program).output.find(":\\") != std::string::npos;
#else
  return run("command -v " + program).exitCode == 0;
#endif
}

}  // namespace support
