#pragma once

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// Files that Access or Jet wrote, where they are at hand. Tests that need them skip without.
namespace realfiles {

inline std::filesystem::path folder() {
  return KALVIRA_JET_FILES;
}
inline bool present() {
  return std::filesystem::is_directory(folder());
}

inline std::vector<std::string> names(const std::vector<std::string>& subfolders) {
  std::vector<std::string> found;
  if (!present()) return found;
  for (const std::string& sub : subfolders)
    for (const auto& entry : std::filesystem::directory_iterator(folder() / sub))
      found.push_back(sub + "/" + entry.path().filename().string());
  std::sort(found.begin(), found.end());
  return found;
}

inline std::vector<std::string> sound() {
  return names({"jet3", "jet4", "year"});
}

// A file's name as the name of a test.
inline std::string testName(std::string file) {
  std::replace_if(
      file.begin(), file.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return file;
}

inline std::string read(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

}  // namespace realfiles
