#include "base/Paths.h"

namespace base {

std::filesystem::path toPath(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string fromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string withSeparator(std::string folder, char separator) {
  if (folder.empty() || folder.back() != separator) folder += separator;
  return folder;
}

namespace {
std::size_t afterLastSeparator(std::string_view path) {
#ifdef _WIN32
  const std::size_t at = path.find_last_of("\\/");
#else
  const std::size_t at = path.rfind('/');
#endif
  return at == std::string_view::npos ? 0 : at + 1;
}
}  // namespace

std::string_view fileName(std::string_view path) {
  return path.substr(afterLastSeparator(path));
}

std::string_view folderOf(std::string_view path) {
  return path.substr(0, afterLastSeparator(path));
}

std::string baseName(std::string_view fileName) {
  if (fileName.size() <= 4) return {};
  return std::string(fileName.substr(0, fileName.size() - 4));
}

std::string lowerCase(std::string_view utf8) {
  std::string result(utf8);
  for (std::size_t i = 0; i < result.size(); ++i) {
    const auto c = static_cast<unsigned char>(result[i]);
    if (c >= 'A' && c <= 'Z') {
      result[i] = static_cast<char>(c + 32);
    } else if (c == 0xC3 && i + 1 < result.size()) {
      // U+00C0..U+00DE lie 0x20 below their small letters; U+00D7 is the multiplication sign.
      const auto next = static_cast<unsigned char>(result[i + 1]);
      if (next >= 0x80 && next <= 0x9E && next != 0x97)
        result[i + 1] = static_cast<char>(next + 0x20);
      ++i;
    }
  }
  return result;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && lowerCase(a) == lowerCase(b);
}

bool hasExtension(std::string_view name, std::string_view extensionWithDot) {
  return name.size() >= extensionWithDot.size() &&
         equalsIgnoreCase(name.substr(name.size() - extensionWithDot.size()), extensionWithDot);
}

}  // namespace base
