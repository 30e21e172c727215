#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Names of files and folders as UTF-8 text. The one place that turns them into the system's form.
namespace base {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

// A narrow string given to std::filesystem::path is taken as the ANSI code page on Windows, which
// garbles names; these two go through UTF-8.
std::filesystem::path toPath(std::string_view utf8);
std::string fromPath(const std::filesystem::path& path);

// Appends the separator if the text does not end with one. Folders in program state always do.
std::string withSeparator(std::string folder, char separator = kPathSeparator);
// The part behind the last separator; the part up to and with it.
std::string_view fileName(std::string_view path);
std::string_view folderOf(std::string_view path);
// The name without its last four characters (".kwd"); "" for names of up to four characters.
std::string baseName(std::string_view fileName);

// "*.kwd", "*.dat": does the name end with the extension, in any letter case (ASCII)?
bool hasExtension(std::string_view name, std::string_view extensionWithDot);
// Equality without regard to ASCII and German letter case (column names, file names).
bool equalsIgnoreCase(std::string_view a, std::string_view b);
std::string lowerCase(std::string_view utf8);

}  // namespace base
