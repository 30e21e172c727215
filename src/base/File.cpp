#include "base/File.h"

#include <algorithm>

#include "base/Paths.h"

namespace base {
namespace {

constexpr std::size_t kCopyBlock = 1 << 18;

std::string temporaryName(const std::string& path) {
  return path + "-tmp";
}

// Moves the finished temporary file to its place, or cleans up after a failure before that.
Result<void> putInPlace(FileSystem& files, const std::string& path, Result<void> written) {
  const std::string temporary = temporaryName(path);
  if (written) written = files.rename(temporary, path);
  if (!written) {
    ignore(files.remove(temporary), "the first failure is the one to report");
    return written;
  }
  auto named = files.syncFolder(std::string(folderOf(path)));
  if (!named) named.error().file = path;
  return named;
}

Result<void> writeContent(const File& source, File& target, std::uint64_t size,
                          const FileSystem::Progress& progress) {
  Bytes block;
  for (std::uint64_t done = 0;;) {
    if (progress && !progress(done, size)) return fail(ErrorCode::Cancelled, {}, source.path());
    if (done == size) return target.sync();
    block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kCopyBlock, size - done)));
    if (auto read = source.readAt(done, block); !read) return read;
    if (auto written = target.writeAt(done, block); !written) return written;
    done += block.size();
  }
}

Result<void> compareContent(const File& source, const File& target, std::uint64_t size) {
  const auto targetSize = target.size();
  if (!targetSize) return Failure(targetSize.error());
  Bytes expected;
  Bytes found;
  bool equal = *targetSize == size;
  for (std::uint64_t done = 0; equal && done < size; done += expected.size()) {
    expected.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kCopyBlock, size - done)));
    found.resize(expected.size());
    if (auto read = source.readAt(done, expected); !read) return read;
    if (auto read = target.readAt(done, found); !read) return read;
    equal = expected == found;
  }
  if (!equal)
    return fail(ErrorCode::IoError, "Die Kopie stimmt nicht mit dem Original überein",
                target.path());
  return {};
}

// An error about the temporary file is about the file that it was to become.
Result<void> renamed(Result<void> result, const std::string& path) {
  if (!result && result.error().file == temporaryName(path)) result.error().file = path;
  return result;
}

}  // namespace

bool FileSystem::exists(const std::string& path) const {
  return info(path).has_value();
}

bool FileSystem::folderExists(const std::string& path) const {
  const auto found = info(path);
  return found && found->isFolder;
}

Result<std::string> FileSystem::readText(const std::string& path, std::uint64_t limit) {
  auto file = open(path, OpenMode::Read);
  if (!file) return Failure(file.error());
  const auto size = (*file)->size();
  if (!size) return Failure(size.error());
  if (*size > limit) return fail(ErrorCode::InvalidValue, "Die Datei ist zu groß", path);
  Bytes content(static_cast<std::size_t>(*size));
  if (auto read = (*file)->readAt(0, content); !read) return Failure(read.error());
  return std::string(asText(content));
}

Result<std::unique_ptr<File>> FileSystem::createLike(const std::string& path,
                                                     const std::string& /*model*/,
                                                     Rights /*rights*/) {
  return open(path, OpenMode::Create);
}

Result<void> FileSystem::checkReplaceable(const std::string& path) const {
  const auto found = info(path);
  if (!found) {
    if (found.error().code == ErrorCode::NotFound) return {};
    return Failure(found.error());
  }
  if (found->isFolder) return fail(ErrorCode::AlreadyExists, "Ein Ordner trägt diesen Namen", path);
  if (!found->writable)
    return fail(ErrorCode::AccessDenied, "Die Datei ist schreibgeschützt", path);
  return {};
}

Result<void> FileSystem::replaceFile(const std::string& path, ByteSpan content,
                                     const std::string& model) {
  if (auto allowed = checkReplaceable(path); !allowed) return allowed;
  const auto write = [&]() -> Result<void> {
    auto file = createLike(temporaryName(path), exists(path) ? path : model, Rights::Same);
    if (!file) return Failure(file.error());
    if (auto written = (*file)->writeAt(0, content); !written) return written;
    return (*file)->sync();
  };
  return renamed(putInPlace(*this, path, write()), path);
}

Result<void> FileSystem::copyFile(const std::string& from, const std::string& to,
                                  const Progress& progress) {
  if (toPath(from).lexically_normal() == toPath(to).lexically_normal()) {
    const auto found = info(from);
    return found ? Result<void>() : Failure(found.error());
  }
  // The source is closed before the target is replaced: both names may lead to one file.
  if (auto allowed = checkReplaceable(to); !allowed) return allowed;
  return renamed(putInPlace(*this, to, copyContent(from, temporaryName(to), to, progress)), to);
}

Result<void> FileSystem::copyContent(const std::string& from, const std::string& newFile,
                                     const std::string& to, const Progress& progress) {
  const auto source = open(from, OpenMode::Read);
  if (!source) return Failure(source.error());
  const auto size = (*source)->size();
  if (!size) return Failure(size.error());
  const bool replaced = exists(to);
  auto target = createLike(newFile, replaced ? to : from, replaced ? Rights::Same : Rights::AtMost);
  if (!target) return Failure(target.error());
  if (auto copied = writeContent(**source, **target, *size, progress); !copied) return copied;
  return compareContent(**source, **target, *size);
}

}  // namespace base
