#include "jet/engine/Journal.h"

#include <gmock/gmock.h>

#include <random>

#include "base/OpenOutcome.h"
#include "jet/engine/JournalFormat.h"
#include "support/CrashFileSystem.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::Bytes;
using base::ErrorCode;
using jet::Journal;
using jet::PageImages;
using support::MemoryFileSystem;
using Outcome = Journal::Outcome;

constexpr std::size_t kPage = 4096;
const std::string kPath = "/daten/Verbrauch2024.kwd";

// A page with a data page's header and rows, so to speak; the same for the same number.
Bytes page(std::uint32_t number) {
  Bytes bytes(kPage);
  std::mt19937 random(number);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % 251);
  bytes[0] = bytes[1] = 1;
  return bytes;
}

Bytes pages(std::uint32_t count) {
  Bytes bytes;
  for (std::uint32_t i = 0; i < count; ++i) {
    const Bytes one = page(i);
    bytes.insert(bytes.end(), one.begin(), one.end());
  }
  return bytes;
}

// One row of a page changed: 60 bytes across the border of two sectors.
Bytes edited(Bytes image, std::uint8_t with) {
  std::fill(image.begin() + 1000, image.begin() + 1060, with);
  return image;
}

Bytes patched(Bytes file, const PageImages& changes) {
  for (const auto& [number, image] : changes) {
    const std::size_t at = number * kPage;
    if (file.size() < at + kPage) file.resize(at + kPage);
    std::copy(image.begin(), image.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  }
  return file;
}

class JournalTest : public testing::Test {
 protected:
  std::unique_ptr<base::File> open(base::FileSystem& files) {
    return std::move(*files.open(kPath, base::OpenMode::ReadWrite));
  }
  // What lies on the disk when the power fails after the journal was synced and before the pages
  // were written.
  MemoryFileSystem::Contents interrupted(const Bytes& before, const PageImages& changes) {
    support::CrashFileSystem disk({{kPath, before}});
    const auto file = open(disk);
    Journal journal(disk, kPath, kPage);
    EXPECT_EQ(journal.commit(*file, changes).outcome, Outcome::Stored);
    for (std::size_t moment = 0;; ++moment) {
      auto left = disk.survivor(
          moment, [](std::size_t) { return support::CrashFileSystem::Fate::Drop; }, 9, 0);
      MemoryFileSystem files(left);
      const auto reopened = open(files);
      const auto waiting = Journal(files, kPath, kPage).pending(*reopened);
      if (waiting && !waiting->empty()) return left;
    }
  }
  bool recover(MemoryFileSystem& files) {
    const auto file = open(files);
    const auto written = Journal(files, kPath, kPage).recover(*file);
    EXPECT_TRUE(written.has_value());
    EXPECT_FALSE(files.exists(kPath + "-journal"));
    return written.value_or(false);
  }
};

TEST_F(JournalTest, CommitPutsPagesInPlaceGrowsTheFileAndLeavesNothingBehind) {
  MemoryFileSystem files({{kPath, pages(6)}});
  const PageImages changes = {{2, edited(page(2), 7)}, {3, page(13)}, {6, page(6)}, {7, page(7)}};
  {
    const auto file = open(files);
    Journal journal(files, kPath, kPage);
    EXPECT_EQ(journal.commit(*file, changes).outcome, Outcome::Stored);
    EXPECT_TRUE(journal.pending(*file).value_or(PageImages()).empty());
  }
  EXPECT_EQ(files.get(kPath), patched(pages(6), changes));
  EXPECT_EQ(files.contents().size(), 1U);
}

TEST_F(JournalTest, RefusesPagesThatLeaveAGapOrHaveAnotherSizeOrChangedOnDisk) {
  MemoryFileSystem files({{kPath, pages(4)}});
  const auto file = open(files);
  Journal journal(files, kPath, kPage);
  EXPECT_EQ(journal.commit(*file, {{5, page(5)}}).result.error().code, ErrorCode::InvalidValue);
  EXPECT_EQ(journal.commit(*file, {{1, Bytes(100)}}).result.error().code, ErrorCode::InvalidValue);
  const auto changed = journal.commit(*file, {{1, page(9)}}, {{1, edited(page(1), 3)}});
  EXPECT_EQ(changed.outcome, Outcome::NotStored);
  EXPECT_EQ(changed.result.error().code, ErrorCode::ChangedOnDisk);
  EXPECT_EQ(changed.result.error().page, 1U);
  EXPECT_EQ(files.get(kPath), pages(4));
  EXPECT_EQ(journal.commit(*file, {{1, page(9)}}, {{1, page(1)}}).outcome, Outcome::Stored);
}

TEST_F(JournalTest, WaitingJournalIsShownToReadersAndCompletedByWriters) {
  const PageImages changes = {{1, edited(page(1), 7)}, {4, page(4)}};
  MemoryFileSystem files(interrupted(pages(4), changes));
  EXPECT_EQ(files.get(kPath), pages(4));
  {
    const auto reader = *files.open(kPath, base::OpenMode::Read);
    EXPECT_EQ(Journal(files, kPath, kPage).pending(*reader), changes);
  }
  EXPECT_EQ(files.get(kPath), pages(4));
  EXPECT_TRUE(recover(files));
  EXPECT_EQ(files.get(kPath), patched(pages(4), changes));
  EXPECT_FALSE(recover(files));
}

TEST_F(JournalTest, CompletingAndDiscardingForThoseWhoCopyFiles) {
  const PageImages changes = {{1, edited(page(1), 7)}};
  MemoryFileSystem first(interrupted(pages(4), changes));
  EXPECT_EQ(Journal::complete(first, kPath), true);
  EXPECT_EQ(first.contents(), (MemoryFileSystem::Contents{{kPath, patched(pages(4), changes)}}));
  EXPECT_EQ(Journal::complete(first, kPath), false);

  MemoryFileSystem second(interrupted(pages(4), changes));
  EXPECT_TRUE(Journal::discard(second, kPath));
  EXPECT_EQ(second.contents(), (MemoryFileSystem::Contents{{kPath, pages(4)}}));
  EXPECT_TRUE(Journal::discard(second, kPath));
}

TEST_F(JournalTest, RubbleInTheJournalIsDiscarded) {
  const auto left = interrupted(pages(4), {{1, page(9)}});
  const Bytes sound = left.at(kPath + "-journal");
  for (std::size_t at = 0; at < 2 * kPage; at += 37) {
    auto damaged = left;
    damaged[kPath + "-journal"][at] ^= 0x40;
    MemoryFileSystem files(damaged);
    EXPECT_FALSE(recover(files)) << "byte " << at;
    EXPECT_EQ(files.get(kPath), pages(4));
  }
  for (const std::size_t length : {std::size_t{0}, std::size_t{79}, std::size_t{8000}}) {
    auto cut = left;
    cut[kPath + "-journal"].resize(length);
    MemoryFileSystem files(cut);
    EXPECT_FALSE(recover(files)) << length;
  }
}

TEST_F(JournalTest, IsTakenBackOnlyWithItsOwnMark) {
  const PageImages changes = {{1, edited(page(1), 7)}, {4, page(4)}};
  const auto left = interrupted(pages(4), changes);
  auto placed = jet::undoMarkFor(left.at(kPath + "-journal"));
  for (const bool own : {true, false}) {
    if (!own) placed.mark.secondSum = std::uint64_t{1};  // of an earlier journal
    auto marked = left;
    std::memcpy(marked[kPath + "-journal"].data() + placed.offset, &placed.mark,
                sizeof(placed.mark));
    MemoryFileSystem files(marked);
    {
      const auto reader = *files.open(kPath, base::OpenMode::Read);
      const auto shown = Journal(files, kPath, kPage).pending(*reader);
      EXPECT_EQ(shown->at(1), own ? page(1) : changes.at(1));
    }
    EXPECT_TRUE(recover(files));
    EXPECT_EQ(files.get(kPath), own ? pages(4) : patched(pages(4), changes));
  }
}

// The household or another program has put something else in the place of the database.
TEST_F(JournalTest, IsNotAppliedToAFileThatWasReplacedOrEditedMeanwhile) {
  const Bytes before = patched(pages(8), {{3, edited(page(3), 5)}});
  const auto left = interrupted(before, {{3, edited(page(3), 7)}});
  Bytes otherRow = page(3);
  std::fill(otherRow.begin() + 3000, otherRow.begin() + 3100, std::uint8_t{1});
  Bytes refilled(kPage, 0x55);  // all rows are new, the page belongs to the same table
  std::copy_n(page(3).begin(), 14, refilled.begin());
  refilled[2] ^= 0x10;
  const std::map<std::string, Bytes> replacements = {
      {"another file of the same length", pages(9).size() ? Bytes(8 * kPage, 1) : Bytes()},
      {"a shorter one", pages(7)},
      {"a longer one", patched(before, {{8, page(8)}})},
      {"an older backup with the same row changed", patched(before, {{3, edited(page(3), 4)}})},
      {"a backup from before the row's first change", pages(8)},
      {"the same page with another row changed", patched(before, {{3, otherRow}})},
      {"the same page with all rows changed", patched(before, {{3, refilled}})},
      {"another page changed", patched(before, {{5, edited(page(5), 9)}})},
      {"the header page changed", patched(before, {{0, edited(page(0), 9)}})},
  };
  for (const auto& [what, content] : replacements) {
    MemoryFileSystem files(left);
    files.put(kPath, content);
    EXPECT_FALSE(recover(files)) << what;
    EXPECT_EQ(files.get(kPath), content) << what;
  }
}

TEST_F(JournalTest, IsAppliedToAPageThatACrashLeftInPieces) {
  const PageImages changes = {{3, edited(page(3), 7)}, {8, page(8)}};
  const auto left = interrupted(pages(8), changes);
  std::mt19937 random(1);
  for (int pass = 0; pass < 200; ++pass) {
    Bytes file = pages(8);
    for (std::size_t sector = 3 * kPage; sector < 4 * kPage; sector += 512) {
      const auto choice = random() % 4;
      for (std::size_t i = sector; i < sector + 512; ++i) {
        if (choice == 1) file[i] = changes.at(3)[i - 3 * kPage];
        if (choice == 2) file[i] = static_cast<std::uint8_t>(random());
        if (choice == 3) file[i] = 0xFF;
      }
    }
    file.resize(8 * kPage + (random() % std::size_t{9}) * 512);
    MemoryFileSystem files(left);
    files.put(kPath, file);
    EXPECT_TRUE(recover(files));
    EXPECT_EQ(files.get(kPath), patched(pages(8), changes));
  }
}

// A full disk shows when the new page is written; everything is brought back.
TEST_F(JournalTest, EveryFailingCallLeavesTheOldOrTheNewStateAndSaysWhich) {
  const PageImages changes = {{1, edited(page(1), 7)}, {3, page(13)}, {4, page(4)}};
  const Bytes after = patched(pages(4), changes);
  for (const bool forGood : {false, true}) {
    for (const bool shortWrite : {false, true}) {
      for (std::size_t call = 0;; ++call) {
        MemoryFileSystem files({{kPath, pages(4)}});
        support::FailingFileSystem failing(files);
        Journal::Commit commit;
        {
          const auto file = open(failing);
          Journal journal(failing, kPath, kPage);
          failing.arm({call, forGood, ErrorCode::NoSpace, shortWrite});
          commit = journal.commit(*file, changes);
          if (!failing.struck()) break;
          failing.disarm();
        }
        const std::string where = "call " + std::to_string(call) + (forGood ? " for good" : "");
        if (commit.outcome == Outcome::NotStored) {
          EXPECT_EQ(files.get(kPath), pages(4)) << where;
        }
        if (commit.outcome != Outcome::Stored) {
          ASSERT_FALSE(commit.result) << where;
          EXPECT_THAT(commit.result.error().file, testing::StartsWith("/daten")) << where;
        }
        const bool applied = recover(files);
        if (commit.outcome == Outcome::NotStored) {
          EXPECT_FALSE(applied) << where;
        }
        if (commit.outcome == Outcome::TakenBack) {
          EXPECT_EQ(files.get(kPath), pages(4)) << where;
        }
        EXPECT_EQ(commit.outcome == Outcome::Interrupted,
                  !commit.result && base::outcomeIsOpen(commit.result.error()))
            << where;
        if (commit.outcome == Outcome::Stored) {
          EXPECT_EQ(files.get(kPath), after) << where;
        }
        EXPECT_THAT(files.get(kPath), testing::AnyOf(pages(4), after)) << where;
        if (!forGood) {
          EXPECT_NE(commit.outcome, Outcome::Interrupted) << where;
        }
      }
    }
  }
}

}  // namespace
