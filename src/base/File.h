#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "base/Result.h"

// The only door to the disk. Everything that the program keeps goes through a FileSystem, so that
// tests can put a device in its place that fails, tears or forgets.
//
// Paths are UTF-8. Errors carry the path.
namespace base {

// An open file with random access. Closing (destruction) never fails and releases the lock.
class File {
 public:
  virtual ~File() = default;
  virtual const std::string& path() const = 0;
  // False when the path has come to mean another file or none, so that what is written here would
  // be found by nobody. Where the system keeps an open file's name, it is always true.
  virtual bool isStillNamed() const { return true; }
  virtual Result<std::uint64_t> size() const = 0;
  // Fills the whole span; a file that ends before is ErrorCode::Truncated.
  virtual Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const = 0;
  // Writes the whole span, extending the file if needed. A short write is an error.
  virtual Result<void> writeAt(std::uint64_t offset, ByteSpan bytes) = 0;
  virtual Result<void> resize(std::uint64_t size) = 0;
  // Returns when everything written so far is on the medium.
  virtual Result<void> sync() = 0;
};

// The lock counts between processes and between two openings in one process, and ends with the
// File or the process, so that a crash leaves none behind. Only regular files open.
enum class OpenMode {
  Read,       // shared reading; InUse if somebody holds it for writing
  ReadWrite,  // must exist; exclusive lock, InUse if it cannot be had, AccessDenied if
              // write-protected
  Create,     // a new, empty file; exclusive lock. A file that had the name goes, InUse if somebody
              // holds it, AccessDenied if write-protected; a link goes itself, not what it leads to
};

// Who may read and write a new file, where the system has such rights: as a file beside it says.
enum class Rights {
  Same,    // exactly as that file
  AtMost,  // not more than that file, and not more than new files usually have
};

struct FileInfo {
  bool isFolder = false;
  bool writable = true;
  std::uint64_t size = 0;
  std::chrono::system_clock::time_point modified;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual Result<std::unique_ptr<File>> open(const std::string& path, OpenMode mode) = 0;
  // Create, with the rights of another file; its owner can always write it. The usual rights when
  // there is no such file.
  virtual Result<std::unique_ptr<File>> createLike(const std::string& path,
                                                   const std::string& model, Rights rights);
  // NotFound when there is nothing of that name.
  virtual Result<FileInfo> info(const std::string& path) const = 0;
  // Names (not paths) of all entries but "." and "..", sorted by name without regard to case.
  virtual Result<std::vector<std::string>> list(const std::string& folder) const = 0;
  // A file, or an empty folder. A file that somebody holds for writing is InUse.
  virtual Result<void> remove(const std::string& path) = 0;
  // Replaces an existing target; both in one folder. Atomic where the system can. A target that
  // somebody has open is InUse.
  virtual Result<void> rename(const std::string& from, const std::string& to) = 0;
  // One level; the parent must exist. AlreadyExists when it does.
  virtual Result<void> makeFolder(const std::string& path) = 0;
  // Makes the names in a folder durable (new, renamed, removed). No-op where the system does so.
  virtual Result<void> syncFolder(const std::string& folder) = 0;
  // Clears the read-only attribute.
  virtual Result<void> makeWritable(const std::string& path) = 0;

  // --- built on the calls above, the same for every file system ---
  bool exists(const std::string& path) const;
  bool folderExists(const std::string& path) const;
  // Up to limit bytes; a longer file is ErrorCode::InvalidValue, never read into memory.
  Result<std::string> readText(const std::string& path, std::uint64_t limit = 1 << 20);
  // Replaced whole or not at all: temporary file beside it ("NAME-tmp"), sync, rename, sync of the
  // folder. A write-protected target is AccessDenied. Its rights stay; a new file has those of
  // model, if there is one.
  Result<void> replaceFile(const std::string& path, ByteSpan content,
                           const std::string& model = {});
  // Copies with verification: written beside the target, synced, read back and compared, renamed
  // over it. The target is the old file or the whole new one. A copy onto itself does nothing.
  // progress(bytesDone, bytesTotal) may return false to cancel (ErrorCode::Cancelled). A
  // write-protected target is AccessDenied. Its rights stay; a new one has at most the source's. An
  // error names the file that it is about.
  using Progress = std::function<bool(std::uint64_t, std::uint64_t)>;
  Result<void> copyFile(const std::string& from, const std::string& to,
                        const Progress& progress = {});
  // The content alone, synced and compared, into a new file that stands for `to` (whose rights it
  // takes as above) until it is renamed. What is left of it after an error is the caller's.
  Result<void> copyContent(const std::string& from, const std::string& newFile,
                           const std::string& to, const Progress& progress = {});
  // Nothing is there, or a file that may be written.
  Result<void> checkReplaceable(const std::string& path) const;
};

// The real one (POSIX or Windows). DiskFile*.cpp.
std::unique_ptr<FileSystem> makeDiskFileSystem();

}  // namespace base
