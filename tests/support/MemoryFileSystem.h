#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/File.h"

namespace support {

// A disk in memory with the locks of the real one: one writer or many readers of a file, also
// within one process; renaming over or removing a file that somebody has open is InUse; a
// write-protected file is AccessDenied. Names are separated by '/'; "/" is there from the start.
class MemoryFileSystem final : public base::FileSystem {
 public:
  using Contents = std::map<std::string, base::Bytes>;

  MemoryFileSystem();
  // With these files; the folders that they need are made.
  explicit MemoryFileSystem(const Contents& contents);

  void put(const std::string& path, base::ByteSpan content);
  // Empty when there is no such file.
  base::Bytes get(const std::string& path) const;
  // Every file with its content.
  Contents contents() const;
  void protect(const std::string& path);
  // All that is there was last changed then.
  void setModified(std::chrono::system_clock::time_point modified);
  // Nothing can be made, renamed or removed in it.
  void protectFolder(const std::string& folder);

  base::Result<std::unique_ptr<base::File>> open(const std::string& path,
                                                 base::OpenMode mode) override;
  base::Result<base::FileInfo> info(const std::string& path) const override;
  base::Result<std::vector<std::string>> list(const std::string& folder) const override;
  base::Result<void> remove(const std::string& path) override;
  base::Result<void> rename(const std::string& from, const std::string& to) override;
  base::Result<void> makeFolder(const std::string& path) override;
  base::Result<void> syncFolder(const std::string& folder) override;
  base::Result<void> makeWritable(const std::string& path) override;

  struct Node {
    base::Bytes content;
    bool isFolder = false;
    bool writable = true;
    int readers = 0;
    bool written = false;  // open for writing
    std::chrono::system_clock::time_point modified;
  };

 private:
  std::shared_ptr<Node> find(const std::string& path) const;
  base::Result<void> checkFolder(const std::string& path) const;
  void addFolders(const std::string& path);

  std::map<std::string, std::shared_ptr<Node>> nodes_;
};

}  // namespace support
