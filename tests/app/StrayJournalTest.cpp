#include "app/StrayJournal.h"

#include "MidChange.h"
#include "app/YearFiles.h"

// A year that was killed in mid-change and renamed by hand.

namespace {

const std::string kOld = "/daten/Haushalt.kwd";
const std::string kNew = "/daten/Haus 2026.kwd";

std::string remark(base::FileSystem& files) {
  auto database = jet::Database::open(files, kNew);
  if (!database) return base::germanMessage(database.error());
  auto table = database->openTable("Strom");
  const auto value = table->value(5, *table->columnIndex("Anmerkungen"));
  const auto* text = std::get_if<std::string>(&*value);
  return text == nullptr ? std::string() : *text;
}

class RenamedYear : public testing::Test {
 protected:
  MidChange::Contents renamedAt(std::size_t moment) const {
    MidChange::Contents left = change.leftAt(moment);
    left[kNew] = left[kOld];
    left.erase(kOld);
    return left;
  }
  static std::string offered(const MidChange::Contents& contents) {
    support::MemoryFileSystem files(contents);
    std::string former = app::formerNameOf(files, "/daten/", "Haus 2026.kwd");
    EXPECT_EQ(files.contents(), contents);
    return former;
  }

  const MidChange change{kOld};
};

TEST_F(RenamedYear, IsOfferedItsChangeWheneverOneWaits) {
  int waiting = 0;
  for (std::size_t moment = 0; moment < change.moments(); ++moment) {
    support::MemoryFileSystem files(renamedAt(moment));
    const std::string former = offered(files.contents());
    if (former.empty()) continue;
    ++waiting;
    EXPECT_EQ(former, "Haushalt.kwd");
    ASSERT_TRUE(app::adoptWaitingChange(files, "/daten/", former, "Haus 2026.kwd"));
    EXPECT_EQ(remark(files), MidChange::kRemark) << moment;
    EXPECT_EQ(files.contents().size(), 1U);
  }
  EXPECT_GT(waiting, 1);
}

TEST_F(RenamedYear, IsNotOfferedTheChangeOfAnother) {
  for (std::size_t moment = 0; moment < change.moments(); ++moment) {
    const auto left = renamedAt(moment);
    auto edited = left;
    edited[kNew][2 * 4096 + 100] ^= 1;
    EXPECT_EQ(offered(edited), "") << "edited since, " << moment;
    auto there = left;
    there[kOld] = left.at(kNew);
    EXPECT_EQ(offered(there), "") << "the year of the old name is still there, " << moment;
    auto own = left;
    own[app::journalOf(kNew)] = {};
    EXPECT_EQ(offered(own), "") << "it has a journal of its own, " << moment;
  }
}

}  // namespace
