#include "jet/engine/UsageMapEditor.h"

#include <random>
#include <set>

#include "OneIndexFile.h"
#include "jet/engine/PageAllocator.h"

namespace {

using jet::UsageMap;
using jet::UsageMapEditor;

// The list of pages of an index of a new file, and that of the free pages.
class UsageMaps : public OneIndexFile {
 protected:
  void SetUp() override {
    OneIndexFile::SetUp();
    map_ = def_.indexes[0].pages;
  }
  UsageMapEditor editor() {
    return UsageMapEditor(*pager_, map_, UsageMapEditor::Beyond::Absent,
                          [this] { return jet::PageAllocator(*pager_).allocate(); });
  }
  void grow(std::uint32_t pages) {
    while (pager_->pageCount() < pages) ASSERT_TRUE(pager_->append());
  }
  std::set<std::uint32_t> members() {
    auto pages = UsageMap(*pager_, map_).pages();
    EXPECT_TRUE(pages) << germanMessage(pages.error());
    return pages ? std::set(pages->begin(), pages->end()) : std::set<std::uint32_t>();
  }
  jet::format::UsageMapForm form() { return jet::UsageMapRow::read(*pager_, map_)->form(); }

  jet::RowPointer map_;
};

TEST_F(UsageMaps, HoldAnySetOfPagesInAnyForm) {
  grow(34000);
  std::mt19937 random(1);
  std::set<std::uint32_t> model = members();
  // First close together, then farther and farther apart.
  for (const std::uint32_t reach : {300u, 1500u, 30000u, 34000u}) {
    for (int step = 0; step < 300; ++step) {
      const std::uint32_t page = random() % reach;
      if (random() % 3 == 0) {
        ASSERT_TRUE(editor().remove(page));
        model.erase(page);
      } else {
        ASSERT_TRUE(editor().add(page));
        model.insert(page);
      }
    }
    ASSERT_EQ(members(), model) << reach;
  }
  EXPECT_EQ(form(), jet::format::UsageMapForm::Reference);
  EXPECT_FALSE(*UsageMap(*pager_, map_).contains(33999) && model.count(33999) == 0);
}

TEST_F(UsageMaps, FollowPagesThatLieFarFromTheStart) {
  grow(9100);
  for (const std::uint32_t page : members()) ASSERT_TRUE(editor().remove(page));
  for (const std::uint32_t page : {9000u, 9003u, 9099u}) ASSERT_TRUE(editor().add(page));
  EXPECT_EQ(members(), (std::set<std::uint32_t>{9000, 9003, 9099}));
  EXPECT_EQ(form(), jet::format::UsageMapForm::Inline);
}

TEST_F(UsageMaps, NamingAPageBehindTheEndAreReportedWithThatPage) {
  ASSERT_TRUE(editor().add(400));
  auto pages = UsageMap(*pager_, map_).pages();
  ASSERT_FALSE(pages);
  EXPECT_EQ(pages.error().code, base::ErrorCode::Truncated);
  EXPECT_EQ(pages.error().page, 400u);
}

// Another program keeps the length of the map of free pages and moves its start on. What lies
// before is in use for good, in whatever form the map goes on.
TEST_F(UsageMaps, OfFreePagesWhoseStartWasMovedOnHoldNoneBeforeIt) {
  grow(1400);
  const auto page = *pager_->edit(jet::kGlobalMap.page);
  auto rows = jet::DataPageEditor::open(pager_->version(), jet::kGlobalMap.page, page);
  const auto row = rows->bytes(jet::kGlobalMap.slot);
  constexpr std::size_t kHead = 5;
  std::fill(row.begin(), row.end(), std::uint8_t{0});
  JET_FIELD(jet::format::InlineMapHead, firstPage).set(row, 1000);
  std::fill(row.begin() + kHead + (1400 - 1000) / 8, row.end(), std::uint8_t{0xFF});

  const UsageMap global(*pager_, jet::kGlobalMap);
  const auto expectSound = [&] {
    for (const std::uint32_t used : {0u, 15u, 500u, 999u, 1000u, 1399u})
      EXPECT_FALSE(*global.contains(used, true)) << used;
    EXPECT_TRUE(*global.contains(pager_->pageCount(), true));
  };
  expectSound();
  ASSERT_TRUE(jet::PageAllocator(*pager_).release(500));
  for (const std::uint32_t used : {1400u, 5000u, 40000u}) {
    grow(used + 1);
    UsageMapEditor free(*pager_, jet::kGlobalMap, UsageMapEditor::Beyond::Present,
                        [this] { return pager_->append(); });
    ASSERT_TRUE(free.remove(used));
    EXPECT_FALSE(*global.contains(used, true)) << used;
    expectSound();
  }
  EXPECT_EQ(jet::UsageMapRow::read(*pager_, jet::kGlobalMap)->form(),
            jet::format::UsageMapForm::Reference);
}

// New pages are in use, pages given back are handed out again, however large the file is.
TEST_F(UsageMaps, OfFreePagesGrowWithTheFile) {
  const UsageMap global(*pager_, jet::kGlobalMap);
  jet::PageAllocator allocator(*pager_);
  for (const std::uint32_t size : {600u, 5000u, 33500u}) {
    grow(size);
    for (int i = 0; i < 5; ++i) {
      auto page = allocator.allocate();
      ASSERT_TRUE(page) << germanMessage(page.error());
      ASSERT_FALSE(*global.contains(*page, true)) << *page;
      (*pager_->edit(*page))[0] = 1;
    }
  }
  for (const std::uint32_t used : {0u, 1u, 2u, 15u, map_.page})
    EXPECT_FALSE(*global.contains(used, true)) << used;
  EXPECT_TRUE(*global.contains(pager_->pageCount(), true));
}

}  // namespace
