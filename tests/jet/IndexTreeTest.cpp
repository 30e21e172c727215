#include "jet/engine/IndexTree.h"

#include <random>
#include <set>

#include "OneIndexFile.h"
#include "jet/Database.h"
#include "jet/engine/UsageMap.h"

namespace {

using base::Bytes;
using jet::IndexEntry;
using jet::IndexPage;
using jet::IndexTree;

IndexEntry entryOf(const std::string& key, std::uint32_t row) {
  return IndexEntry::of(base::asBytes(key), {row / 200, static_cast<std::uint8_t>(row % 200)});
}

// The last byte of the page holds an entry, one more does not fit.
TEST(IndexPage, CanBeFilledExactly) {
  for (const auto* version : {&jet::format::kJet3, &jet::format::kJet4}) {
    IndexPage page;
    page.tableDef = 9;
    const std::size_t size = version->indexRoom() / 8;
    for (std::uint32_t i = 0; i < 8; ++i)
      page.entries.push_back(entryOf(static_cast<char>('a' + i) + std::string(size - 5, 'k'), i));
    ASSERT_TRUE(page.fits(*version));
    Bytes bytes(version->pageSize);
    page.encode(*version, bytes);
    EXPECT_EQ(version->indexPage.freeBytes.get(bytes), 0u);
    auto read = IndexPage::parse(*version, 3, bytes, 9);
    ASSERT_TRUE(read) << germanMessage(read.error());
    EXPECT_EQ(read->entries.back().bytes, page.entries.back().bytes);
    page.entries.back() = entryOf("h" + std::string(size - 4, 'k'), 7);
    EXPECT_FALSE(page.fits(*version));
  }
}

TEST(IndexPage, ComesBackAsItWasWritten) {
  for (const auto* version : {&jet::format::kJet3, &jet::format::kJet4}) {
    for (const bool leaf : {true, false}) {
      IndexPage page;
      page.leaf = leaf;
      page.level = leaf ? 0 : 1;
      page.tableDef = 9;
      page.previous = 4;
      page.next = 5;
      page.tail = leaf ? 0 : 6;
      // With a common start of all keys, more entries than would fit without cutting it off.
      for (std::uint32_t i = 0; i < 100; ++i) {
        page.entries.push_back(entryOf(std::string(40, 'k') + static_cast<char>(' ' + i), i));
        if (!leaf) page.entries.back().child = 1000 + i;
      }
      ASSERT_TRUE(page.fits(*version));
      Bytes bytes(version->pageSize, 0x55);
      page.encode(*version, bytes);
      auto read = IndexPage::parse(*version, 3, bytes, 9);
      ASSERT_TRUE(read) << germanMessage(read.error());
      ASSERT_EQ(read->entries.size(), page.entries.size());
      for (std::size_t i = 0; i < page.entries.size(); ++i) {
        EXPECT_EQ(read->entries[i].bytes, page.entries[i].bytes);
        EXPECT_EQ(read->entries[i].child, page.entries[i].child);
        EXPECT_EQ(read->entries[i].row().slot, i);
      }
      Bytes again(version->pageSize, 0xAA);
      read->encode(*version, again);
      EXPECT_EQ(again, bytes);
      EXPECT_EQ(IndexPage::parse(*version, 3, bytes, 8).error().page, 3u);
    }
  }
}

// The one index of a table of a new file, filled by hand: the rows do not matter to the tree.
class IndexTrees : public OneIndexFile {
 protected:
  IndexTree tree() { return IndexTree(*pager_, def_.page, def_.indexes[0]); }
  // The tree is whole, holds the model, and its list of pages names its pages.
  void expect(const std::set<Bytes>& model) {
    std::vector<std::uint32_t> pages;
    auto entries = tree().entries(model.size(), &pages);
    ASSERT_TRUE(entries) << germanMessage(entries.error());
    ASSERT_EQ(entries->size(), model.size());
    auto wanted = model.begin();
    for (const IndexEntry& entry : *entries) ASSERT_EQ(entry.bytes, *wanted++);
    std::sort(pages.begin(), pages.end());
    EXPECT_EQ(*jet::UsageMap(*pager_, def_.indexes[0].pages).pages(), pages);
  }
};

TEST_F(IndexTrees, GrowAndShrinkThroughManyLevels) {
  std::mt19937 random(5);
  std::set<Bytes> model;
  const auto randomEntry = [&] {
    const std::uint32_t number = random() % 4000;
    // Long keys make the tree deep with few entries.
    return entryOf(std::to_string(number) + std::string(300 + number % 400, 'x'), number);
  };
  std::size_t deepest = 0;
  for (int step = 0; step < 6000; ++step) {
    const bool growing = step % 3000 < 1800;
    const IndexEntry entry = randomEntry();
    if (model.count(entry.bytes) != 0) {
      if (growing && random() % 4 != 0) continue;
      auto done = tree().remove(entry);
      ASSERT_TRUE(done) << germanMessage(done.error());
      model.erase(entry.bytes);
    } else if (growing) {
      auto done = tree().insert(entry);
      ASSERT_TRUE(done) << germanMessage(done.error());
      model.insert(entry.bytes);
    }
    EXPECT_EQ(*tree().containsKey(entry.key()), model.count(entry.bytes) != 0);
    deepest = std::max<std::size_t>(deepest, (**pager_->page(def_.indexes[0].root))[26]);
    if (step % 500 == 499) expect(model);
  }
  EXPECT_GE(deepest, 3u);
  const std::uint32_t pages = pager_->pageCount();
  while (!model.empty()) {
    IndexEntry entry;
    entry.bytes = *std::next(model.begin(), static_cast<std::ptrdiff_t>(random() % model.size()));
    ASSERT_TRUE(tree().remove(entry));
    model.erase(entry.bytes);
  }
  expect(model);
  EXPECT_EQ(pager_->pageCount(), pages);
  ASSERT_TRUE(pager_->commit());
  pager_.reset();
  auto database = jet::Database::open(disk_, kPath);
  ASSERT_TRUE(database);
  EXPECT_TRUE(database->check().empty());
}

TEST_F(IndexTrees, ReuseThePagesThatTheyGaveBack) {
  for (int round = 0; round < 3; ++round) {
    const std::uint32_t before = pager_->pageCount();
    for (std::uint32_t i = 0; i < 300; ++i)
      ASSERT_TRUE(tree().insert(entryOf(std::string(200, 'a') + std::to_string(i), i)));
    for (std::uint32_t i = 0; i < 300; ++i)
      ASSERT_TRUE(tree().remove(entryOf(std::string(200, 'a') + std::to_string(i), i)));
    EXPECT_TRUE(round == 0 || pager_->pageCount() == before) << before;
  }
}

TEST_F(IndexTrees, RebuiltHoldTheSameEntries) {
  std::vector<IndexEntry> entries;
  std::set<Bytes> model;
  for (std::uint32_t i = 0; i < 3000; ++i) {
    entries.push_back(entryOf(std::to_string(1000000 + i) + std::string(i % 50, 'z'), i));
    model.insert(entries.back().bytes);
  }
  std::vector<std::uint32_t> pages = {def_.indexes[0].root};
  auto root = tree().rebuild(entries, pages);
  ASSERT_TRUE(root) << germanMessage(root.error());
  EXPECT_EQ(*root, def_.indexes[0].root);
  expect(model);
}

// Other programs leave leaves without entries in the tree; a key behind any number of them is
// found.
TEST_F(IndexTrees, FindKeysBehindEmptyLeaves) {
  constexpr std::uint32_t kLeaves = 40;
  std::vector<IndexEntry> entries;
  for (std::uint32_t i = 0; i < 3 * kLeaves; ++i)
    entries.push_back(entryOf(std::to_string(1000 + i) + std::string(1000, 'k'), i));
  ASSERT_TRUE(tree().rebuild(entries, {def_.indexes[0].root}));
  std::vector<std::uint32_t> pages;
  ASSERT_TRUE(tree().entries(entries.size(), &pages));
  const std::string first = std::to_string(1000) + std::string(1000, 'k');
  std::size_t emptied = 0;
  for (const std::uint32_t number : pages) {
    auto page = IndexPage::parse(pager_->version(), number, **pager_->page(number), def_.page);
    ASSERT_TRUE(page);
    // All leaves but the last, and the first entry of that is the first of all.
    if (!page->leaf) continue;
    if (page->next == 0)
      page->entries = {entryOf(first, 7)};
    else
      ++emptied, page->entries.clear();
    page->encode(pager_->version(), *pager_->edit(number));
  }
  EXPECT_GT(emptied, 30u);
  EXPECT_EQ(tree().containsKey(base::asBytes(first)), true);
  EXPECT_EQ(tree().containsKey(base::asBytes("0")), false);
}

TEST_F(IndexTrees, TellWhatIsMissingOrTwice) {
  ASSERT_TRUE(tree().insert(entryOf("b", 1)));
  EXPECT_EQ(tree().insert(entryOf("b", 1)).error().code, base::ErrorCode::IndexDamaged);
  EXPECT_EQ(tree().remove(entryOf("b", 2)).error().code, base::ErrorCode::IndexDamaged);
  EXPECT_TRUE(tree().insert(entryOf("b", 2)));
}

}  // namespace
