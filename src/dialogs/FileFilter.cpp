#include "dialogs/FileFilter.h"

#include <algorithm>

namespace dialogs {
namespace {

// The pieces between separators; nothing behind the last separator is no piece.
std::vector<std::string> pieces(std::string_view text, char separator) {
  std::vector<std::string> result;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    result.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return result;
}

}  // namespace

std::string systemFilterList(std::string_view filter) {
  std::string list(filter);
  if (list.empty() || list.back() != '|') list += '|';
  std::replace(list.begin(), list.end(), '|', '\0');
  return list;
}

std::string completedName(std::string name, std::string_view extension) {
  std::string capitals(extension);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  if (!name.ends_with(extension) && !name.ends_with(capitals)) name += extension;
  return name;
}

std::vector<FilterEntry> filterEntries(std::string_view filter) {
  const std::vector<std::string> strings = pieces(systemFilterList(filter), '\0');
  std::vector<FilterEntry> entries;
  for (std::size_t i = 0; i < strings.size(); i += 2) {
    FilterEntry entry{strings[i], {}};
    if (i + 1 < strings.size()) entry.patterns = pieces(strings[i + 1], ';');
    if (entry.patterns.empty()) entry.patterns.emplace_back("*");
    if (!entry.description.empty()) entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace dialogs
