#pragma once

#include <string>

namespace support {

// What an installed program prints (both streams) for a command line.
struct CommandResult {
  int exitCode = -1;
  std::string output;
};
CommandResult run(const std::string& commandLine);
bool isInstalled(const std::string& program);

}  // namespace support
