#pragma once

#include <string>

namespace support {

// An empty folder of its own for a test, removed with everything in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // UTF-8, ends with the separator.
  const std::string& path() const { return path_; }
  // A name in the folder, also "folder/file", with the system's separators.
  std::string operator/(const std::string& name) const;

 private:
  std::string path_;
};

}  // namespace support
