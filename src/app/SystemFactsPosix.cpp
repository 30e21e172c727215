#ifndef _WIN32

#include <cstdlib>

#include "app/DataFolder.h"
#include "base/Paths.h"

namespace app {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// Names of variables differ by letter case here.
std::string variable(const char* name, const char* capitals) {
  std::string value = variable(name);
  return value.empty() ? variable(capitals) : value;
}

}  // namespace

SystemFacts readSystemFacts() {
  SystemFacts facts;
  std::error_code error;
  const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
  facts.programFolder = base::withSeparator(base::fromPath(executable.parent_path()));
  facts.portable = ProgramDriveIsRemovable(facts.programFolder);
  facts.environment.homeDrive = variable("HomeDrive", "HOMEDRIVE");
  facts.environment.homePath = variable("HomePath", "HOMEPATH");
  facts.environment.home = variable("HOME");
  return facts;
}

}  // namespace app

#endif
