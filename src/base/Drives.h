#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The places where files can lie: drive letters on Windows; "/" and mounted media on Linux.
namespace base {

// Roots, ending with the separator, in the order in which the user looks for them.
std::vector<std::string> driveRoots();

// Does the folder lie on a medium that is taken along, such as a USB stick?
bool onRemovableDrive(const std::string& folder);

// --- the rules behind it, the same on every system ---

// Windows. driveStrings is the system's list: roots ("C:\"), each ended by a NUL character.
// A: is a floppy drive and never counts.
bool driveLetterIsRemovable(std::string_view folder, std::string_view driveStrings,
                            const std::function<bool(const std::string& root)>& isRemovable);

// Linux: one line of /proc/self/mountinfo.
struct Mount {
  std::string point;   // where it is mounted, without a separator at the end ("/" excepted)
  std::string device;  // "8:1"
  std::string source;  // "/dev/sda1"
  bool operator==(const Mount&) const = default;
};
std::vector<Mount> parseMountInfo(std::string_view text);
// The mount on which the path lies; nullptr when there is none.
const Mount* mountHolding(const std::vector<Mount>& mounts, std::string_view path);
// "/" first, then every mount of a removable device or below the folders where media are mounted.
std::vector<std::string> mediaRoots(const std::vector<Mount>& mounts,
                                    const std::function<bool(const Mount&)>& isRemovable);

}  // namespace base
