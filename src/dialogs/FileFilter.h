#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dialogs {

// A filter text is pairs of description and pattern separated by "|":
// "*.kwd (Datenbank)|*.kwd". Several patterns of one entry are separated by ";".

// The text as a list of strings for the system: every "|" becomes a NUL character, and one is put
// at the end if there is none.
std::string systemFilterList(std::string_view filter);

struct FilterEntry {
  std::string description;
  std::vector<std::string> patterns;
  bool operator==(const FilterEntry&) const = default;
};
// The entries in their order. A description without a pattern accepts every file.
std::vector<FilterEntry> filterEntries(std::string_view filter);

// The name under which a file is saved: with the extension (".bmp"), unless it ends in it already,
// in small or in capital letters.
std::string completedName(std::string name, std::string_view extension);

}  // namespace dialogs
