#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

#include "base/File.h"
#include "base/Paths.h"

namespace base {
namespace {

ErrorCode codeOf(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR:
      return ErrorCode::NotFound;
    case EEXIST:
    case ENOTEMPTY:
      return ErrorCode::AlreadyExists;
    case EACCES:
    case EPERM:
    case EISDIR:
      return ErrorCode::AccessDenied;
    case EROFS:
      return ErrorCode::ReadOnly;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorCode::NoSpace;
    case EBUSY:
    case ETXTBSY:
      return ErrorCode::InUse;
    case ENAMETOOLONG:
      return ErrorCode::InvalidName;
    default:
      return ErrorCode::IoError;
  }
}

Failure systemFailure(int number, const std::string& path) {
  Error error;
  error.code = codeOf(number);
  error.file = path;
  error.systemError = number;
  if (error.code == ErrorCode::IoError) error.detail = "Systemfehler " + std::to_string(number);
  return fail(std::move(error));
}

Result<void> checked(int outcome, const std::string& path) {
  if (outcome != 0) return systemFailure(errno, path);
  return {};
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int get() const { return number_; }
  bool valid() const { return number_ >= 0; }

 private:
  int number_;
};

// A lock of the open file, not of the process: it also counts between two openings in one process,
// and it ends with the file. File systems without such locks fall back to flock, and those without
// any lock are used without one: better a year that can be edited than none.
Result<void> lock(int descriptor, bool exclusive, const std::string& path) {
#ifdef F_OFD_SETLK
  struct flock range = {};
  range.l_type = static_cast<short>(exclusive ? F_WRLCK : F_RDLCK);
  range.l_whence = SEEK_SET;
  if (::fcntl(descriptor, F_OFD_SETLK, &range) == 0) return {};
  if (errno == EAGAIN || errno == EACCES) return fail(ErrorCode::InUse, {}, path);
#endif
  if (::flock(descriptor, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0) return {};
  if (errno == EWOULDBLOCK) return fail(ErrorCode::InUse, {}, path);
  return {};
}

struct Identity {
  std::uint64_t device = 0, number = 0;
  bool operator==(const Identity&) const = default;
};

// Of an open file (path "") or of what a path means. The times of the file are not asked for: Linux
// counts them finer once somebody has looked, and then every sync writes them as well.
std::optional<Identity> identify(int descriptor, const char* path) {
#ifdef __linux__
  struct statx status = {};
  if (::statx(descriptor, path, *path == '\0' ? AT_EMPTY_PATH : 0, STATX_INO, &status) != 0)
    return std::nullopt;
  return Identity{std::uint64_t{status.stx_dev_major} << 32 | status.stx_dev_minor, status.stx_ino};
#else
  struct stat status = {};
  if ((*path == '\0' ? ::fstat(descriptor, &status) : ::stat(path, &status)) != 0)
    return std::nullopt;
  return Identity{static_cast<std::uint64_t>(status.st_dev), status.st_ino};
#endif
}

// False when the name has come to mean another file since it was opened.
bool stillNamed(int descriptor, const std::string& path) {
  const auto opened = identify(descriptor, "");
  const auto named = identify(AT_FDCWD, path.c_str());
  return opened && named && *opened == *named;
}

// The same for a file that is open for long: some network file systems number their files anew in
// the meantime. A file of the same size and time is taken for the one that was opened.
bool stillFound(int descriptor, const std::string& path) {
  if (stillNamed(descriptor, path)) return true;
  struct stat opened = {};
  struct stat named = {};
  if (::fstat(descriptor, &opened) != 0 || ::stat(path.c_str(), &named) != 0) return false;
  if (opened.st_nlink == 0) return false;  // another one lies in its place, however alike
  return opened.st_size == named.st_size && opened.st_mtim.tv_sec == named.st_mtim.tv_sec &&
         opened.st_mtim.tv_nsec == named.st_mtim.tv_nsec;
}

bool writeProtected(const struct stat& status) {
  return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

class DiskFile final : public File {
 public:
  DiskFile(Descriptor descriptor, std::string path)
      : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

  const std::string& path() const override { return path_; }

  bool isStillNamed() const override {
    // What a relative name means depends on the current folder, which may have changed.
    return !path_.starts_with('/') || stillFound(descriptor_.get(), path_);
  }

  // Without a look at the times, see identify(). Nobody reads or writes at the file's position.
  Result<std::uint64_t> size() const override {
    const off_t end = ::lseek(descriptor_.get(), 0, SEEK_END);
    if (end < 0) return systemFailure(errno, path_);
    return static_cast<std::uint64_t>(end);
  }

  Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    while (!target.empty()) {
      const ssize_t count =
          ::pread(descriptor_.get(), target.data(), target.size(), static_cast<off_t>(offset));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return systemFailure(errno, path_);
      if (count == 0) return fail(ErrorCode::Truncated, {}, path_);
      target = target.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
    return {};
  }

  Result<void> writeAt(std::uint64_t offset, ByteSpan bytes) override {
    while (!bytes.empty()) {
      const ssize_t count =
          ::pwrite(descriptor_.get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return systemFailure(errno, path_);
      if (count == 0) return systemFailure(ENOSPC, path_);
      bytes = bytes.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
    return {};
  }

  Result<void> resize(std::uint64_t size) override {
    return checked(::ftruncate(descriptor_.get(), static_cast<off_t>(size)), path_);
  }

  // Contents and the size that they need; the times of a file may come later.
  Result<void> sync() override {
#ifdef __linux__
    return checked(::fdatasync(descriptor_.get()), path_);
#else
    return checked(::fsync(descriptor_.get()), path_);
#endif
  }

 private:
  Descriptor descriptor_;
  std::string path_;
};

constexpr mode_t kUsualRights = 0666;

// Opens without waiting for the other end of a pipe. A new file comes into a free place only, so
// that no link is followed that somebody has put there.
Result<Descriptor> openRegular(const std::string& path, OpenMode mode, mode_t rights) {
  int flags = O_CLOEXEC | O_NONBLOCK | (mode == OpenMode::Read ? O_RDONLY : O_RDWR);
  if (mode == OpenMode::Create) flags |= O_CREAT | O_EXCL | O_NOFOLLOW;
  Descriptor descriptor(::open(path.c_str(), flags, rights));
  if (!descriptor.valid()) return systemFailure(errno, path);
  struct stat status = {};
  if (::fstat(descriptor.get(), &status) != 0) return systemFailure(errno, path);
  if (!S_ISREG(status.st_mode))
    return fail(ErrorCode::AccessDenied, "Das ist keine gewöhnliche Datei", path);
  // The administrator could write a protected file all the same; the mark is meant for him too.
  if (mode != OpenMode::Read && writeProtected(status))
    return fail(ErrorCode::AccessDenied, "Die Datei ist schreibgeschützt", path);
  return descriptor;
}

class DiskFileSystem final : public FileSystem {
 public:
  Result<std::unique_ptr<File>> open(const std::string& path, OpenMode mode) override {
    auto descriptor = openLocked(path, mode, kUsualRights);
    if (!descriptor) return Failure(descriptor.error());
    return std::make_unique<DiskFile>(std::move(*descriptor), path);
  }

  Result<std::unique_ptr<File>> createLike(const std::string& path, const std::string& model,
                                           Rights rights) override {
    struct stat status = {};
    if (model.empty() || ::stat(model.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
      return open(path, OpenMode::Create);
    const mode_t wanted = (status.st_mode & kUsualRights) | S_IRUSR | S_IWUSR;
    // Never more than in the end, not even for a moment; the system takes off what is unusual.
    const bool exactly = rights == Rights::Same;
    auto descriptor =
        openLocked(path, OpenMode::Create, exactly ? mode_t{S_IRUSR | S_IWUSR} : wanted);
    if (!descriptor) return Failure(descriptor.error());
    // A medium that has no rights of its own gives each file the same.
    if (exactly) static_cast<void>(::fchmod(descriptor->get(), wanted));
    return std::make_unique<DiskFile>(std::move(*descriptor), path);
  }

  Result<FileInfo> info(const std::string& path) const override {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return systemFailure(errno, path);
    FileInfo result;
    result.isFolder = S_ISDIR(status.st_mode);
    result.writable = !writeProtected(status) && ::access(path.c_str(), W_OK) == 0;
    result.size = result.isFolder ? 0 : static_cast<std::uint64_t>(status.st_size);
    result.modified = std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(
            std::chrono::seconds(status.st_mtim.tv_sec) +
            std::chrono::nanoseconds(status.st_mtim.tv_nsec)));
    return result;
  }

  Result<std::vector<std::string>> list(const std::string& folder) const override {
    DIR* handle = ::opendir(folder.c_str());
    if (handle == nullptr) return systemFailure(errno, folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> owner(handle, ::closedir);
    std::vector<std::string> names;
    for (errno = 0;; errno = 0) {
      const dirent* entry = ::readdir(handle);
      if (entry == nullptr) break;
      std::string name = entry->d_name;
      if (name != "." && name != "..") names.push_back(std::move(name));
    }
    if (errno != 0) return systemFailure(errno, folder);
    sortNames(names);
    return names;
  }

  Result<void> remove(const std::string& path) override {
    const auto held = hold(path);
    if (!held) return Failure(held.error());
    return checked(std::remove(path.c_str()), path);
  }

  // The system would replace an open file under its holder's feet, who would then write into a
  // file without a name.
  Result<void> rename(const std::string& from, const std::string& to) override {
    const auto held = hold(to);
    if (!held) return Failure(held.error());
    return checked(std::rename(from.c_str(), to.c_str()), to);
  }

  Result<void> makeFolder(const std::string& path) override {
    return checked(::mkdir(path.c_str(), 0777), path);
  }

  Result<void> syncFolder(const std::string& folder) override {
    const std::string name = folder.empty() ? "." : folder;
    const Descriptor descriptor(::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.valid()) return systemFailure(errno, folder);
    if (::fsync(descriptor.get()) == 0) return {};
    // Some network and FAT file systems cannot; their names are durable as far as they ever are.
    if (errno == EINVAL || errno == ENOTSUP) return {};
    return systemFailure(errno, folder);
  }

  Result<void> makeWritable(const std::string& path) override {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return systemFailure(errno, path);
    return checked(::chmod(path.c_str(), (status.st_mode & 07777) | S_IWUSR), path);
  }

 private:
  // Keeps others from opening an existing file while its name goes away. Files that cannot be
  // opened at all are left to the call itself.
  static Result<Descriptor> hold(const std::string& path) {
    Descriptor descriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    const bool exclusive = descriptor.valid();
    if (!exclusive)
      return holdShared(Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)), path);
    if (auto locked = lock(descriptor.get(), true, path); !locked) return Failure(locked.error());
    return descriptor;
  }
  static Result<Descriptor> openLocked(const std::string& path, OpenMode mode, mode_t rights) {
    constexpr int kAttempts = 8;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      if (mode == OpenMode::Create)
        if (auto made = makeRoom(path); !made) return Failure(made.error());
      auto descriptor = openRegular(path, mode, rights);
      const bool taken = !descriptor && descriptor.error().code == ErrorCode::AlreadyExists;
      if (taken && mode == OpenMode::Create) continue;  // by somebody who was faster
      if (!descriptor) return descriptor;
      if (auto locked = lock(descriptor->get(), mode != OpenMode::Read, path); !locked)
        return Failure(locked.error());
      // Otherwise replaced between opening and locking.
      if (stillNamed(descriptor->get(), path)) return descriptor;
    }
    return fail(ErrorCode::InUse, {}, path);
  }
  // Takes away what has the name of a new file: a file that nobody holds, or a link.
  static Result<void> makeRoom(const std::string& path) {
    struct stat status = {};
    if (::lstat(path.c_str(), &status) != 0) return {};  // whatever it is, opening will say so
    if (S_ISLNK(status.st_mode)) return checked(::unlink(path.c_str()), path);
    if (!S_ISREG(status.st_mode))
      return fail(ErrorCode::AccessDenied, "Das ist keine gewöhnliche Datei", path);
    if (writeProtected(status))
      return fail(ErrorCode::AccessDenied, "Die Datei ist schreibgeschützt", path);
    const auto held = hold(path);
    if (!held) return Failure(held.error());
    return checked(::unlink(path.c_str()), path);
  }
  static Result<Descriptor> holdShared(Descriptor descriptor, const std::string& path) {
    struct stat status = {};
    if (descriptor.valid() && ::fstat(descriptor.get(), &status) == 0 && S_ISREG(status.st_mode))
      if (auto locked = lock(descriptor.get(), false, path); !locked)
        return Failure(locked.error());
    return descriptor;
  }

  static void sortNames(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
      return std::pair(lowerCase(a), a) < std::pair(lowerCase(b), b);
    });
  }
};

}  // namespace

std::unique_ptr<FileSystem> makeDiskFileSystem() {
  return std::make_unique<DiskFileSystem>();
}

}  // namespace base

#endif
