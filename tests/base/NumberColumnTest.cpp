#include "base/NumberColumn.h"

#include <gmock/gmock.h>

using base::parseNumberColumn;
using base::parsePastedColumn;
using testing::ElementsAre;

namespace {

using Cells = std::vector<std::string>;

TEST(NumberColumn, TheWholeColumnTellsGermanFromEnglish) {
  EXPECT_THAT(*parseNumberColumn({"10.354", "10.354,5"}), ElementsAre(10354, 10354.5));
  EXPECT_THAT(*parseNumberColumn({"10.354", "9.75"}), ElementsAre(10.354, 9.75));
  EXPECT_THAT(*parseNumberColumn({"10,354", "9,75"}), ElementsAre(10.354, 9.75));
  EXPECT_THAT(*parseNumberColumn({"10,354", "1,210,354.5"}), ElementsAre(10354, 1210354.5));
  EXPECT_THAT(*parseNumberColumn({"0.123", "1"}), ElementsAre(0.123, 1));
  // What can be both is German.
  EXPECT_THAT(*parseNumberColumn({"10.354", "11.000"}), ElementsAre(10354, 11000));
  EXPECT_THAT(*parseNumberColumn({"10,354"}), ElementsAre(10.354));
  EXPECT_THAT(*parseNumberColumn({" 5 ", "", "-3", "+4"}), ElementsAre(5, std::nullopt, -3, 4));
}

TEST(NumberColumn, NamesTheCellThatIsNoNumber) {
  for (const char* wrong : {"abc", "12 3", "1.23,4", "1,2,3", "12.", ",5", "1e3", "--1", "1.2.3"}) {
    const auto column = parseNumberColumn({"1", wrong, "x"});
    ASSERT_FALSE(column) << wrong;
    EXPECT_EQ(column.error().subject, "1");
    EXPECT_EQ(column.error().detail, "„" + std::string(wrong) + "“ ist keine Zahl");
  }
  // The one that does not fit the others.
  EXPECT_EQ(parseNumberColumn({"1.5", "2.75", "3,25", "4.5"}).error().subject, "2");
  EXPECT_EQ(parseNumberColumn({"1,5", "2.75", "3,25", "4,5"}).error().subject, "1");
}

TEST(PastedColumn, IsTakenWholeOrRefusedWithItsLine) {
  EXPECT_THAT(*parsePastedColumn("44600\r\n\r\n45.115,5\r\n\r\n", 3),
              ElementsAre(44600, std::nullopt, 45115.5));
  EXPECT_THAT(*parsePastedColumn("7", 1), ElementsAre(7));
  EXPECT_EQ(parsePastedColumn("1\n2\nzwei\n", 12).error().detail,
            "Zeile 3: „zwei“ ist keine Zahl.");
  EXPECT_EQ(parsePastedColumn("1\n2\t3\n", 12).error().detail, "Zeile 2 hat mehrere Spalten.");
  EXPECT_EQ(parsePastedColumn("1\n2\n3\n", 2).error().detail,
            "3 Werte, aber ab hier nur 2 Felder.");
}

}  // namespace
