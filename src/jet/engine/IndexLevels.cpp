#include <algorithm>

#include "jet/engine/IndexLevels.h"

namespace jet {
namespace {

using base::Failure;
using base::Result;

// Pages are not filled to the brim, so that the next new key does not split one.
std::size_t fillLimit(const format::Version& version) {
  return version.indexRoom() / 10 * 9;
}

// Entries in order, cut into pages. More than one page only when one does not hold them.
std::vector<IndexPage> cutIntoLeaves(const format::Version& version, std::uint32_t tableDef,
                                     const std::vector<IndexEntry>& entries) {
  IndexPage leaf;
  leaf.tableDef = tableDef;
  leaf.entries = entries;
  if (leaf.fits(version)) return {leaf};
  std::vector<IndexPage> leaves;
  leaf.entries.clear();
  std::size_t size = 0;
  for (const IndexEntry& entry : entries) {
    if (size > 0 && size + entry.bytes.size() > fillLimit(version)) {
      leaves.push_back(std::move(leaf));
      leaf = IndexPage();
      leaf.tableDef = tableDef;
      size = 0;
    }
    leaf.entries.push_back(entry);
    size += entry.bytes.size();
  }
  leaves.push_back(std::move(leaf));
  return leaves;
}

struct Child {
  std::uint32_t number = 0;
  IndexEntry last;  // of everything below
};

IndexPage nodeOf(std::uint32_t tableDef, std::uint8_t level, const std::vector<Child>& children) {
  IndexPage node;
  node.leaf = false;
  node.level = level;
  node.tableDef = tableDef;
  node.tail = children.back().number;
  for (std::size_t i = 0; i + 1 < children.size(); ++i) {
    node.entries.push_back(children[i].last);
    node.entries.back().child = children[i].number;
  }
  return node;
}

// The last entry of everything below a page: a node has it in its tail child.
IndexEntry lastOf(const IndexPage& page, const std::vector<IndexEntry>& lasts, std::size_t i) {
  if (!page.leaf) return lasts[i];
  return page.entries.empty() ? IndexEntry() : page.entries.back();
}

// Children of a level in groups of a page each; no group is a single child.
std::vector<std::vector<Child>> group(const format::Version& version,
                                      const std::vector<Child>& children) {
  std::vector<std::vector<Child>> groups(1);
  std::size_t size = 0;
  for (const Child& child : children) {
    const std::size_t more = child.last.bytes.size() + format::kEntryChildBytes;
    if (groups.back().size() > 1 && size + more > fillLimit(version)) {
      groups.emplace_back();
      size = 0;
    }
    groups.back().push_back(child);
    size += more;
  }
  if (groups.size() > 1 && groups.back().size() == 1) {
    auto& donor = groups[groups.size() - 2];
    groups.back().insert(groups.back().begin(), donor.back());
    donor.pop_back();
  }
  return groups;
}

}  // namespace

Result<std::uint32_t> writeIndexLevels(const format::Version& version, std::uint32_t tableDef,
                                       const std::vector<IndexEntry>& entries,
                                       const TakeIndexPage& take, const WriteIndexPage& write) {
  std::vector<IndexPage> level = cutIntoLeaves(version, tableDef, entries);
  std::vector<IndexEntry> lasts;  // of each node's tail child
  for (std::uint8_t height = 0;; ++height) {
    std::vector<Child> above;
    for (std::size_t i = 0; i < level.size(); ++i) {
      auto number = take(level.size() == 1);
      if (!number) return number;
      above.push_back({*number, lastOf(level[i], lasts, i)});
    }
    for (std::size_t i = 0; i < level.size(); ++i) {
      level[i].previous = i == 0 ? 0 : above[i - 1].number;
      level[i].next = i + 1 == level.size() ? 0 : above[i + 1].number;
      if (auto done = write(above[i].number, level[i]); !done) return Failure(done.error());
    }
    if (level.size() == 1) return above[0].number;
    const auto groups = group(version, above);
    level.clear();
    lasts.clear();
    for (const auto& one : groups) {
      level.push_back(nodeOf(tableDef, static_cast<std::uint8_t>(height + 1), one));
      lasts.push_back(one.back().last);
    }
  }
}

}  // namespace jet
