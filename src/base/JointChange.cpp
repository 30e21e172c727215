#include "base/JointChange.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "base/Paths.h"

namespace base {
namespace {

using Entry = JointChange::Entry;
using Kind = JointChange::Kind;
using Mark = JointChange::Mark;

constexpr std::string_view kIntention = "Kalvira-Vorhaben";
constexpr std::string_view kStaged = "-vorhaben";
constexpr std::string_view kHead = "Kalvira-Vorhaben 1\n";
constexpr std::string_view kWords[] = {"ersetzen", "entfernen", "gebunden"};
constexpr std::size_t kBlock = 1 << 18;
// No change of ours comes near; a longer file is none of our intentions.
constexpr std::uint64_t kLongest = 1 << 20;

std::string intentionIn(const std::string& folder) {
  return folder + std::string(kIntention);
}

std::string stagedName(const std::string& path) {
  return path + std::string(kStaged);
}

// FNV-1a.
std::uint64_t addToSum(std::uint64_t sum, ByteSpan bytes) {
  for (const std::uint8_t byte : bytes) sum = (sum ^ byte) * 0x100000001B3U;
  return sum;
}
constexpr std::uint64_t kEmptySum = 0xCBF29CE484222325U;
// Of a file that goes although nobody can read it.
constexpr Mark kUnreadable{~std::uint64_t{0}, 0};

Result<Mark> markOf(const File& file) {
  const auto size = file.size();
  if (!size) return Failure(size.error());
  Mark mark{*size, kEmptySum};
  Bytes block;
  for (std::uint64_t done = 0; done < *size; done += block.size()) {
    block.resize(static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, *size - done)));
    if (auto read = file.readAt(done, block); !read) return Failure(read.error());
    mark.sum = addToSum(mark.sum, block);
  }
  return mark;
}

// nullopt when there is no such file.
Result<std::optional<Mark>> markAt(FileSystem& files, const std::string& path) {
  const auto file = files.open(path, OpenMode::Read);
  if (!file && file.error().code == ErrorCode::NotFound) return std::nullopt;
  if (!file) return Failure(file.error());
  return markOf(**file);
}

// --- the intention's text: a line per file, and a sum over all of them ---

std::string hex(std::uint64_t number) {
  char text[16];
  const auto end = std::to_chars(text, text + sizeof text, number, 16);
  return {text, end.ptr};
}

std::uint64_t sumOf(std::string_view text) {
  return addToSum(kEmptySum, asBytes(text));
}

std::string encode(const std::vector<Entry>& entries) {
  std::string text(kHead);
  for (const Entry& entry : entries)
    text += std::string(kWords[static_cast<int>(entry.kind)]) + '\t' + hex(entry.mark.size) + '\t' +
            hex(entry.mark.sum) + '\t' + entry.name + '\n';
  return text + "ende\t" + hex(sumOf(text)) + '\n';
}

// Takes the text up to the mark off the front.
std::string_view cut(std::string_view& text, char mark) {
  const std::size_t at = std::min(text.find(mark), text.size());
  const std::string_view part = text.substr(0, at);
  text.remove_prefix(std::min(at + 1, text.size()));
  return part;
}

std::uint64_t number(std::string_view text) {
  std::uint64_t value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value, 16);
  return value;
}

// nullopt when it is not whole.
std::optional<std::vector<Entry>> decode(std::string_view text) {
  const std::size_t end = text.rfind("ende\t");
  if (!text.starts_with(kHead) || end == std::string_view::npos) return std::nullopt;
  std::string_view body = text.substr(0, end);
  if (text.substr(end) != "ende\t" + hex(sumOf(body)) + '\n') return std::nullopt;
  body.remove_prefix(kHead.size());
  std::vector<Entry> entries;
  while (!body.empty()) {
    std::string_view line = cut(body, '\n');
    Entry entry;
    const auto* word = std::find(std::begin(kWords), std::end(kWords), cut(line, '\t'));
    if (word == std::end(kWords)) return std::nullopt;
    entry.kind = static_cast<Kind>(word - std::begin(kWords));
    entry.mark.size = number(cut(line, '\t'));
    entry.mark.sum = number(cut(line, '\t'));
    entry.name = line;
    entries.push_back(std::move(entry));
  }
  return entries;
}

// --- carrying it out ---

// A virus scanner or a flaw of the device passes; a second look costs nothing.
template <class Call>
auto patiently(Call call) {
  constexpr int kAttempts = 3;
  auto outcome = call();
  for (int attempt = 1; !outcome && attempt < kAttempts; ++attempt) outcome = call();
  return outcome;
}

// Puts one file in its place; what is there already, or is not the file that was meant, is passed
// over. So an intention can be carried out again and again.
Result<void> carryOutEntry(FileSystem& files, const std::string& folder, const Entry& entry) {
  if (entry.kind == Kind::TiedTo) return {};
  const std::string path = folder + entry.name;
  const bool removal = entry.kind == Kind::Remove;
  if (removal && entry.mark == kUnreadable)
    return files.exists(path) ? files.remove(path) : Result<void>();
  const auto found = markAt(files, removal ? path : stagedName(path));
  if (!found) return Failure(found.error());
  if (!*found || **found != entry.mark) return {};
  return removal ? files.remove(path) : files.rename(stagedName(path), path);
}

void sweep(FileSystem& files, const std::string& folder) {
  const auto names = files.list(folder);
  if (!names) return;
  for (const std::string& name : *names)
    if (name.ends_with(kStaged))
      ignore(files.remove(folder + name), "it does no harm, and the next start tries again");
}

Error aboutFolder(Error error, const std::string& folder) {
  error.file = folder;
  return error;
}

// Of a change that is tied to a file: whether that file has changed.
Result<bool> counts(FileSystem& files, const std::string& folder, const std::vector<Entry>& entries,
                    const JointChange::Settle& settle) {
  for (const Entry& entry : entries) {
    if (entry.kind != Kind::TiedTo) continue;
    const std::string path = folder + entry.name;
    if (settle && files.exists(path))
      if (auto settled = settle(path); !settled) return Failure(settled.error());
    const auto now = markAt(files, path);
    if (!now) return Failure(now.error());
    return *now && **now != entry.mark;
  }
  return true;
}

}  // namespace

JointChange::JointChange(FileSystem& files, std::string folder, std::unique_ptr<File> intention)
    : files_(&files), folder_(std::move(folder)), intention_(std::move(intention)) {}

JointChange::JointChange(JointChange&&) noexcept = default;

JointChange::~JointChange() {
  if (intention_) withdraw();
}

Result<JointChange> JointChange::begin(FileSystem& files, const std::string& folder) {
  const std::string path = withSeparator(folder);
  if (auto finished = finish(files, path); !finished)
    return fail(aboutFolder(finished.error(), path));
  auto intention = files.open(intentionIn(path), OpenMode::Create);
  if (!intention) return fail(aboutFolder(intention.error(), path));
  return JointChange(files, path, std::move(*intention));
}

// On a disk that fails from here on it would be too late to find out.
Result<void> JointChange::checkFree(const std::string& name) const {
  if (name.find_first_of("\t\n") != std::string::npos)
    return fail(ErrorCode::InvalidName, {}, folder_ + name);
  const auto held = files_->open(folder_ + name, OpenMode::ReadWrite);
  if (held || held.error().code != ErrorCode::InUse) return {};
  return Failure(held.error());
}

// Takes a content that was written beside into the change.
Result<void> JointChange::stage(const std::string& name, Result<void> written) {
  const std::string staged = stagedName(folder_ + name);
  Result<std::optional<Mark>> mark;
  if (written) mark = markAt(*files_, staged);
  if (written && !mark) written = Failure(mark.error());
  if (written && !*mark) written = fail(ErrorCode::NotFound, {}, staged);
  if (written) {
    entries_.push_back({Kind::Replace, name, **mark});
    return {};
  }
  ignore(files_->remove(staged), "the first failure is the one to report");
  if (written.error().file == staged) written.error().file = folder_ + name;
  return written;
}

Result<void> JointChange::replace(const std::string& name, ByteSpan content,
                                  const std::string& rightsOf) {
  const std::string path = folder_ + name;
  if (auto allowed = files_->checkReplaceable(path); !allowed) return allowed;
  if (auto free = checkFree(name); !free) return free;
  const auto write = [&]() -> Result<void> {
    const std::string& model = files_->exists(path) ? path : rightsOf;
    auto file = files_->createLike(stagedName(path), model, Rights::Same);
    if (!file) return Failure(file.error());
    if (auto written = (*file)->writeAt(0, content); !written) return written;
    return (*file)->sync();
  };
  return stage(name, write());
}

Result<void> JointChange::copy(const std::string& from, const std::string& name,
                               const FileSystem::Progress& progress) {
  const std::string path = folder_ + name;
  if (auto allowed = files_->checkReplaceable(path); !allowed) return allowed;
  if (auto free = checkFree(name); !free) return free;
  return stage(name, files_->copyContent(from, stagedName(path), path, progress));
}

Result<void> JointChange::remove(const std::string& name) {
  if (auto free = checkFree(name); !free) return free;
  const auto mark = markAt(*files_, folder_ + name);
  if (!mark)
    entries_.push_back({Kind::Remove, name, kUnreadable});
  else if (*mark)
    entries_.push_back({Kind::Remove, name, **mark});
  return {};
}

// The names of everything that was written beside are made durable before the content that gives
// them a meaning.
Result<void> JointChange::writeIntention() {
  if (auto named = files_->syncFolder(folder_); !named)
    return fail(aboutFolder(named.error(), folder_));
  Result<void> written = intention_->writeAt(0, asBytes(encode(entries_)));
  if (written) written = intention_->sync();
  if (written) return {};
  withdraw();
  return fail(aboutFolder(written.error(), folder_));
}

// Makes sure that no later finish() takes the intention for a whole one, and lets go of it.
bool JointChange::withdraw() {
  if (!intention_) return !pending_;
  const bool emptied = intention_->resize(0) && intention_->sync();
  intention_.reset();
  const auto removed = patiently([&] { return files_->remove(intentionIn(folder_)); });
  pending_ = !emptied && !(removed && files_->syncFolder(folder_));
  if (!pending_) dropStaged();
  return !pending_;
}

void JointChange::dropStaged() {
  for (const Entry& entry : entries_)
    if (entry.kind == Kind::Replace)
      ignore(files_->remove(stagedName(folder_ + entry.name)), "the next finish() tries again");
}

Result<void> JointChange::carryOut() {
  bool begun = false;
  for (const Entry& entry : entries_) {
    auto done = patiently([&] { return carryOutEntry(*files_, folder_, entry); });
    if (done) {
      begun = true;
      continue;
    }
    done.error().file = folder_ + entry.name;
    const bool tied = entries_.back().kind == Kind::TiedTo;
    if (!begun && !tied && withdraw()) return done;
    leaveToFinish();
    return done;
  }
  // Without this the intention stays, and with it the certainty that all names come to be.
  const auto named = patiently([&] { return files_->syncFolder(folder_); });
  intention_.reset();
  pending_ = !named || !patiently([&] { return files_->remove(intentionIn(folder_)); });
  ignore(files_->syncFolder(folder_), "carrying it out again changes nothing");
  return {};
}

Result<void> JointChange::commit() {
  if (entries_.empty()) return {};
  if (auto written = writeIntention(); !written) return written;
  return carryOut();
}

Result<void> JointChange::prepare(const std::string& name, ByteSpan content) {
  entries_.push_back({Kind::TiedTo, name, {content.size(), addToSum(kEmptySum, content)}});
  return writeIntention();
}

Result<void> JointChange::complete() {
  return carryOut();
}

void JointChange::leaveToFinish() {
  pending_ = true;
  intention_.reset();
}

Result<bool> JointChange::finish(FileSystem& files, const std::string& folder,
                                 const Settle& settle) {
  const std::string path = withSeparator(folder);
  const std::string name = intentionIn(path);
  auto intention = files.open(name, OpenMode::ReadWrite);
  if (!intention && intention.error().code == ErrorCode::InUse) return false;
  if (!intention && intention.error().code != ErrorCode::NotFound)
    return Failure(intention.error());
  std::optional<std::vector<Entry>> entries;
  if (intention) {
    const auto size = (*intention)->size();
    if (!size) return Failure(size.error());
    Bytes content(static_cast<std::size_t>(std::min(*size, kLongest)));
    if (auto read = (*intention)->readAt(0, content); !read) return Failure(read.error());
    entries = decode(asText(content));
  }
  if (entries) {
    const auto counting = counts(files, path, *entries, settle);
    if (!counting) return Failure(counting.error());
    if (!*counting) entries.reset();
  }
  if (entries) {
    for (const Entry& entry : *entries)
      if (auto done = carryOutEntry(files, path, entry); !done) return Failure(done.error());
    if (auto named = files.syncFolder(path); !named) return Failure(named.error());
  }
  sweep(files, path);
  if (!intention) return false;
  intention->reset();
  if (auto removed = files.remove(name); !removed) return Failure(removed.error());
  if (auto named = files.syncFolder(path); !named) return Failure(named.error());
  return entries.has_value();
}

}  // namespace base
