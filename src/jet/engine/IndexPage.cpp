#include "jet/engine/IndexPage.h"

#include <algorithm>
#include <cassert>

#include "jet/engine/Damage.h"

namespace jet {
namespace {

using format::PageKind;

void appendBigEndian(Bytes& bytes, std::uint32_t value, int width) {
  for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
    bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t bigEndian(ByteSpan bytes) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : bytes) value = value << 8 | byte;
  return value;
}

// Ends of the entries, from the bit mask: bit b set = an entry ends at byte b of the entry area.
std::vector<std::size_t> entryEnds(ByteSpan mask) {
  std::vector<std::size_t> ends;
  for (std::size_t i = 0; i < mask.size(); ++i)
    for (std::size_t bit = 0; mask[i] != 0 && bit < 8; ++bit)
      if ((mask[i] >> bit & 1) != 0) ends.push_back(8 * i + bit);
  return ends;
}

// As the entry lies in the page, before the prefix is cut off.
Bytes storedBytes(const IndexEntry& entry, bool leaf) {
  Bytes bytes = entry.bytes;
  if (!leaf) appendBigEndian(bytes, entry.child, format::kEntryChildBytes);
  return bytes;
}

}  // namespace

IndexEntry IndexEntry::of(ByteSpan key, RowPointer row) {
  IndexEntry entry;
  entry.bytes.assign(key.begin(), key.end());
  appendBigEndian(entry.bytes, row.page, 3);
  entry.bytes.push_back(row.slot);
  return entry;
}

RowPointer IndexEntry::row() const {
  const ByteSpan last = ByteSpan(bytes).last(format::kEntryRowBytes);
  return {bigEndian(last.first(3)), last[3]};
}

Result<IndexPage> IndexPage::parse(const format::Version& version, std::uint32_t number,
                                   ByteSpan bytes, std::uint32_t tableDef) {
  const format::IndexPageFormat& layout = version.indexPage;
  IndexPage page;
  page.leaf = bytes[0] == static_cast<std::uint8_t>(PageKind::IndexLeaf);
  if (!page.leaf && bytes[0] != static_cast<std::uint8_t>(PageKind::IndexNode))
    return indexDamaged(number, "the page is no index page");
  page.tableDef = layout.tableDef.get(bytes);
  if (page.tableDef != tableDef)
    return indexDamaged(number, "the index page is one of another table");
  page.level = static_cast<std::uint8_t>(layout.level.get(bytes));
  page.previous = layout.previous.get(bytes);
  page.next = layout.next.get(bytes);
  page.tail = page.leaf ? 0 : layout.tail.get(bytes);
  if (!page.leaf && page.tail == 0) return indexDamaged(number, "the node has no last child");

  const ByteSpan area = bytes.subspan(layout.headSize);
  const std::size_t prefixLength = layout.prefixLength.get(bytes);
  const std::size_t shortest = format::kEntryRowBytes + (page.leaf ? 0 : format::kEntryChildBytes);
  std::size_t start = 0;
  Bytes prefix;
  for (const std::size_t end : entryEnds(bytes.subspan(layout.maskOffset, layout.maskSize))) {
    if (end > area.size() || end <= start)
      return indexDamaged(number, "an entry lies behind the end of the index page");
    Bytes stored = prefix;
    stored.insert(stored.end(), area.begin() + static_cast<std::ptrdiff_t>(start),
                  area.begin() + static_cast<std::ptrdiff_t>(end));
    if (stored.size() <= shortest || (start == 0 && prefixLength > stored.size()))
      return indexDamaged(number, "an entry of the index page is too short");
    if (start == 0)
      prefix.assign(stored.begin(), stored.begin() + static_cast<std::ptrdiff_t>(prefixLength));
    IndexEntry entry;
    if (!page.leaf) {
      entry.child = bigEndian(ByteSpan(stored).last(format::kEntryChildBytes));
      stored.erase(stored.end() - format::kEntryChildBytes, stored.end());
    }
    entry.bytes = std::move(stored);
    page.entries.push_back(std::move(entry));
    start = end;
  }
  return page;
}

std::size_t IndexPage::usedBytes(ByteSpan bytes, const format::Version& version) {
  const format::IndexPageFormat& layout = version.indexPage;
  const auto ends = entryEnds(bytes.subspan(layout.maskOffset, layout.maskSize));
  return ends.empty() ? 0 : ends.back();
}

std::size_t IndexPage::plainSize() const {
  std::size_t size = entries.size() * (leaf ? 0 : format::kEntryChildBytes);
  for (const IndexEntry& entry : entries) size += entry.bytes.size();
  return size;
}

// The common start of first and last entry is that of all, as they are ordered. It ends before the
// row, so that something of each entry is left.
std::size_t IndexPage::usablePrefix(const format::Version& version) const {
  if (entries.size() < 2) return 0;
  const Bytes& first = entries.front().bytes;
  const Bytes& last = entries.back().bytes;
  std::size_t shortest = (std::size_t{1} << (8 * version.indexPage.prefixLength.width)) - 1;
  for (const IndexEntry& entry : entries) shortest = std::min(shortest, entry.key().size());
  const auto limit = static_cast<std::ptrdiff_t>(std::min({shortest, first.size(), last.size()}));
  const auto differing = std::mismatch(first.begin(), first.begin() + limit, last.begin());
  return static_cast<std::size_t>(differing.first - first.begin());
}

std::size_t IndexPage::encodedSize(const format::Version& version) const {
  const std::size_t plain = plainSize();
  if (plain <= version.indexRoom()) return plain;
  return plain - usablePrefix(version) * (entries.size() - 1);
}

void IndexPage::encode(const format::Version& version, std::span<std::uint8_t> bytes) const {
  assert(fits(version));
  const format::IndexPageFormat& layout = version.indexPage;
  std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
  bytes[0] = static_cast<std::uint8_t>(leaf ? PageKind::IndexLeaf : PageKind::IndexNode);
  bytes[1] = 1;
  layout.tableDef.set(bytes, tableDef);
  layout.previous.set(bytes, previous);
  layout.next.set(bytes, next);
  layout.tail.set(bytes, tail);
  layout.level.set(bytes, level);
  // Prefixes are cut off only when the page would not hold the entries otherwise.
  const std::size_t prefix = plainSize() <= version.indexRoom() ? 0 : usablePrefix(version);
  layout.prefixLength.set(bytes, static_cast<std::uint32_t>(prefix));
  const auto area = bytes.subspan(layout.headSize);
  std::size_t position = 0;
  for (const IndexEntry& entry : entries) {
    const Bytes stored = storedBytes(entry, leaf);
    const std::size_t cut = position == 0 ? 0 : prefix;
    std::copy(stored.begin() + static_cast<std::ptrdiff_t>(cut), stored.end(),
              area.begin() + static_cast<std::ptrdiff_t>(position));
    position += stored.size() - cut;
    bytes[layout.maskOffset + position / 8] |= static_cast<std::uint8_t>(1u << (position % 8));
  }
  layout.freeBytes.set(bytes, static_cast<std::uint32_t>(version.indexRoom() - position));
}

}  // namespace jet
