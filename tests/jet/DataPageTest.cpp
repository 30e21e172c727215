#include "jet/engine/DataPage.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using base::Bytes;
using jet::DataPage;
using jet::DataPageEditor;
using jet::SlotState;

constexpr std::uint32_t kOwner = 77;

class DataPages : public testing::TestWithParam<const jet::format::Version*> {
 protected:
  const jet::format::Version& version() const { return *GetParam(); }
  Bytes page_ = Bytes(GetParam()->pageSize, 0xEE);
};
INSTANTIATE_TEST_SUITE_P(Jet, DataPages, testing::Values(&jet::format::kJet3, &jet::format::kJet4),
                         [](const auto& version) {
                           return std::string(version.param->name).substr(0, 3) +
                                  std::to_string(version.param->number + 3);
                         });

TEST_P(DataPages, StartEmptyWithAllRoomButTheHead) {
  DataPageEditor::format(version(), page_, kOwner);
  auto page = DataPage::parse(version(), 5, page_);
  ASSERT_TRUE(page);
  EXPECT_EQ(page->owner(), kOwner);
  EXPECT_EQ(page->slotCount(), 0u);
  EXPECT_EQ(page->freeBytes(), version().pageSize == 2048 ? 2038u : 4082u);
  EXPECT_EQ(page->storedFreeBytes(), page->freeBytes());
}

// Rows put in, resized, erased and put in again stay what they were, at their slots.
TEST_P(DataPages, KeepRowsAtTheirSlots) {
  struct Row {
    Bytes bytes;
    SlotState state;
  };
  std::vector<Row> model;
  DataPageEditor editor = DataPageEditor::format(version(), page_, kOwner);
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return std::size_t{random()} % limit; };
  for (int step = 0; step < 2000; ++step) {
    const std::size_t length = below(200);
    const Bytes row(length, static_cast<std::uint8_t>(step));
    const std::size_t slot = model.empty() ? 0 : below(model.size());
    const std::size_t kind = model.empty() ? 0 : below(4);
    if (kind == 0 && editor.hasRoomFor(length)) {
      const auto state = below(2) == 0 ? SlotState::Row : SlotState::Target;
      const std::size_t at = editor.insert(row, state);
      if (at == model.size()) model.push_back({});
      ASSERT_TRUE(model[at].bytes.empty());
      model[at] = {row, state};
    } else if (kind == 1 && model[slot].state != SlotState::Deleted &&
               length <= model[slot].bytes.size() + editor.freeBytes()) {
      editor.resize(slot, length);
      model[slot].bytes.resize(length);
    } else if (kind == 2 && model[slot].state != SlotState::Deleted) {
      editor.setState(slot, SlotState::Moved);
      model[slot].state = SlotState::Moved;
    } else if (kind == 3) {
      editor.erase(slot);
      model[slot] = {{}, SlotState::Deleted};
    }
    auto page = DataPage::parse(version(), 5, page_);
    ASSERT_TRUE(page && page->checkSlots());
    ASSERT_EQ(page->storedFreeBytes(), page->freeBytes());
    ASSERT_EQ(page->slotCount(), model.size());
    for (std::size_t i = 0; i < model.size(); ++i) {
      const base::ByteSpan bytes = page->bytes(*page->slot(i));
      ASSERT_EQ(Bytes(bytes.begin(), bytes.end()), model[i].bytes) << step << " " << i;
      ASSERT_EQ(page->slot(i)->state, model[i].state);
    }
  }
}

TEST_P(DataPages, RefuseSlotsThatContradictThePage) {
  DataPageEditor editor = DataPageEditor::format(version(), page_, kOwner);
  editor.insert(Bytes(10, 1), SlotState::Row);
  editor.insert(Bytes(10, 2), SlotState::Row);
  const std::size_t offsets = version().dataPage.headSize;
  const auto errorAfter = [&](std::size_t at, std::size_t value) {
    Bytes broken = page_;
    broken[at] = static_cast<std::uint8_t>(value);
    broken[at + 1] = static_cast<std::uint8_t>(value >> 8);
    auto page = DataPage::parse(version(), 5, broken);
    auto sound = page ? page->checkSlots() : base::Result<void>(base::Failure(page.error()));
    return sound ? std::optional<std::uint32_t>() : sound.error().page;
  };
  EXPECT_EQ(errorAfter(offsets, 3), 5u);                           // inside the head
  EXPECT_EQ(errorAfter(offsets, 0x1FFF), 5u);                      // behind the page
  EXPECT_EQ(errorAfter(offsets + 2, version().pageSize - 5), 5u);  // ascending
  EXPECT_EQ(errorAfter(offsets - 2, 0xFFFF), 5u);                  // more slots than fit
  EXPECT_EQ(errorAfter(0, 0x0102), 5u);                            // another kind of page
  EXPECT_FALSE(errorAfter(2, 0));                                  // free bytes are only a hint
}

}  // namespace
