#include "jet/engine/Pager.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "base/Paths.h"
#include "jet/engine/Damage.h"
#include "jet/engine/Rc4.h"

namespace jet {
namespace {

using base::Error;

// 16 MB of pages; then the cache starts anew. A year file has some thirty pages.
constexpr std::size_t kCachedPages = 4096;

// "NAME.ldb" beside "NAME.kwd".
std::string lockNotesOf(const std::string& path) {
  const std::size_t nameStart = base::folderOf(path).size();
  const std::size_t dot = path.rfind('.');
  return path.substr(0, dot == std::string::npos || dot < nameStart ? path.size() : dot) + ".ldb";
}

bool meansReadOnly(ErrorCode code) {
  return code == ErrorCode::AccessDenied || code == ErrorCode::ReadOnly;
}

}  // namespace

Pager::Pager(base::FileSystem* files, std::string path) : files_(files), path_(std::move(path)) {
  cache_.reserve(64);
}

Result<std::unique_ptr<Pager>> Pager::open(base::FileSystem& files, const std::string& path,
                                           Options options) {
  std::unique_ptr<Pager> pager(new Pager(&files, path));
  if (auto opened = pager->openFile(options); !opened) return pager->located(opened.error());
  return pager;
}

std::unique_ptr<Pager> Pager::ofNewFile(const format::Version& version) {
  std::unique_ptr<Pager> pager(new Pager(nullptr, {}));
  pager->header_.version = &version;
  pager->inTransaction_ = true;
  pager->dirty_[pager->pageCount_++] = std::make_shared<base::Bytes>(version.pageSize);
  HeaderPage::writeNew(version, *pager->dirty_[0]);
  return pager;
}

base::Bytes Pager::content() const {
  base::Bytes content;
  content.reserve(pageCount_ * version().pageSize);
  for (const auto& [number, page] : dirty_)
    content.insert(content.end(), page->begin(), page->end());
  return content;
}

// Access opens a file for several users at once: it names them in a file of its own, and its locks
// lie there. One that a crash has left behind is held by nobody and tells nothing.
Result<void> Pager::checkNotShared() const {
  const auto notes = files_->open(lockNotesOf(path_), base::OpenMode::ReadWrite);
  if (notes || notes.error().code != ErrorCode::InUse) return {};
  return located(refuse(ErrorCode::InUse, "shared by its lock file"));
}

Result<void> Pager::openFile(Options options) {
  if (!options.readOnly)
    if (auto shared = checkNotShared(); !shared) return shared;
  const auto mode = options.readOnly ? base::OpenMode::Read : base::OpenMode::ReadWrite;
  auto file = files_->open(path_, mode);
  if (!file && !options.readOnly && meansReadOnly(file.error().code)) {
    readOnlyReason_ = file.error();
    file = files_->open(path_, base::OpenMode::Read);
  }
  if (!file) return Failure(file.error());
  file_ = std::move(*file);
  forReading_ = options.readOnly;
  if (options.readOnly)
    readOnlyReason_ = located(refuse(ErrorCode::ReadOnly, "opened for reading")).value();
  if (auto header = readHeader(options); !header) return header;
  journal_.emplace(*files_, path_, static_cast<std::uint32_t>(version().pageSize));
  if (auto journal = readOnlyReason_ ? openForReading() : openForWriting(); !journal)
    return journal;
  if (!readOnlyReason_)
    if (auto folder = checkFolder(); !folder) obstacle_ = folder.error();
  return measure();
}

// Where no journal can be made, nothing can be stored.
Result<void> Pager::checkFolder() const {
  const std::string folder(base::folderOf(path_));
  if (folder.empty()) return {};
  const auto found = files_->info(folder);
  if (!found || found->writable) return {};
  return base::fail(ErrorCode::AccessDenied, "", folder);
}

Result<void> Pager::readHeader(Options options) {
  base::Bytes start(HeaderPage::kBytes);
  if (auto read = file_->readAt(0, start); !read) {
    // A shorter file tells at least whether it was a database.
    auto size = file_->size();
    if (!size || *size >= start.size()) return read;
    start.resize(static_cast<std::size_t>(*size));
    if (auto rest = file_->readAt(0, start); !rest) return rest;
  }
  auto header = HeaderPage::parse(start);
  if (!header) return Failure(header.error());
  if (header->pageKey != 0 && !options.acceptEncryption)
    return base::fail(ErrorCode::Encrypted, "");
  if (header->hasPassword && !options.acceptPassword)
    return base::fail(ErrorCode::PasswordProtected, "");
  header_ = *header;
  return {};
}

// A journal that cannot be completed (no space, no permission) still tells the file's new state,
// so the data are shown from it and only changes are refused.
Result<void> Pager::openForWriting() {
  // Nearly always there is none, and one look is cheaper than an attempt to open and remove it.
  const auto journal = files_->info(journal_->path());
  if (!journal && journal.error().code == ErrorCode::NotFound) return {};
  auto recovered = journal_->recover(*file_);
  if (recovered) return {};
  readOnlyReason_ = recovered.error();
  return openForReading();
}

Result<void> Pager::openForReading() {
  auto pending = journal_->pending(*file_);
  if (!pending) return Failure(pending.error());
  for (auto& [number, image] : *pending) {
    if (image.size() != version().pageSize)
      return refuse(ErrorCode::Damaged, "the journal has an incomplete page");
    decode(number, image);
    overlay_[number] = std::make_shared<base::Bytes>(std::move(image));
  }
  return {};
}

Result<void> Pager::measure() {
  auto size = file_->size();
  if (!size) return Failure(size.error());
  if (*size > version().maxFileSize)
    return refuse(ErrorCode::Damaged, "the file is larger than the format allows");
  storedPageCount_ = static_cast<std::uint32_t>(*size / version().pageSize);
  pageCount_ = storedPageCount_;
  if (!overlay_.empty()) pageCount_ = std::max(pageCount_, overlay_.rbegin()->first + 1);
  const bool partial = *size % version().pageSize != 0;
  if (partial && overlay_.count(storedPageCount_) == 0) {
    return at(storedPageCount_, refuse(ErrorCode::Truncated, "the last page is incomplete"));
  }
  return {};
}

void Pager::decode(std::uint32_t number, std::span<std::uint8_t> bytes) const {
  if (header_.pageKey == 0 || number == 0) return;
  const base::le32 key = header_.pageKey ^ number;
  applyRc4(std::bit_cast<std::array<std::uint8_t, 4>>(key), bytes);
}

Result<PageRef> Pager::readFromDisk(std::uint32_t number) const {
  const std::size_t size = version().pageSize;
  if (!file_) return located(at(number, base::fail(ErrorCode::NotFound, "")));
  auto buffer = std::make_shared_for_overwrite<std::uint8_t[]>(size);
  const std::span<std::uint8_t> bytes(buffer.get(), size);
  if (auto read = file_->readAt(std::uint64_t{number} * size, bytes); !read) {
    return located(at(number, read.error()));
  }
  decode(number, bytes);
  return PageRef(std::move(buffer), size);
}

Result<base::Bytes> Pager::image() const {
  if (!file_) return located(base::fail(ErrorCode::NotFound, ""));
  const auto size = file_->size();
  if (!size) return base::Failure(size.error());
  base::Bytes bytes(static_cast<std::size_t>(*size));
  if (auto read = file_->readAt(0, bytes); !read) return base::Failure(read.error());
  return bytes;
}

Result<PageRef> Pager::page(std::uint32_t number) const {
  if (auto it = dirty_.find(number); it != dirty_.end()) return PageRef(it->second);
  if (auto it = overlay_.find(number); it != overlay_.end()) return PageRef(it->second);
  if (auto it = cache_.find(number); it != cache_.end()) return it->second;
  if (number >= pageCount_) {
    return located(
        at(number, refuse(ErrorCode::Truncated, "the page lies behind the end of the file")));
  }
  auto read = readFromDisk(number);
  if (!read) return read;
  if (cache_.size() >= kCachedPages) cache_.clear();
  return cache_[number] = std::move(*read);
}

Result<PageRef> Pager::page(std::uint32_t number, format::PageKind kind) const {
  auto found = page(number);
  if (!found) return found;
  const std::uint8_t stored = (**found)[0];
  if (stored != static_cast<std::uint8_t>(kind)) {
    return located(
        damaged(number, "the page is of kind %1 instead of %2", stored, static_cast<int>(kind)));
  }
  return found;
}

Result<std::span<std::uint8_t>> Pager::edit(std::uint32_t number) {
  assert(inTransaction_);
  auto it = dirty_.find(number);
  if (step_ != nullptr && step_->before_.count(number) == 0) {
    step_->before_[number] = it == dirty_.end() ? std::nullopt : std::optional(*it->second);
  }
  if (it == dirty_.end()) {
    auto current = page(number);
    if (!current) return Failure(current.error());
    originals_[number] = *current;
    it = dirty_
             .emplace(number, std::make_shared<base::Bytes>((**current).begin(), (**current).end()))
             .first;
  }
  return std::span<std::uint8_t>(*it->second);
}

Result<std::uint32_t> Pager::append() {
  assert(inTransaction_);
  if ((std::uint64_t{pageCount_} + 1) * version().pageSize > version().maxFileSize) {
    return located(refuse(ErrorCode::NoSpace, "the file has the greatest length"));
  }
  const std::uint32_t number = pageCount_++;
  if (step_ != nullptr) step_->before_.emplace(number, std::nullopt);
  dirty_[number] = std::make_shared<base::Bytes>(version().pageSize);
  return number;
}

Result<void> Pager::begin() {
  if (readOnlyReason_) return located(*readOnlyReason_);
  if (needsReopen_) {
    return located(refuse(ErrorCode::IoError, "the file has to be opened anew"));
  }
  if (inTransaction_) {
    return located(refuse(ErrorCode::Unsupported, "a transaction is running already"));
  }
  inTransaction_ = true;
  return {};
}

void Pager::rollback() {
  assert(step_ == nullptr);
  dirty_.clear();
  originals_.clear();
  if (!needsReopen_) pageCount_ = storedPageCount_;
  inTransaction_ = false;
}

PageImages Pager::changedImages() const {
  PageImages images;
  for (const auto& [number, bytes] : dirty_) {
    const auto original = originals_.find(number);
    if (original != originals_.end()) {
      const base::ByteSpan old = *original->second;
      if (std::equal(old.begin(), old.end(), bytes->begin(), bytes->end())) continue;
    }
    base::Bytes image = *bytes;
    decode(number, image);
    images.emplace(number, std::move(image));
  }
  return images;
}

// The content that the changes were made on, for the journal to compare with the disk.
PageImages Pager::originalImages() const {
  PageImages images;
  for (const auto& [number, page] : originals_) {
    const base::ByteSpan bytes = *page;
    base::Bytes image(bytes.begin(), bytes.end());
    decode(number, image);
    images.emplace(number, std::move(image));
  }
  return images;
}

// Is it still the file that was opened, under its name and as long as we left it?
Result<void> Pager::checkFileOnDisk() const {
  if (!file_->isStillNamed()) {
    return located(refuse(ErrorCode::ChangedOnDisk, "it was renamed, moved, replaced or removed"));
  }
  auto size = file_->size();
  if (!size) return located(size.error());
  if (*size == std::uint64_t{storedPageCount_} * version().pageSize) return {};
  return located(base::fail(ErrorCode::ChangedOnDisk, ""));
}

Result<void> Pager::commit() {
  if (!inTransaction_) {
    return located(refuse(ErrorCode::Unsupported, "no transaction is running"));
  }
  const PageImages images = changedImages();
  if (images.empty()) {
    rollback();
    return {};
  }
  if (auto unchanged = checkFileOnDisk(); !unchanged) {
    rollback();
    return refused(unchanged);
  }
  const Journal::Commit done = journal_->commit(*file_, images, originalImages());
  switch (done.outcome) {
    case Journal::Outcome::NotStored:
      break;
    case Journal::Outcome::TakenBack:
      needsReopen_ = true;
      for (auto& [number, page] : originals_)
        overlay_[number] = std::make_shared<base::Bytes>((*page).begin(), (*page).end());
      pageCount_ = storedPageCount_;
      break;
    case Journal::Outcome::Interrupted:
      needsReopen_ = true;
      for (auto& [number, bytes] : dirty_) overlay_[number] = bytes;
      break;
    case Journal::Outcome::Stored:
      storedPageCount_ = pageCount_;
      for (auto& [number, bytes] : dirty_) cache_[number] = PageRef(bytes);
      break;
  }
  rollback();
  return refused(done.result);
}

Result<void> Pager::refused(Result<void> result) {
  obstacle_.reset();
  if (result) return {};
  const Failure failure = located(result.error());
  obstacle_ = failure.value();
  return failure;
}

bool Pager::tryWriting() {
  if (!obstacle()) return true;
  if (forReading_ || needsReopen_ || inTransaction_) return false;
  // It is open, and would be in the way of a look at it.
  journal_->close();
  auto ready = checkFolder();
  if (ready) ready = readOnlyReason_ || !checkFileOnDisk() ? openAgain() : checkUnchanged(*file_);
  if (ready) ready = journal_->probe(path_);
  if (!ready) return false;
  readOnlyReason_.reset();
  obstacle_.reset();
  return true;
}

// The file of that name may be another one by now, as on a medium that was taken out meanwhile.
Result<void> Pager::openAgain() {
  const bool forReading = readOnlyReason_.has_value();
  if (forReading) file_.reset();  // its own lock would be in the way
  auto file = files_->open(path_, base::OpenMode::ReadWrite);
  auto ready = file ? checkUnchanged(**file) : Failure(file.error());
  if (ready) file_ = std::move(*file);
  if (!ready && forReading) {
    if (file) file->reset();
    auto again = files_->open(path_, base::OpenMode::Read);
    if (again) file_ = std::move(*again);
  }
  return ready;
}

Result<void> Pager::checkUnchanged(const base::File& file) const {
  const auto changed = [this] { return located(base::fail(ErrorCode::ChangedOnDisk, "")); };
  const auto size = file.size();
  if (!size) return Failure(size.error());
  const auto waiting = journal_->pending(file);
  if (!waiting) return Failure(waiting.error());
  if (*size != std::uint64_t{storedPageCount_} * version().pageSize || !waiting->empty())
    return changed();
  base::Bytes bytes(version().pageSize);
  for (const auto& [number, page] : cache_) {
    if (auto read = file.readAt(std::uint64_t{number} * bytes.size(), bytes); !read) return read;
    decode(number, bytes);
    if (!std::equal(bytes.begin(), bytes.end(), (*page).begin())) return changed();
  }
  return {};
}

Failure Pager::located(Error error) const {
  if (error.file.empty()) error.file = path_;
  return Failure(std::move(error));
}

Pager::Step::Step(Pager& pager) : pager_(pager), pageCount_(pager.pageCount_) {
  assert(pager.step_ == nullptr);
  pager.step_ = this;
}

Pager::Step::~Step() {
  pager_.step_ = nullptr;
  if (kept_) return;
  for (auto& [number, bytes] : before_) {
    if (bytes) {
      pager_.dirty_[number] = std::make_shared<base::Bytes>(std::move(*bytes));
    } else {
      pager_.dirty_.erase(number);
      pager_.originals_.erase(number);
    }
  }
  pager_.pageCount_ = pageCount_;
}

}  // namespace jet
