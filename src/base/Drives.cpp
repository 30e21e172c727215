#include "base/Drives.h"

#include <algorithm>
#include <sstream>

#include "base/Paths.h"

namespace base {
namespace {

// Blanks and the like in mount points are written as octal numbers: "\040".
std::string withoutOctals(std::string_view text) {
  const auto digit = [](char c) { return c >= '0' && c <= '7'; };
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 3 < text.size() && digit(text[i + 1]) && digit(text[i + 2]) &&
        digit(text[i + 3])) {
      result += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 +
                                  (text[i + 3] - '0'));
      i += 3;
    } else {
      result += text[i];
    }
  }
  return result;
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

bool driveLetterIsRemovable(std::string_view folder, std::string_view driveStrings,
                            const std::function<bool(const std::string& root)>& isRemovable) {
  if (folder.empty()) return false;
  const char letter = upper(folder.front());
  while (true) {
    const std::size_t end = driveStrings.find('\0');
    // What follows the last NUL is no drive.
    if (end == std::string_view::npos) return false;
    const std::string root(driveStrings.substr(0, end));
    driveStrings.remove_prefix(end + 1);
    if (root.empty() || upper(root.front()) == 'A' || upper(root.front()) != letter) continue;
    if (isRemovable(root)) return true;
  }
}

std::vector<Mount> parseMountInfo(std::string_view text) {
  std::vector<Mount> mounts;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    // "36 35 98:0 /root /mount/point options ... - type source superoptions"
    std::istringstream words(line);
    std::string id, parent, device, root, point, word, type, source;
    words >> id >> parent >> device >> root >> point;
    while (words >> word && word != "-") continue;
    words >> type >> source;
    if (!point.empty()) mounts.push_back({withoutOctals(point), device, withoutOctals(source)});
  }
  return mounts;
}

const Mount* mountHolding(const std::vector<Mount>& mounts, std::string_view path) {
  const Mount* best = nullptr;
  for (const Mount& mount : mounts) {
    const std::string folder = withSeparator(mount.point, '/');
    const bool holds = path == mount.point || path.substr(0, folder.size()) == folder;
    // Of two mounts on one point the later lies on top.
    if (holds && (best == nullptr || mount.point.size() >= best->point.size())) best = &mount;
  }
  return best;
}

std::vector<std::string> mediaRoots(const std::vector<Mount>& mounts,
                                    const std::function<bool(const Mount&)>& isRemovable) {
  std::vector<std::string> roots;
  for (const Mount& mount : mounts) {
    const std::string_view point = mount.point;
    const bool media = point.substr(0, 7) == "/media/" || point.substr(0, 11) == "/run/media/";
    const bool device = mount.source.substr(0, 5) == "/dev/";
    if (point != "/" && (media || (device && isRemovable(mount))))
      roots.push_back(withSeparator(mount.point, '/'));
  }
  std::sort(roots.begin(), roots.end());
  roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
  roots.insert(roots.begin(), "/");
  return roots;
}

}  // namespace base
