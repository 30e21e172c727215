#include "support/CrashFileSystem.h"

#include <algorithm>
#include <random>
#include <utility>

#include "base/Paths.h"

namespace support {

using base::Failure;
using base::Result;
using Kind = CrashFileSystem::Change::Kind;

namespace {

constexpr std::size_t kSector = 512;
using Random = std::mt19937_64;

class RecordingFile final : public base::File {
 public:
  RecordingFile(std::unique_ptr<base::File> inner, std::size_t file,
                std::vector<CrashFileSystem::Change>& changes)
      : inner_(std::move(inner)), file_(file), changes_(changes) {}

  const std::string& path() const override { return inner_->path(); }
  Result<std::uint64_t> size() const override { return inner_->size(); }
  Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    return inner_->readAt(offset, target);
  }
  Result<void> writeAt(std::uint64_t offset, base::ByteSpan bytes) override {
    return recorded(inner_->writeAt(offset, bytes),
                    {Kind::Write, file_, offset, base::Bytes(bytes.begin(), bytes.end())});
  }
  Result<void> resize(std::uint64_t size) override {
    return recorded(inner_->resize(size), {Kind::Resize, file_, size});
  }
  Result<void> sync() override { return recorded(inner_->sync(), {Kind::Sync, file_}); }

 private:
  Result<void> recorded(Result<void> outcome, CrashFileSystem::Change change) {
    if (outcome) changes_.push_back(std::move(change));
    return outcome;
  }
  std::unique_ptr<base::File> inner_;
  std::size_t file_;
  std::vector<CrashFileSystem::Change>& changes_;
};

bool changesNames(Kind kind) {
  return kind == Kind::Make || kind == Kind::Rename || kind == Kind::Remove;
}

void write(base::Bytes& content, std::uint64_t offset, base::ByteSpan bytes) {
  if (content.size() < offset + bytes.size())
    content.resize(static_cast<std::size_t>(offset + bytes.size()));
  std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(offset));
}

// The parts of a write that lie in one sector each.
template <class Part>
void eachSector(const CrashFileSystem::Change& change, Part part) {
  for (std::size_t done = 0; done < change.bytes.size();) {
    const std::uint64_t offset = change.offset + done;
    const std::size_t length =
        std::min(kSector - static_cast<std::size_t>(offset % kSector), change.bytes.size() - done);
    part(offset, base::ByteSpan(change.bytes).subspan(done, length));
    done += length;
  }
}

void tear(base::Bytes& content, const CrashFileSystem::Change& change, Random& random) {
  eachSector(change, [&](std::uint64_t offset, base::ByteSpan part) {
    if (random() % 2 == 0) write(content, offset, part);
  });
}

void garble(base::Bytes& content, const CrashFileSystem::Change& change, Random& random) {
  eachSector(change, [&](std::uint64_t offset, base::ByteSpan part) {
    const auto choice = random() % 5;
    if (choice == 0) return;
    write(content, offset, part);
    if (choice == 1) return;
    const auto start = static_cast<std::size_t>(offset - offset % kSector);
    const std::size_t end = std::min(start + kSector, content.size());
    for (std::size_t i = start; i < end; ++i)
      content[i] = choice == 2 ? 0 : static_cast<std::uint8_t>(random());
  });
}

}  // namespace

CrashFileSystem::CrashFileSystem(const MemoryFileSystem::Contents& start) : live_(start) {
  for (const auto& [path, content] : start) {
    startContent_[nextFile_] = content;
    startNames_[path] = nextFile_++;
  }
  liveNames_ = startNames_;
}

std::vector<bool> CrashFileSystem::durable(std::size_t moment) const {
  std::vector<bool> result(moment, false);
  for (std::size_t i = 0; i < moment; ++i) {
    const Change& sync = changes_[i];
    for (std::size_t k = 0; k < i; ++k) {
      const Change& change = changes_[k];
      const bool content = change.kind == Kind::Write || change.kind == Kind::Resize;
      if (sync.kind == Kind::Sync && content && change.file == sync.file) result[k] = true;
      // One folder holds every file of a test.
      if (sync.kind == Kind::SyncFolder && changesNames(change.kind)) result[k] = true;
    }
  }
  return result;
}

std::size_t CrashFileSystem::pendingWrites(std::size_t moment) const {
  const auto safe = durable(moment);
  std::size_t count = 0;
  for (std::size_t i = 0; i < moment; ++i)
    count += !safe[i] && (changes_[i].kind == Kind::Write || changes_[i].kind == Kind::Resize);
  return count;
}

std::size_t CrashFileSystem::pendingNames(std::size_t moment) const {
  const auto safe = durable(moment);
  std::size_t count = 0;
  for (std::size_t i = 0; i < moment; ++i) count += !safe[i] && changesNames(changes_[i].kind);
  return count;
}

void CrashFileSystem::applyName(Names& names, const Change& change) {
  if (change.kind == Kind::Make) names[change.name] = change.file;
  if (change.kind == Kind::Remove) names.erase(change.name);
  if (change.kind == Kind::Rename) {
    names.erase(change.name);
    names[change.newName] = change.file;
  }
}

MemoryFileSystem::Contents CrashFileSystem::survivor(std::size_t moment,
                                                     const std::function<Fate(std::size_t)>& fate,
                                                     std::size_t keptNames,
                                                     std::uint64_t seed) const {
  const auto safe = durable(moment);
  Random random(seed);
  auto content = startContent_;
  Names names = startNames_;
  std::size_t pending = 0;
  std::size_t pendingName = 0;
  for (std::size_t i = 0; i < moment; ++i) {
    const Change& change = changes_[i];
    if (changesNames(change.kind)) {
      if (safe[i] || pendingName++ < keptNames) applyName(names, change);
      continue;
    }
    if (change.kind != Kind::Write && change.kind != Kind::Resize) continue;
    const Fate chosen = safe[i] ? Fate::Keep : fate(pending++);
    if (chosen == Fate::Drop) continue;
    base::Bytes& bytes = content[change.file];
    if (change.kind == Kind::Resize)
      bytes.resize(static_cast<std::size_t>(change.offset));
    else if (chosen == Fate::Keep)
      write(bytes, change.offset, change.bytes);
    else if (chosen == Fate::Tear)
      tear(bytes, change, random);
    else
      garble(bytes, change, random);
  }
  MemoryFileSystem::Contents result;
  for (const auto& [name, file] : names) result[name] = content[file];
  return result;
}

Result<std::unique_ptr<base::File>> CrashFileSystem::open(const std::string& path,
                                                          base::OpenMode mode) {
  const bool existed = live_.exists(path);
  auto file = live_.open(path, mode);
  if (!file) return file;
  if (mode == base::OpenMode::Create) {
    if (existed) changes_.push_back({Kind::Remove, liveNames_.at(path), 0, {}, path});
    liveNames_[path] = nextFile_;
    changes_.push_back({Kind::Make, nextFile_++, 0, {}, path});
  }
  return std::make_unique<RecordingFile>(std::move(*file), liveNames_.at(path), changes_);
}
Result<base::FileInfo> CrashFileSystem::info(const std::string& path) const {
  return live_.info(path);
}
Result<std::vector<std::string>> CrashFileSystem::list(const std::string& folder) const {
  return live_.list(folder);
}
Result<void> CrashFileSystem::remove(const std::string& path) {
  auto outcome = live_.remove(path);
  if (!outcome) return outcome;
  const auto found = liveNames_.find(path);
  if (found == liveNames_.end()) return outcome;  // a folder
  changes_.push_back({Kind::Remove, found->second, 0, {}, path});
  applyName(liveNames_, changes_.back());
  return outcome;
}
Result<void> CrashFileSystem::rename(const std::string& from, const std::string& to) {
  auto outcome = live_.rename(from, to);
  if (!outcome) return outcome;
  changes_.push_back({Kind::Rename, liveNames_.at(from), 0, {}, from, to});
  applyName(liveNames_, changes_.back());
  return outcome;
}
Result<void> CrashFileSystem::makeFolder(const std::string& path) {
  return live_.makeFolder(path);
}
Result<void> CrashFileSystem::syncFolder(const std::string& folder) {
  auto outcome = live_.syncFolder(folder);
  if (outcome) changes_.push_back({Kind::SyncFolder});
  return outcome;
}
Result<void> CrashFileSystem::makeWritable(const std::string& path) {
  return live_.makeWritable(path);
}

}  // namespace support
