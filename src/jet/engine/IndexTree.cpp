#include "jet/engine/IndexTree.h"

#include <algorithm>
#include <cassert>
#include <set>

#include "jet/engine/Damage.h"
#include "jet/engine/UsageMapEditor.h"

namespace jet {
namespace {

// A tree of this depth has more entries than a file has bytes.
constexpr int kMaxDepth = 16;

bool lessThan(const IndexEntry& entry, ByteSpan bytes) {
  return std::lexicographical_compare(entry.bytes.begin(), entry.bytes.end(), bytes.begin(),
                                      bytes.end());
}

std::size_t firstNotLess(const IndexPage& page, ByteSpan bytes) {
  const auto found = std::lower_bound(page.entries.begin(), page.entries.end(), bytes, lessThan);
  return static_cast<std::size_t>(found - page.entries.begin());
}

std::uint32_t childAt(const IndexPage& node, std::size_t position) {
  return position < node.entries.size() ? node.entries[position].child : node.tail;
}

// The entry at which a page is cut so that both parts are about as long: the first of the right
// part in a leaf, the one that goes up in a node.
std::size_t middleOf(const IndexPage& page) {
  std::size_t total = 0;
  for (const IndexEntry& entry : page.entries) total += entry.bytes.size();
  std::size_t left = 0, position = 0;
  while (position < page.entries.size() && left < total / 2)
    left += page.entries[position++].bytes.size();
  // A node's right part keeps an entry beside its tail, if there are enough.
  const std::size_t spare = page.leaf || page.entries.size() < 3 ? 1 : 2;
  return std::clamp<std::size_t>(position, 1, page.entries.size() - spare);
}

// The left part of a page that is to be split; what stays is the right part.
IndexPage takeLeft(IndexPage& page, std::size_t middle) {
  IndexPage left = page;
  const auto cut = static_cast<std::ptrdiff_t>(middle);
  if (page.leaf) {
    left.entries.erase(left.entries.begin() + cut, left.entries.end());
    page.entries.erase(page.entries.begin(), page.entries.begin() + cut);
  } else {
    left.tail = page.entries[middle].child;
    left.entries.erase(left.entries.begin() + cut, left.entries.end());
    page.entries.erase(page.entries.begin(), page.entries.begin() + cut + 1);
  }
  return left;
}

// What the parent holds for the left part.
IndexEntry separatorOf(const IndexPage& page, std::size_t middle, std::uint32_t leftPage) {
  IndexEntry separator = page.entries[page.leaf ? middle - 1 : middle];
  separator.child = leftPage;
  return separator;
}

}  // namespace

Result<IndexPage> IndexTree::read(std::uint32_t number) const {
  auto page = pager_->page(number);
  if (!page) {
    base::Error error = page.error();
    if (error.code == base::ErrorCode::Truncated) error.code = base::ErrorCode::IndexDamaged;
    return Failure(std::move(error));
  }
  return IndexPage::parse(pager_->version(), number, **page, tableDef_);
}

Result<void> IndexTree::write(std::uint32_t number, const IndexPage& page) {
  if (!page.fits(pager_->version()))
    return refuse(base::ErrorCode::Unsupported, "the value is too long for the index");
  auto bytes = pager_->edit(number);
  if (!bytes) return Failure(bytes.error());
  page.encode(pager_->version(), *bytes);
  return {};
}

Result<IndexTree::Path> IndexTree::descend(ByteSpan entry) const {
  Path path;
  for (std::uint32_t number = index_->root; path.size() < kMaxDepth;) {
    auto page = read(number);
    if (!page) return Failure(page.error());
    path.push_back({number, std::move(*page), 0});
    Visited& visited = path.back();
    visited.child = firstNotLess(visited.page, entry);
    if (visited.page.leaf) return path;
    number = childAt(visited.page, visited.child);
  }
  return indexDamaged(index_->root, "the index is nested too deeply");
}

// --- reading all ---

struct IndexTree::Walk {
  std::size_t limit = 0;
  std::vector<IndexEntry> entries{};
  std::vector<std::uint32_t> pages{};
  std::set<std::uint32_t> seen{};
  std::uint32_t lastLeaf = 0;      // 0 = none yet
  std::uint32_t expectedLeaf = 0;  // what the last leaf names as its successor
  int leafDepth = -1;
};

Result<std::vector<IndexEntry>> IndexTree::entries(std::size_t limit,
                                                   std::vector<std::uint32_t>* pages) const {
  Walk found{.limit = limit};
  if (auto done = walk(found, index_->root, 0); !done) return Failure(done.error());
  if (found.expectedLeaf != 0) return indexDamaged(found.lastLeaf, "the last leaf has a successor");
  if (pages != nullptr) *pages = std::move(found.pages);
  return std::move(found.entries);
}

Result<void> IndexTree::walk(Walk& walk, std::uint32_t number, int depth) const {
  if (!walk.seen.insert(number).second || depth > kMaxDepth)
    return indexDamaged(number, "the index runs in a circle");
  auto page = read(number);
  if (!page) return Failure(page.error());
  walk.pages.push_back(number);
  if (!page->leaf) {
    for (std::size_t i = 0; i <= page->entries.size(); ++i) {
      const std::size_t before = walk.entries.size();
      if (auto done = this->walk(walk, childAt(*page, i), depth + 1); !done) return done;
      const bool inside = i == page->entries.size() || walk.entries.size() == before ||
                          walk.entries.back().bytes <= page->entries[i].bytes;
      if (!inside) return indexDamaged(number, "an index page has greater keys than its node says");
    }
    return {};
  }
  if (walk.leafDepth >= 0 && walk.leafDepth != depth)
    return indexDamaged(number, "leaves lie at different depths");
  walk.leafDepth = depth;
  if (page->level != 0) return indexDamaged(number, "the level of an index page is wrong");
  if (page->previous != walk.lastLeaf || (walk.lastLeaf != 0 && walk.expectedLeaf != number))
    return indexDamaged(number, "leaves are linked wrongly");
  walk.lastLeaf = number;
  walk.expectedLeaf = page->next;
  for (IndexEntry& entry : page->entries) {
    if (!walk.entries.empty() && entry.bytes <= walk.entries.back().bytes)
      return indexDamaged(number, "entries are out of order");
    if (walk.entries.size() == walk.limit)
      return indexDamaged(number, "the index has more entries than the table has rows");
    walk.entries.push_back(std::move(entry));
  }
  return {};
}

Result<bool> IndexTree::containsKey(ByteSpan key) const {
  auto path = descend(key);
  if (!path) return Failure(path.error());
  IndexPage leaf = std::move(path->back().page);
  std::size_t position = path->back().child;
  // A node may name a last entry that has been removed: then the next leaf has the first one.
  for (std::uint32_t steps = 0; position == leaf.entries.size() && leaf.next != 0; ++steps) {
    if (steps == pager_->pageCount()) return indexDamaged(leaf.next, "the index runs in a circle");
    auto next = read(leaf.next);
    if (!next) return Failure(next.error());
    leaf = std::move(*next);
    position = firstNotLess(leaf, key);
  }
  if (position == leaf.entries.size()) return false;
  const ByteSpan found = leaf.entries[position].key();
  return std::equal(found.begin(), found.end(), key.begin(), key.end());
}

// --- inserting ---

Result<void> IndexTree::insert(const IndexEntry& entry) {
  auto path = descend(entry.bytes);
  if (!path) return Failure(path.error());
  Visited& leaf = path->back();
  auto& entries = leaf.page.entries;
  if (leaf.child < entries.size() && entries[leaf.child].bytes == entry.bytes)
    return indexDamaged(leaf.number, "the entry is there already");
  entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(leaf.child), entry);
  if (leaf.page.fits(pager_->version())) return write(leaf.number, leaf.page);
  return split(*path);
}

// The last page of the path is too full. Its left part goes to a new page, so that what the parent
// says about the old one stays true; the parent may then be too full itself.
Result<void> IndexTree::split(Path& path) {
  while (true) {
    Visited full = std::move(path.back());
    path.pop_back();
    if (full.page.entries.size() < 2)
      return refuse(base::ErrorCode::Unsupported, "the value is too long for the index");
    const std::size_t middle = middleOf(full.page);
    if (path.empty()) return splitRoot(full, middle);
    auto left = newPage();
    if (!left) return Failure(left.error());
    const IndexEntry separator = separatorOf(full.page, middle, *left);
    IndexPage leftPage = takeLeft(full.page, middle);
    leftPage.next = full.number;
    full.page.previous = *left;
    if (auto done = write(*left, leftPage); !done) return done;
    if (auto done = write(full.number, full.page); !done) return done;
    if (leftPage.previous != 0)
      if (auto done = setLinks(leftPage.previous, *left); !done) return done;
    Visited& parent = path.back();
    parent.page.entries.insert(
        parent.page.entries.begin() + static_cast<std::ptrdiff_t>(parent.child), separator);
    if (parent.page.fits(pager_->version())) return write(parent.number, parent.page);
  }
}

// The root keeps its page and becomes the node above its two parts.
Result<void> IndexTree::splitRoot(Visited& root, std::size_t middle) {
  auto left = newPage();
  if (!left) return Failure(left.error());
  auto right = newPage();
  if (!right) return Failure(right.error());
  IndexPage top;
  top.leaf = false;
  top.level = static_cast<std::uint8_t>(root.page.level + 1);
  top.tableDef = tableDef_;
  top.tail = *right;
  top.entries = {separatorOf(root.page, middle, *left)};
  IndexPage leftPage = takeLeft(root.page, middle);
  leftPage.next = *right;
  root.page.previous = *left;
  if (auto done = write(*left, leftPage); !done) return done;
  if (auto done = write(*right, root.page); !done) return done;
  return write(root.number, top);
}

// left's successor is now right; nothing else of the page changes.
Result<void> IndexTree::setLinks(std::uint32_t left, std::uint32_t right) {
  if (left != 0) {
    auto page = read(left);
    if (!page) return Failure(page.error());
    auto bytes = pager_->edit(left);
    if (!bytes) return Failure(bytes.error());
    pager_->version().indexPage.next.set(*bytes, right);
  }
  if (right != 0) {
    auto page = read(right);
    if (!page) return Failure(page.error());
    auto bytes = pager_->edit(right);
    if (!bytes) return Failure(bytes.error());
    pager_->version().indexPage.previous.set(*bytes, left);
  }
  return {};
}

// --- removing ---

Result<void> IndexTree::remove(const IndexEntry& entry) {
  auto path = descend(entry.bytes);
  if (!path) return Failure(path.error());
  Visited& leaf = path->back();
  auto& entries = leaf.page.entries;
  if (leaf.child == entries.size() || entries[leaf.child].bytes != entry.bytes)
    return indexDamaged(leaf.number, "a row has no entry");
  entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(leaf.child));
  if (entries.empty() && path->size() > 1) return removeEmptyLeaf(*path, entry);
  if (auto done = write(leaf.number, leaf.page); !done) return done;
  return leaf.child == entries.size() ? lastChanged(*path, entry) : Result<void>();
}

// The node entry that named the removed one names the new last one. Up to the first node in which
// the page is not the tail child.
Result<void> IndexTree::lastChanged(Path& path, const IndexEntry& removed) {
  const Bytes last =
      path.back().page.entries.empty() ? Bytes() : path.back().page.entries.back().bytes;
  for (std::size_t i = path.size() - 1; i-- > 0;) {
    Visited& node = path[i];
    if (node.child == node.page.entries.size()) continue;
    IndexEntry& entry = node.page.entries[node.child];
    if (entry.bytes != removed.bytes || last.empty()) return {};
    // A longer key may not fit; the old one, though gone, still tells where to search.
    const Bytes old = std::exchange(entry.bytes, last);
    if (!node.page.fits(pager_->version())) {
      entry.bytes = old;
      return {};
    }
    return write(node.number, node.page);
  }
  return {};
}

Result<void> IndexTree::removeEmptyLeaf(Path& path, const IndexEntry& removed) {
  const Visited leaf = std::move(path.back());
  path.pop_back();
  Visited& parent = path.back();
  auto& entries = parent.page.entries;
  if (entries.empty()) {
    // The parent has no other child: the whole tree is simpler made anew.
    std::vector<std::uint32_t> pages;
    auto all = this->entries(SIZE_MAX, &pages);
    if (!all) return Failure(all.error());
    all->erase(std::remove_if(all->begin(), all->end(),
                              [&](const IndexEntry& e) { return e.bytes == removed.bytes; }),
               all->end());
    auto root = rebuild(*all, std::move(pages));
    return root ? Result<void>() : Failure(root.error());
  }
  if (auto done = setLinks(leaf.page.previous, leaf.page.next); !done) return done;
  if (parent.child < entries.size()) {
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(parent.child));
  } else {
    // The tail child is gone, so the last entry's child is the tail.
    parent.page.tail = entries.back().child;
    const IndexEntry newLast = entries.back();
    entries.pop_back();
    Path above = path;
    above.back().page.entries = {newLast};
    if (auto done = lastChanged(above, removed); !done) return done;
  }
  if (auto done = freePage(leaf.number); !done) return done;
  if (entries.empty() && path.size() == 1) return pullUpOnlyChild(parent);
  return write(parent.number, parent.page);
}

// The root has one child left and takes its place.
Result<void> IndexTree::pullUpOnlyChild(const Visited& root) {
  auto child = read(root.page.tail);
  if (!child) return Failure(child.error());
  if (auto done = write(root.number, *child); !done) return done;
  return freePage(root.page.tail);
}

// --- pages ---

Result<std::uint32_t> IndexTree::newPage() {
  auto number = PageAllocator(*pager_).allocate();
  if (!number) return number;
  UsageMapEditor map(*pager_, index_->pages, UsageMapEditor::Beyond::Absent,
                     [this] { return PageAllocator(*pager_).allocate(); });
  if (auto done = map.add(*number); !done) return Failure(done.error());
  return number;
}

Result<void> IndexTree::freePage(std::uint32_t number) {
  UsageMapEditor map(*pager_, index_->pages, UsageMapEditor::Beyond::Absent,
                     [this] { return PageAllocator(*pager_).allocate(); });
  if (auto done = map.remove(number); !done) return done;
  return PageAllocator(*pager_).release(number);
}

}  // namespace jet
