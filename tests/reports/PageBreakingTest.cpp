#include "reports/PageBreaking.h"

#include <gtest/gtest.h>

#include "support/SampleYears.h"

namespace {

using reports::breakIntoPages;
using reports::Grid;
using Pages = std::vector<std::vector<int>>;

// Rows of 100 twips with a text, so that none of them is blank.
Grid gridOf(int rows) {
  Grid grid(rows, 1);
  for (int row = 0; row < rows; ++row) {
    grid.row(row).height = 100;
    grid.cell(row, 0).value = "x";
  }
  return grid;
}

TEST(PageBreaking, FillsPagesToTheLastTwip) {
  EXPECT_EQ(breakIntoPages(gridOf(5), 200), Pages({{0, 1}, {2, 3}, {4}}));
  EXPECT_EQ(breakIntoPages(gridOf(4), 399), Pages({{0, 1, 2}, {3}}));
  EXPECT_EQ(breakIntoPages(gridOf(4), 400), Pages({{0, 1, 2, 3}}));
}

TEST(PageBreaking, RepeatsHeadRowsAndLeavesBlankRowsAtTheTopOut) {
  Grid grid = gridOf(6);
  grid.headRows = 1;
  grid.cell(3, 0).value = {};
  EXPECT_EQ(breakIntoPages(grid, 300), Pages({{0, 1, 2}, {0, 4, 5}}));
}

TEST(PageBreaking, KeepsABlockTogetherOrRepeatsItsHeading) {
  Grid grid = gridOf(6);
  for (int row = 3; row < 6; ++row) grid.row(row).headingRow = 2;
  EXPECT_EQ(breakIntoPages(grid, 600), Pages({{0, 1, 2, 3, 4, 5}}));
  EXPECT_EQ(breakIntoPages(grid, 599), Pages({{0, 1}, {2, 3, 4, 5}}));
  EXPECT_EQ(breakIntoPages(grid, 400), Pages({{0, 1}, {2, 3, 4, 5}}));
  EXPECT_EQ(breakIntoPages(grid, 300), Pages({{0, 1, 2}, {2, 3, 4}, {2, 5}}));
}

TEST(PageBreaking, DoesNotTearMergedRows) {
  Grid grid = gridOf(5);
  grid.merge({1, 0, 2, 0});
  EXPECT_EQ(breakIntoPages(grid, 200), Pages({{0}, {1, 2}, {3, 4}}));
}

TEST(PageBreaking, HiddenRowsTakeNoRoomAndTooHighRowsHaveAPageAlone) {
  Grid grid = gridOf(5);
  grid.row(1).hidden = true;
  grid.row(2).height = 900;
  EXPECT_EQ(breakIntoPages(grid, 200), Pages({{0}, {2}, {3, 4}}));
  EXPECT_EQ(breakIntoPages(Grid(0, 1), 200).size(), 1U);
}

TEST(PageBreaking, TheOverviewFitsOnePageAndTheDetailsTearNoMeter) {
  const int body = 16838 - 2 * 540 - 400;
  EXPECT_EQ(breakIntoPages(buildOverview(sample::overviewFlatRate()), body).size(), 1U);
  const Grid detail = buildDetailTable(sample::detail2025(), {true, true, true, true, true});
  const Pages pages = breakIntoPages(detail, body);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(detail.text(pages[1][2], 0), "Abwasser");
}

}  // namespace
