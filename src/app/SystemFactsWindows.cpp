#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "app/DataFolder.h"
#include "base/Paths.h"

namespace app {
namespace {

std::string utf8(const std::wstring& text) {
  return base::fromPath(std::filesystem::path(text));
}

std::string variable(const wchar_t* name) {
  std::wstring value(32768, L'\0');
  const DWORD length =
      GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
  value.resize(length < value.size() ? length : 0);
  return utf8(value);
}

std::filesystem::path executable() {
  std::wstring name(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
  name.resize(length);
  return name;
}

// A scheduled task or a service may come without drive and path; the folder is the same.
Environment homeVariables() {
  Environment home{variable(L"HOMEDRIVE"), variable(L"HOMEPATH"), {}};
  const std::string profile = variable(L"USERPROFILE");
  constexpr std::size_t kDriveLength = 2;
  if (home.homeDrive.empty() && home.homePath.empty() && profile.size() > kDriveLength)
    home = {profile.substr(0, kDriveLength), profile.substr(kDriveLength), {}};
  return home;
}

}  // namespace

SystemFacts readSystemFacts() {
  SystemFacts facts;
  facts.programFolder = base::withSeparator(base::fromPath(executable().parent_path()));
  facts.portable = ProgramDriveIsRemovable(facts.programFolder);
  facts.environment = homeVariables();
  return facts;
}

}  // namespace app

#endif
