#include <gmock/gmock.h>

#include <filesystem>

#include "readings/BaseFees.h"
#include "readings/MeterReading.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"
#include "support/TemporaryFolder.h"

using namespace readings;
using support::MemoryFileSystem;

namespace {

constexpr char kPath[] = "/daten/Jahr.dat";

class SideFiles : public testing::Test {
 protected:
  void put(const std::string& bytes) { files.put(kPath, base::asBytes(bytes)); }
  std::string bytes() const {
    const base::Bytes content = files.get(kPath);
    return {content.begin(), content.end()};
  }
  MeterChange changeIn(const std::string& content) {
    put(content);
    return readMeterChange(files, kPath);
  }
  MonthlyFees feesIn(const std::string& content) {
    put(content);
    return readBaseFees(files, kPath);
  }
  MemoryFileSystem files{{{"/daten/andere.dat", {}}}};
};

#ifndef _WIN32
TEST(SideFileRights, FollowTheYear) {
  const support::TemporaryFolder folder;
  const auto disk = base::makeDiskFileSystem();
  const std::string year = folder / "Mein_Haus.kwd";
  ASSERT_TRUE(disk->replaceFile(year, support::emptyYear()));
  using std::filesystem::perms;
  const perms own = perms::owner_read | perms::owner_write;
  std::filesystem::permissions(year, own);
  const base::FixedClock clock(std::chrono::year(2025) / 9 / 3);
  auto session = YearSession::open(*disk, year, folder / "", clock);
  ASSERT_TRUE(session);
  ASSERT_TRUE(takeOver(**session, Meter::Gas, {130}, {5, 120}));
  EXPECT_EQ(std::filesystem::status(folder / "Mein_Haus_WechselGas.dat").permissions(), own);
}
#endif

}  // namespace

TEST_F(SideFiles, AMeterChangeIsWrittenAsPositionAndStart) {
  const std::pair<MeterChange, const char*> cases[] = {
      {{3, 18250.5}, "3,18250.5\r\n"}, {{12, 0}, "12,0\r\n"},
      {{5, 120}, "5,120\r\n"},         {{0, 0.25}, "0,0.25\r\n"},
      {{7, 1234567}, "7,1234567\r\n"}, {{7, 12345678}, "7,12345680\r\n"}};
  for (const auto& [change, line] : cases) {
    EXPECT_EQ(meterChangeLine(change), line);
  }
}

TEST_F(SideFiles, AMeterChangeIsReadLeniently) {
  const MeterChange expected{3, 18250.5};
  for (const char* line : {"3,18250.5\r\n", "3,18250.5", " 3 , 18250.5 \n", "3,18250.5,9\r\nmehr"})
    EXPECT_EQ(changeIn(line), expected) << line;
  EXPECT_EQ(changeIn("0,.5\r\n"), (MeterChange{0, 0.5}));
  EXPECT_EQ(changeIn("12,0\r\n"), MeterChange());
  // The number in the file is a single one: its seven digits are not all of it.
  EXPECT_EQ(changeIn("1,123456.8\r\n"), (MeterChange{1, 123456.796875}));
}

TEST_F(SideFiles, AnythingElseIsNoMeterChange) {
  EXPECT_EQ(readMeterChange(files, kPath), MeterChange());
  for (const std::string& line :
       {std::string(), std::string("5"), std::string("5,"), std::string("13,7"),
        std::string("-1,7"), std::string("2.5,7"), std::string("fünf,7"),
        std::string("\"3\",\"7\""), std::string("PK\3\4\0\0\0", 7), std::string(1'000'000, '7'),
        "3," + std::string(1'000'000, '1'), std::string(2'000'000, ',')})
    EXPECT_EQ(changeIn(line), MeterChange()) << line.substr(0, 20);
}

TEST_F(SideFiles, BaseFeesAreWrittenInOneLine) {
  MonthlyFees fees{};
  std::fill_n(fees.begin(), 6, 10.5);
  fees[7] = -3;
  fees[8] = 7.91;
  put(baseFeeLine(fees));
  EXPECT_EQ(bytes(), "10.5,10.5,10.5,10.5,10.5,10.5,0,0,7.91,0,0,0\r\n");
  fees[7] = 0;
  EXPECT_EQ(readBaseFees(files, kPath), fees);
}

TEST_F(SideFiles, BaseFeesThatCannotBeReadAreZero) {
  EXPECT_EQ(readBaseFees(files, kPath), MonthlyFees());
  for (const std::string& line :
       {std::string(), std::string("PK\3\4\0\0\0", 7), std::string("\"1\",\"2\""),
        std::string(1'000'000, '1'), std::string(1'000'000, ',')})
    EXPECT_EQ(feesIn(line), MonthlyFees()) << line.substr(0, 20);
  EXPECT_EQ(feesIn("1,2.5,3"), (MonthlyFees{1, 2.5, 3}));
  EXPECT_EQ(feesIn("1,2,3,4,5,6,7,8,9,10,11,"), (MonthlyFees{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
  EXPECT_EQ(feesIn("1,2,3,4,5,6,x,8,9,10,11,12"),
            (MonthlyFees{1, 2, 3, 4, 5, 6, 0, 8, 9, 10, 11, 12}));
}

TEST_F(SideFiles, TheYearFeeIsTheExactSumOfTheAmountsAboveZero) {
  MonthlyFees fees{};
  fees.fill(7.91);
  EXPECT_EQ(yearFee(fees), base::Money::fromTenThousandths(949200));
  fees.fill(-1);
  fees[2] = 0.1;
  fees[9] = 0.2;
  EXPECT_EQ(yearFee(fees), base::Money::fromTenThousandths(3000));
  fees[0] = 1e15;
  EXPECT_FALSE(yearFee(fees));
}
