#include "jet/engine/JournalFormat.h"

#include "jet/engine/Checksum.h"

namespace jet {
namespace {

constexpr std::uint64_t kFirstSeed = 0x4B616C7669726131U;
constexpr std::uint64_t kSecondSeed = 0x8D2F6B3C51E7A409U;

std::uint64_t sum(std::uint64_t seed, base::ByteSpan summedHeader, base::ByteSpan body) {
  return Checksum(seed).add(summedHeader).add(body).value();
}

void append(base::Bytes& target, base::ByteSpan bytes) {
  target.insert(target.end(), bytes.begin(), bytes.end());
}

template <class T>
base::ByteSpan bytesOf(const T& record) {
  return {reinterpret_cast<const std::uint8_t*>(&record), sizeof(T)};
}

// The sums prove that nothing is torn, not that it makes sense.
bool consistent(const JournalContent& content) {
  constexpr std::uint64_t kLargestDatabase = std::uint64_t{1} << 32;
  const std::uint64_t size = content.pageSize;
  if (size != 2048 && size != 4096) return false;
  if (content.sizeBefore % size != 0 || content.sizeAfter % size != 0) return false;
  if (content.sizeBefore > content.sizeAfter || content.sizeAfter > kLargestDatabase) return false;
  for (const auto& [page, image] : content.after) {
    const bool existed = page * size < content.sizeBefore;
    if (page * size >= content.sizeAfter || existed != content.before.contains(page)) return false;
  }
  return content.before.size() <= content.after.size();
}

bool readRecords(base::ByteView body, std::uint32_t count, JournalContent& content) {
  std::size_t at = 0;
  for (std::uint32_t i = 0; i < count; ++i) {
    const auto record = body.read<JournalRecord>(at);
    if (!record) return false;
    at += sizeof(JournalRecord);
    for (const bool old : {true, false}) {
      if (old && record->hasOldImage != 1U) continue;
      const auto image = body.slice(at, content.pageSize);
      if (!image) return false;
      at += content.pageSize;
      (old ? content.before : content.after)[record->page].assign(image->begin(), image->end());
    }
  }
  return at == body.size();
}

std::uint64_t undoMarkOffset(std::uint64_t bodyLength) {
  const std::uint64_t end = sizeof(JournalHeader) + bodyLength;
  return (end + kJournalSector - 1) / kJournalSector * kJournalSector;
}

bool isMarkedUndone(base::ByteView file, const JournalHeader& header) {
  const auto mark =
      file.read<JournalUndoMark>(static_cast<std::size_t>(undoMarkOffset(header.bodyLength)));
  return mark && mark->magic == JournalUndoMark().magic && mark->firstSum == header.firstSum &&
         mark->secondSum == header.secondSum;
}

}  // namespace

base::Bytes encodeJournal(const JournalContent& content) {
  base::Bytes bytes(sizeof(JournalHeader));
  bytes.reserve(bytes.size() + content.after.size() * (8 + 2 * std::size_t{content.pageSize}));
  for (const auto& [page, image] : content.after) {
    const auto old = content.before.find(page);
    JournalRecord record;
    record.page = page;
    record.hasOldImage = old == content.before.end() ? 0U : 1U;
    append(bytes, bytesOf(record));
    if (old != content.before.end()) append(bytes, old->second);
    append(bytes, image);
  }
  const auto body = base::ByteSpan(bytes).subspan(sizeof(JournalHeader));
  JournalHeader header;
  header.pageSize = content.pageSize;
  header.pageCount = static_cast<std::uint32_t>(content.after.size());
  header.witnessCount = content.witnessCount;
  header.sizeBefore = content.sizeBefore;
  header.sizeAfter = content.sizeAfter;
  header.witnessSum = content.witnessSum;
  header.bodyLength = std::uint64_t{body.size()};
  const auto summed = bytesOf(header).first(kJournalSummed);
  header.firstSum = sum(kFirstSeed, summed, body);
  header.secondSum = sum(kSecondSeed, summed, body);
  std::memcpy(bytes.data(), &header, sizeof(header));
  return bytes;
}

PlacedUndoMark undoMarkFor(base::ByteSpan journal) {
  JournalHeader header;
  std::memcpy(&header, journal.data(), sizeof(header));
  JournalUndoMark mark;
  mark.firstSum = header.firstSum;
  mark.secondSum = header.secondSum;
  return {undoMarkOffset(header.bodyLength), mark};
}

std::optional<JournalContent> decodeJournal(base::ByteSpan bytes) {
  const base::ByteView view(bytes);
  const auto header = view.read<JournalHeader>(0);
  if (!header || header->magic != kJournalMagic || header->version != 1U) return std::nullopt;
  if (header->bodyLength > bytes.size() - sizeof(JournalHeader)) return std::nullopt;
  const auto body =
      bytes.subspan(sizeof(JournalHeader), static_cast<std::size_t>(header->bodyLength.get()));
  const auto summed = bytes.first(kJournalSummed);
  if (header->firstSum != sum(kFirstSeed, summed, body) ||
      header->secondSum != sum(kSecondSeed, summed, body))
    return std::nullopt;
  JournalContent content;
  content.pageSize = header->pageSize;
  content.sizeBefore = header->sizeBefore;
  content.sizeAfter = header->sizeAfter;
  content.witnessCount = header->witnessCount;
  content.witnessSum = header->witnessSum;
  if (!readRecords(base::ByteView(body), header->pageCount, content)) return std::nullopt;
  if (!consistent(content)) return std::nullopt;
  content.undone = isMarkedUndone(view, *header);
  return content;
}

}  // namespace jet
