#include "jet/NewIndex.h"

#include <algorithm>

#include "jet/format/Version.h"

namespace jet {
namespace {

using base::Bytes;
using format::kJet4;

// One page's share of a level, and the last entry below it.
struct Node {
  std::vector<Bytes> entries;
  std::uint32_t tail = 0;
  std::uint32_t page = 0;
  Bytes last;
};

void writePage(std::span<std::uint8_t> bytes, std::uint32_t tableDef, std::uint8_t level,
               const Node& node, std::uint32_t previous, std::uint32_t next) {
  const format::IndexPageFormat& layout = kJet4.indexPage;
  bytes[0] = static_cast<std::uint8_t>(level == 0 ? format::PageKind::IndexLeaf
                                                  : format::PageKind::IndexNode);
  bytes[1] = 1;
  layout.tableDef.set(bytes, tableDef);
  layout.previous.set(bytes, previous);
  layout.next.set(bytes, next);
  layout.tail.set(bytes, node.tail);
  layout.level.set(bytes, level);
  std::size_t end = 0;
  for (const Bytes& entry : node.entries) {
    std::copy(entry.begin(), entry.end(),
              bytes.begin() + static_cast<std::ptrdiff_t>(layout.headSize + end));
    end += entry.size();
    bytes[layout.maskOffset + end / 8] |= static_cast<std::uint8_t>(1U << (end % 8));
  }
  layout.freeBytes.set(bytes, static_cast<std::uint32_t>(bytes.size() - layout.headSize - end));
}

Bytes nodeEntry(Bytes lastBelow, std::uint32_t child) {
  const auto raw = std::bit_cast<std::array<std::uint8_t, 4>>(base::be32(child));
  lastBelow.insert(lastBelow.end(), raw.begin(), raw.end());
  return lastBelow;
}

// As many entries to a page as fit. On nodes the last child of a page stands in its tail.
std::vector<Node> split(const std::vector<Bytes>& entries) {
  const std::size_t room = kJet4.pageSize - kJet4.indexPage.headSize;
  std::vector<Node> nodes(1);
  std::size_t used = 0;
  for (const Bytes& entry : entries) {
    if (used + entry.size() > room) {
      nodes.emplace_back();
      used = 0;
    }
    used += entry.size();
    nodes.back().entries.push_back(entry);
    nodes.back().last = entry;
  }
  return nodes;
}

// A page with a tail alone has nothing to search by: the page before it gives up its last child.
void shareLastChild(std::vector<Node>& nodes) {
  Node& from = nodes[nodes.size() - 2];
  nodes.back().entries.push_back(nodeEntry(from.last, from.tail));
  const Bytes given = std::move(from.entries.back());
  from.entries.pop_back();
  from.last.assign(given.begin(), given.end() - format::kEntryChildBytes);
  from.tail = given[given.size() - 3] << 16 | given[given.size() - 2] << 8 | given.back();
}

std::vector<Node> parentsOf(const std::vector<Node>& children) {
  const std::size_t room = kJet4.pageSize - kJet4.indexPage.headSize;
  std::vector<Node> nodes(1);
  std::size_t used = 0;
  for (std::size_t i = 0; i < children.size(); ++i) {
    Bytes entry = nodeEntry(children[i].last, children[i].page);
    const bool full = used + entry.size() > room;
    if (full || i + 1 == children.size()) {
      nodes.back().tail = children[i].page;
      nodes.back().last = children[i].last;
      used = 0;
      if (i + 1 < children.size()) nodes.emplace_back();
    } else {
      used += entry.size();
      nodes.back().entries.push_back(std::move(entry));
    }
  }
  if (nodes.size() > 1 && nodes.back().entries.empty()) shareLastChild(nodes);
  return nodes;
}

}  // namespace

base::Bytes indexEntry(base::ByteSpan key, RowPointer row) {
  Bytes entry(key.begin(), key.end());
  for (const int shift : {16, 8, 0}) entry.push_back(static_cast<std::uint8_t>(row.page >> shift));
  entry.push_back(row.slot);
  return entry;
}

std::vector<std::uint32_t> writeIndexTree(NewFile& file, std::uint32_t tableDef, std::uint32_t root,
                                          std::vector<Bytes> entries) {
  std::sort(entries.begin(), entries.end());
  std::vector<std::uint32_t> pages = {root};
  std::vector<Node> nodes = split(entries);
  for (std::uint8_t level = 0;; ++level) {
    const bool top = nodes.size() == 1;
    for (Node& node : nodes) {
      node.page = top ? root : file.append();
      if (!top) pages.push_back(node.page);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i)
      writePage(file.page(nodes[i].page), tableDef, level, nodes[i], i == 0 ? 0 : nodes[i - 1].page,
                i + 1 == nodes.size() ? 0 : nodes[i + 1].page);
    if (top) return pages;
    nodes = parentsOf(nodes);
  }
}

}  // namespace jet
