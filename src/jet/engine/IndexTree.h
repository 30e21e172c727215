#pragma once

#include <vector>

#include "jet/engine/IndexPage.h"
#include "jet/engine/PageAllocator.h"
#include "jet/engine/TableDef.h"

namespace jet {

// The tree of one index: leaves with all entries in order, linked both ways; above them nodes, in
// which each entry is the last one of its child. The root keeps its page.
//
// Errors about the tree are IndexDamaged and carry the page.
class IndexTree {
 public:
  IndexTree(Pager& pager, std::uint32_t tableDef, const IndexDef& index)
      : pager_(&pager), tableDef_(tableDef), index_(&index) {}

  // All entries, with every page of the tree checked on the way: kind, owner, levels, links, order.
  // More entries than the limit are IndexDamaged. pages gets the numbers of the tree's pages.
  base::Result<std::vector<IndexEntry>> entries(std::size_t limit,
                                                std::vector<std::uint32_t>* pages = nullptr) const;

  // Is there an entry with this key, of whatever row?
  base::Result<bool> containsKey(base::ByteSpan key) const;
  base::Result<void> insert(const IndexEntry& entry);
  base::Result<void> remove(const IndexEntry& entry);

  // Makes the tree anew from entries in order. pages: those that may be used for it; what is left
  // of them is freed. Returns the root, another page than before only when that is not among them.
  base::Result<std::uint32_t> rebuild(const std::vector<IndexEntry>& entries,
                                      std::vector<std::uint32_t> pages);

 private:
  struct Visited {
    std::uint32_t number = 0;
    IndexPage page;
    std::size_t child = 0;  // nodes: position of the entry followed; entries.size() = tail
  };
  using Path = std::vector<Visited>;
  struct Walk;

  base::Result<IndexPage> read(std::uint32_t number) const;
  base::Result<void> write(std::uint32_t number, const IndexPage& page);
  base::Result<Path> descend(base::ByteSpan entry) const;
  base::Result<void> walk(Walk& walk, std::uint32_t number, int depth) const;

  base::Result<std::uint32_t> newPage();
  base::Result<void> freePage(std::uint32_t number);
  base::Result<void> setLinks(std::uint32_t left, std::uint32_t right);
  base::Result<void> split(Path& path);
  base::Result<void> splitRoot(Visited& root, std::size_t middle);
  base::Result<void> lastChanged(Path& path, const IndexEntry& removed);
  base::Result<void> removeEmptyLeaf(Path& path, const IndexEntry& removed);
  base::Result<void> pullUpOnlyChild(const Visited& root);

  Pager* pager_;
  std::uint32_t tableDef_;
  const IndexDef* index_;
};

}  // namespace jet
