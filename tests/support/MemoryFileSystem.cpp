#include "support/MemoryFileSystem.h"

#include <algorithm>
#include <utility>

#include "base/Paths.h"

namespace support {

using base::ErrorCode;
using base::fail;
using base::Failure;
using base::Result;

namespace {

std::string normal(const std::string& path) {
  std::string text = base::fromPath(base::toPath(path).lexically_normal());
  std::replace(text.begin(), text.end(), '\\', '/');
  if (text.size() > 1 && text.back() == '/') text.pop_back();
  return text.empty() || text == "." ? "/" : text;
}

std::string parentOf(const std::string& path) {
  return normal(std::string(base::folderOf(path)));
}

class MemoryFile final : public base::File {
 public:
  MemoryFile(std::shared_ptr<MemoryFileSystem::Node> node, std::string path, bool writing)
      : node_(std::move(node)), path_(std::move(path)), writing_(writing) {
    if (writing_)
      node_->written = true;
    else
      ++node_->readers;
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() override {
    if (writing_)
      node_->written = false;
    else
      --node_->readers;
  }

  const std::string& path() const override { return path_; }
  Result<std::uint64_t> size() const override { return node_->content.size(); }

  Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    const base::Bytes& content = node_->content;
    if (offset > content.size() || target.size() > content.size() - offset)
      return fail(ErrorCode::Truncated, {}, path_);
    std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(offset), target.size(),
                target.begin());
    return {};
  }
  Result<void> writeAt(std::uint64_t offset, base::ByteSpan bytes) override {
    if (!writing_) return fail(ErrorCode::AccessDenied, {}, path_);
    if (node_->content.size() < offset + bytes.size())
      node_->content.resize(static_cast<std::size_t>(offset + bytes.size()));
    std::copy(bytes.begin(), bytes.end(),
              node_->content.begin() + static_cast<std::ptrdiff_t>(offset));
    return touched();
  }
  Result<void> resize(std::uint64_t size) override {
    if (!writing_) return fail(ErrorCode::AccessDenied, {}, path_);
    node_->content.resize(static_cast<std::size_t>(size));
    return touched();
  }
  Result<void> sync() override { return {}; }

 private:
  Result<void> touched() {
    node_->modified = std::chrono::system_clock::now();
    return {};
  }
  std::shared_ptr<MemoryFileSystem::Node> node_;
  std::string path_;
  bool writing_;
};

}  // namespace

MemoryFileSystem::MemoryFileSystem() {
  addFolders("/");
}

MemoryFileSystem::MemoryFileSystem(const Contents& contents) : MemoryFileSystem() {
  for (const auto& [path, content] : contents) put(path, content);
}

void MemoryFileSystem::addFolders(const std::string& path) {
  auto& node = nodes_[path];
  if (node) return;
  node = std::make_shared<Node>();
  node->isFolder = true;
  if (path != "/") addFolders(parentOf(path));
}

void MemoryFileSystem::put(const std::string& path, base::ByteSpan content) {
  const std::string name = normal(path);
  addFolders(parentOf(name));
  auto node = std::make_shared<Node>();
  node->content.assign(content.begin(), content.end());
  node->modified = std::chrono::system_clock::now();
  nodes_[name] = std::move(node);
}

base::Bytes MemoryFileSystem::get(const std::string& path) const {
  const auto node = find(path);
  return node ? node->content : base::Bytes();
}

MemoryFileSystem::Contents MemoryFileSystem::contents() const {
  Contents result;
  for (const auto& [path, node] : nodes_)
    if (!node->isFolder) result[path] = node->content;
  return result;
}

void MemoryFileSystem::protect(const std::string& path) {
  find(path)->writable = false;
}
void MemoryFileSystem::setModified(std::chrono::system_clock::time_point modified) {
  for (const auto& [path, node] : nodes_) node->modified = modified;
}
void MemoryFileSystem::protectFolder(const std::string& folder) {
  find(folder)->writable = false;
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::find(const std::string& path) const {
  const auto found = nodes_.find(normal(path));
  return found == nodes_.end() ? nullptr : found->second;
}

Result<void> MemoryFileSystem::checkFolder(const std::string& path) const {
  const auto folder = find(parentOf(normal(path)));
  if (!folder || !folder->isFolder) return fail(ErrorCode::NotFound, {}, path);
  if (!folder->writable) return fail(ErrorCode::AccessDenied, {}, path);
  return {};
}

Result<std::unique_ptr<base::File>> MemoryFileSystem::open(const std::string& path,
                                                           base::OpenMode mode) {
  auto node = find(path);
  const bool writing = mode != base::OpenMode::Read;
  if (!node && mode != base::OpenMode::Create) return fail(ErrorCode::NotFound, {}, path);
  if (node && (node->isFolder || (writing && !node->writable)))
    return fail(ErrorCode::AccessDenied, {}, path);
  if (node && (node->written || (writing && node->readers > 0)))
    return fail(ErrorCode::InUse, {}, path);
  if (mode == base::OpenMode::Create) {
    if (auto allowed = checkFolder(path); !allowed) return Failure(allowed.error());
    put(path, {});
    node = find(path);
  }
  return std::make_unique<MemoryFile>(std::move(node), path, writing);
}

Result<base::FileInfo> MemoryFileSystem::info(const std::string& path) const {
  const auto node = find(path);
  if (!node) return fail(ErrorCode::NotFound, {}, path);
  return base::FileInfo{node->isFolder, node->writable, node->content.size(), node->modified};
}

Result<std::vector<std::string>> MemoryFileSystem::list(const std::string& folder) const {
  const auto node = find(folder);
  if (!node || !node->isFolder) return fail(ErrorCode::NotFound, {}, folder);
  std::vector<std::string> names;
  for (const auto& [path, entry] : nodes_)
    if (path != "/" && parentOf(path) == normal(folder)) names.emplace_back(base::fileName(path));
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(base::lowerCase(a), a) < std::pair(base::lowerCase(b), b);
  });
  return names;
}

Result<void> MemoryFileSystem::remove(const std::string& path) {
  const auto node = find(path);
  if (!node) return fail(ErrorCode::NotFound, {}, path);
  if (auto allowed = checkFolder(path); !allowed) return allowed;
  if (node->written || node->readers > 0) return fail(ErrorCode::InUse, {}, path);
  if (node->isFolder && !list(path)->empty()) return fail(ErrorCode::AlreadyExists, {}, path);
  nodes_.erase(normal(path));
  return {};
}

Result<void> MemoryFileSystem::rename(const std::string& from, const std::string& to) {
  const auto node = find(from);
  if (!node) return fail(ErrorCode::NotFound, {}, to);
  if (auto allowed = checkFolder(to); !allowed) return allowed;
  const auto target = find(to);
  if (target && (target->written || target->readers > 0)) return fail(ErrorCode::InUse, {}, to);
  if (target && target->isFolder) return fail(ErrorCode::AccessDenied, {}, to);
  nodes_.erase(normal(from));
  nodes_[normal(to)] = node;
  return {};
}

Result<void> MemoryFileSystem::makeFolder(const std::string& path) {
  if (find(path)) return fail(ErrorCode::AlreadyExists, {}, path);
  if (auto allowed = checkFolder(path); !allowed) return allowed;
  addFolders(normal(path));
  return {};
}

Result<void> MemoryFileSystem::syncFolder(const std::string& folder) {
  const auto node = find(folder);
  if (!node || !node->isFolder) return fail(ErrorCode::NotFound, {}, folder);
  return {};
}

Result<void> MemoryFileSystem::makeWritable(const std::string& path) {
  const auto node = find(path);
  if (!node) return fail(ErrorCode::NotFound, {}, path);
  node->writable = true;
  return {};
}

}  // namespace support
