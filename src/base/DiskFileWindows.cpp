#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <utility>

#include "base/File.h"
#include "base/Paths.h"

namespace base {
namespace {

constexpr DWORD kQuotaExceeded = 1295;  // missing in some system headers

ErrorCode codeOf(DWORD number) {
  switch (number) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ErrorCode::NotFound;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
      return ErrorCode::AlreadyExists;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
      return ErrorCode::AccessDenied;
    case ERROR_WRITE_PROTECT:
      return ErrorCode::ReadOnly;
    case ERROR_FILENAME_EXCED_RANGE:
      return ErrorCode::InvalidName;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return ErrorCode::NoSpace;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_USER_MAPPED_FILE:
      return ErrorCode::InUse;
    case ERROR_HANDLE_EOF:
      return ErrorCode::Truncated;
    default:
      return ErrorCode::IoError;
  }
}

Failure systemFailure(DWORD number, const std::string& path) {
  Error error;
  error.code = codeOf(number);
  error.file = path;
  error.systemError = static_cast<int>(number);
  if (error.code == ErrorCode::IoError) error.detail = "Systemfehler " + std::to_string(number);
  return fail(std::move(error));
}

Result<void> checked(BOOL succeeded, const std::string& path) {
  if (!succeeded) return systemFailure(GetLastError(), path);
  return {};
}

// The name as the system takes it; long absolute names need a prefix that switches its limit off.
std::wstring wideName(const std::string& path) {
  constexpr std::size_t kUsualLimit = 240;
  std::wstring name;
  if (!path.empty()) {
    const int length = static_cast<int>(path.size());
    name.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, path.data(), length, nullptr, 0)));
    MultiByteToWideChar(CP_UTF8, 0, path.data(), length, name.data(),
                        static_cast<int>(name.size()));
  }
  std::replace(name.begin(), name.end(), L'/', L'\\');
  if (name.size() > kUsualLimit && name[1] == L':') name.insert(0, L"\\\\?\\");
  return name;
}

std::string utf8Name(const wchar_t* name) {
  const int length = static_cast<int>(std::char_traits<wchar_t>::length(name));
  const int size = WideCharToMultiByte(CP_UTF8, 0, name, length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, name, length, result.data(), size, nullptr, nullptr);
  return result;
}

// Virus scanners and indexers hold a new file for a moment; a short patience gets past them.
template <class Call>
BOOL patiently(Call call) {
  constexpr int kAttempts = 6;
  constexpr DWORD kPauseMilliseconds = 20;
  for (int attempt = 1;; ++attempt) {
    if (call()) return TRUE;
    const DWORD number = GetLastError();
    if (number != ERROR_SHARING_VIOLATION || attempt == kAttempts) {
      SetLastError(number);
      return FALSE;
    }
    Sleep(kPauseMilliseconds);
  }
}

class Handle {
 public:
  explicit Handle(HANDLE value) : value_(value) {}
  Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (valid()) CloseHandle(value_);
  }
  HANDLE get() const { return value_; }
  bool valid() const { return value_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE value_;
};

OVERLAPPED positionAt(std::uint64_t offset) {
  OVERLAPPED position = {};
  position.Offset = static_cast<DWORD>(offset & 0xFFFFFFFFU);
  position.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return position;
}

constexpr std::size_t kLargestTransfer = 1U << 30;

// The lock is the sharing mode of the opening.
class DiskFile final : public File {
 public:
  DiskFile(Handle handle, std::string path) : handle_(std::move(handle)), path_(std::move(path)) {}

  const std::string& path() const override { return path_; }

  Result<std::uint64_t> size() const override {
    LARGE_INTEGER size = {};
    if (!GetFileSizeEx(handle_.get(), &size)) return systemFailure(GetLastError(), path_);
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    while (!target.empty()) {
      OVERLAPPED position = positionAt(offset);
      const auto wanted = static_cast<DWORD>(std::min(target.size(), kLargestTransfer));
      DWORD count = 0;
      if (!ReadFile(handle_.get(), target.data(), wanted, &count, &position))
        return systemFailure(GetLastError(), path_);
      if (count == 0) return fail(ErrorCode::Truncated, {}, path_);
      target = target.subspan(count);
      offset += count;
    }
    return {};
  }

  Result<void> writeAt(std::uint64_t offset, ByteSpan bytes) override {
    while (!bytes.empty()) {
      OVERLAPPED position = positionAt(offset);
      const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
      DWORD count = 0;
      if (!WriteFile(handle_.get(), bytes.data(), wanted, &count, &position))
        return systemFailure(GetLastError(), path_);
      if (count == 0) return systemFailure(ERROR_DISK_FULL, path_);
      bytes = bytes.subspan(count);
      offset += count;
    }
    return {};
  }

  Result<void> resize(std::uint64_t size) override {
    FILE_END_OF_FILE_INFO end = {};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return checked(SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof(end)),
                   path_);
  }

  Result<void> sync() override { return checked(FlushFileBuffers(handle_.get()), path_); }

 private:
  Handle handle_;
  std::string path_;
};

std::chrono::system_clock::time_point timeOf(FILETIME stamp) {
  constexpr std::int64_t kTicksTo1970 = 116444736000000000;
  const std::int64_t ticks =
      (static_cast<std::int64_t>(stamp.dwHighDateTime) << 32) | stamp.dwLowDateTime;
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10000000>>;
  return std::chrono::system_clock::time_point(
      std::chrono::duration_cast<std::chrono::system_clock::duration>(Ticks(ticks - kTicksTo1970)));
}

class DiskFileSystem final : public FileSystem {
 public:
  Result<std::unique_ptr<File>> open(const std::string& path, OpenMode mode) override {
    const bool reading = mode == OpenMode::Read;
    const std::wstring name = wideName(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    const bool isProtected = attributes != INVALID_FILE_ATTRIBUTES &&
                             (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                             (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (!reading && isProtected)
      return fail(ErrorCode::AccessDenied, "Die Datei ist schreibgeschützt", path);
    // A new file comes into a free place only, so that no link is followed.
    const bool taken =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    if (mode == OpenMode::Create && taken)
      if (auto removed = remove(path); !removed && removed.error().code != ErrorCode::NotFound)
        return Failure(removed.error());
    HANDLE opened = INVALID_HANDLE_VALUE;
    const auto create = [&] {
      opened = CreateFileW(name.c_str(), reading ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE,
                           reading ? FILE_SHARE_READ : 0, nullptr,
                           mode == OpenMode::Create ? CREATE_NEW : OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
      return opened != INVALID_HANDLE_VALUE ? TRUE : FALSE;
    };
    if (!patiently(create)) return systemFailure(GetLastError(), path);
    Handle handle(opened);
    if (GetFileType(handle.get()) != FILE_TYPE_DISK)
      return fail(ErrorCode::AccessDenied, "Das ist keine gewöhnliche Datei", path);
    return std::make_unique<DiskFile>(std::move(handle), path);
  }

  Result<FileInfo> info(const std::string& path) const override {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(wideName(path).c_str(), GetFileExInfoStandard, &data))
      return systemFailure(GetLastError(), path);
    FileInfo result;
    result.isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    // The attribute means something else on folders.
    result.writable = result.isFolder || (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
    if (!result.isFolder)
      result.size = (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    result.modified = timeOf(data.ftLastWriteTime);
    return result;
  }

  Result<std::vector<std::string>> list(const std::string& folder) const override {
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(wideName(withSeparator(folder) + "*").c_str(), &entry);
    std::vector<std::string> names;
    if (search == INVALID_HANDLE_VALUE) {
      // The root of an empty drive has not even "." and "..".
      if (GetLastError() == ERROR_FILE_NOT_FOUND && folderExists(folder)) return names;
      return systemFailure(GetLastError(), folder);
    }
    do {
      std::string name = utf8Name(entry.cFileName);
      if (name != "." && name != "..") names.push_back(std::move(name));
    } while (FindNextFileW(search, &entry));
    const DWORD ended = GetLastError();
    FindClose(search);
    if (ended != ERROR_NO_MORE_FILES) return systemFailure(ended, folder);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
      return std::pair(lowerCase(a), a) < std::pair(lowerCase(b), b);
    });
    return names;
  }

  Result<void> remove(const std::string& path) override {
    const std::wstring name = wideName(path);
    const auto found = info(path);
    if (!found) return Failure(found.error());
    if (found->isFolder) return checked(RemoveDirectoryW(name.c_str()), path);
    return checked(patiently([&] { return DeleteFileW(name.c_str()); }), path);
  }

  Result<void> rename(const std::string& from, const std::string& to) override {
    const std::wstring source = wideName(from);
    const std::wstring target = wideName(to);
    const auto move = [&] {
      return MoveFileExW(source.c_str(), target.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    };
    if (patiently(move)) return {};
    return renameFailure(GetLastError(), to);
  }

  Result<void> makeFolder(const std::string& path) override {
    return checked(CreateDirectoryW(wideName(path).c_str(), nullptr), path);
  }

  // Names are journalled by the file system, and renaming writes through.
  Result<void> syncFolder(const std::string&) override { return {}; }

  Result<void> makeWritable(const std::string& path) override {
    return checked(SetFileAttributesW(wideName(path).c_str(), FILE_ATTRIBUTE_NORMAL), path);
  }

 private:
  // A target that somebody has open is reported as denied access; opening it tells the two apart.
  Failure renameFailure(DWORD number, const std::string& to) {
    if (number == ERROR_ACCESS_DENIED) {
      const auto probe = open(to, OpenMode::ReadWrite);
      if (!probe && probe.error().code == ErrorCode::InUse) return Failure(probe.error());
    }
    return systemFailure(number, to);
  }
};

}  // namespace

std::unique_ptr<FileSystem> makeDiskFileSystem() {
  return std::make_unique<DiskFileSystem>();
}

}  // namespace base

#endif
