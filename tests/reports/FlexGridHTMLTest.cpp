#include "reports/FlexGridHTML.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "support/Golden.h"
#include "support/SampleYears.h"
#include "support/TemporaryFolder.h"

namespace {

using reports::Alignment;
using reports::DataType;
using reports::FlexGridHTML;
using reports::Grid;
using testing::HasSubstr;
using testing::Not;

std::string page(const Grid& grid) {
  return FlexGridHTML::page(grid, reports::plainScreen());
}

// The line of the first cell whose text is that.
std::string cellLine(const Grid& grid, const std::string& text) {
  std::istringstream lines(page(grid));
  for (std::string line; std::getline(lines, line);)
    if (line.find(">" + text + "<") != std::string::npos) return line.substr(0, line.size() - 1);
  return {};
}

// The approved pages were looked at in a browser. The heading row's navy is written as the colour
// of system colour 0: in the grid's byte order navy begins with the digit by which system colours
// are told.
TEST(FlexGridHTML, OverviewPagesAreAsApproved) {
  EXPECT_TRUE(matchesGolden("overview-2024.html", page(buildOverview(sample::overview2024()))));
  EXPECT_TRUE(matchesGolden("overview-2025.html", page(buildOverview(sample::overview2025()))));
  EXPECT_TRUE(matchesGolden("overview-fresh.html", page(buildOverview(sample::overviewFresh()))));
  EXPECT_TRUE(
      matchesGolden("overview-flatrate.html", page(buildOverview(sample::overviewFlatRate()))));
}

TEST(FlexGridHTML, DetailedTableIsAsApproved) {
  const Grid grid = buildDetailTable(sample::detail2025(), {true, true, true, true, true});
  EXPECT_TRUE(matchesGolden("detail-2025.html", page(grid)));
}

TEST(FlexGridHTML, FrameOfThePageHasItsExactBytes) {
  Grid grid(1, 1);
  grid.column(0).width = 1500;
  grid.cell(0, 0).value = "m³ & <Müll> 日 €";
  EXPECT_EQ(page(grid),
            "<HTML>\r\n<HEAD>\r\n"
            "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html;charset=windows-1252\">\r\n"
            "<META NAME=\"Generator\" CONTENT=\"VSFlexGrid Pro\">\r\n"
            "<TITLE>VSFlexGrid Pro</TITLE>\r\n</HEAD>\r\n<BODY>\r\n\r\n\r\n"
            "<FONT FACE=\"Arial\" SIZE=1>\r\n"
            "<TABLE BORDER CELLSPACING=0 CELLPADDING=2 VALIGN=CENTER BGCOLOR=\"#FFFFFF\""
            " BORDERCOLOR=\"#C0C0C0\" WIDTH=130>\r\n\r\n"
            "<TR>\r\n"
            "<TD WIDTH=\"100%\">m\xB3 &amp; &lt;M\xFCll&gt; ? \x80</TD>\r\n"
            "</TR>\r\n"
            "</TABLE>\r\n\r\n</BODY>\r\n</HTML>\r\n\r\n\r\n");
}

TEST(FlexGridHTML, MergedCellsNameOneSpanAndCoverTheRest) {
  Grid grid(4, 4);
  grid.merge({0, 0, 0, 3});
  grid.merge({1, 0, 2, 0});
  grid.merge({1, 1, 2, 2});
  grid.cell(0, 0).value = "quer";
  grid.cell(1, 0).value = "hoch";
  grid.cell(1, 1).value = "beides";
  grid.cell(2, 2).value = "verdeckt";
  EXPECT_EQ(cellLine(grid, "quer"), "<TD WIDTH=\"100%\" COLSPAN=4>quer</TD>");
  EXPECT_EQ(cellLine(grid, "hoch"), "<TD WIDTH=\"25%\" ROWSPAN=2>hoch</TD>");
  EXPECT_EQ(cellLine(grid, "beides"), "<TD WIDTH=\"50%\" ROWSPAN=2>beides</TD>");
  EXPECT_THAT(page(grid), Not(HasSubstr("verdeckt")));
}

TEST(FlexGridHTML, HiddenRowsAndColumnsAreLeftOutButCountInTheWidth) {
  Grid grid(3, 3);
  grid.cell(0, 0).value = "a";
  grid.cell(1, 0).value = "b";
  grid.cell(2, 0).value = "c";
  grid.cell(0, 1).value = "d";
  grid.cell(0, 2).value = "e";
  grid.row(1).hidden = true;
  grid.row(2).height = 0;
  grid.column(1).hidden = true;
  grid.column(2).width = 0;
  const std::string html = page(grid);
  EXPECT_EQ(cellLine(grid, "a"), "<TD WIDTH=\"50%\">a</TD>");
  for (const char* text : {">b<", ">c<", ">d<", ">e<"}) EXPECT_THAT(html, Not(HasSubstr(text)));
  grid.controlWidth = 3840;
  EXPECT_EQ(cellLine(grid, "a"), "<TD WIDTH=\"25%\">a</TD>");
}

TEST(FlexGridHTML, WidthBelowHalfAPercentHasNoDigit) {
  Grid grid(1, 2);
  grid.column(0).width = 30;
  grid.column(1).width = 30000;
  grid.cell(0, 0).value = "x";
  EXPECT_EQ(cellLine(grid, "x"), "<TD WIDTH=\"%\">x</TD>");
}

TEST(FlexGridHTML, AlignmentComesFromTheColumn) {
  Grid grid(1, 1);
  grid.cell(0, 0).value = "x";
  grid.cell(0, 0).placed = Alignment::CenterCenter;
  const std::pair<Alignment, const char*> cases[] = {
      {Alignment::LeftTop, " VALIGN=TOP"},
      {Alignment::LeftCenter, ""},
      {Alignment::LeftBottom, " VALIGN=BOTTOM"},
      {Alignment::CenterTop, " ALIGN=CENTER VALIGN=TOP"},
      {Alignment::CenterCenter, " ALIGN=CENTER"},
      {Alignment::CenterBottom, " ALIGN=CENTER VALIGN=BOTTOM"},
      {Alignment::RightTop, " ALIGN=RIGHT VALIGN=TOP"},
      {Alignment::RightCenter, " ALIGN=RIGHT"},
      {Alignment::RightBottom, " ALIGN=RIGHT VALIGN=BOTTOM"},
      {Alignment::General, ""}};
  for (const auto& [alignment, attribute] : cases) {
    grid.column(0).alignment = alignment;
    EXPECT_EQ(cellLine(grid, "x"), std::string("<TD WIDTH=\"100%\"") + attribute + ">x</TD>");
  }
}

TEST(FlexGridHTML, GeneralAlignmentGoesByTypeAndNumberTest) {
  Grid grid(2, 1);
  const auto attributeOf = [&](const char* text, DataType type) {
    grid.cell(0, 0).value = text;
    grid.column(0).type = type;
    const std::string html = page(grid);
    const std::size_t at = html.find("<TD WIDTH=\"100%\"") + 16;
    return html.substr(at, html.find('>', at) - at);
  };
  EXPECT_EQ(attributeOf("12,5", DataType::Number), " ALIGN=RIGHT");
  EXPECT_EQ(attributeOf("", DataType::Text), " ALIGN=RIGHT");
  EXPECT_EQ(attributeOf("-12,5", DataType::Number), "");
  EXPECT_EQ(attributeOf("12", DataType::Date), "");
  EXPECT_EQ(attributeOf("ja", DataType::Boolean), " ALIGN=CENTER");
}

TEST(FlexGridHTML, BooleanColumnsShowYOutsideFixedRows) {
  Grid grid(3, 1);
  grid.fixedRows = 1;
  grid.column(0).type = DataType::Boolean;
  grid.cell(0, 0).value = "Kopf";
  grid.cell(1, 0).value = "-1";
  grid.cell(2, 0).value = "0";
  const std::string html = page(grid);
  EXPECT_THAT(html, HasSubstr(">Kopf</FONT></TD>"));
  EXPECT_THAT(html, HasSubstr("<TD WIDTH=\"100%\" ALIGN=CENTER>Y</TD>"));
  EXPECT_THAT(html, HasSubstr("<TD WIDTH=\"100%\" ALIGN=CENTER>&nbsp;</TD>"));
}

TEST(FlexGridHTML, ColoursFontsAndTagsStandInTheirOrder) {
  Grid grid(2, 2);
  grid.fixedColumns = 1;
  grid.cell(0, 0).value = "fest";
  reports::Cell& own = grid.cell(0, 1);
  own.value = "eigen";
  own.back = reports::rgb(255, 255, 192);
  own.fore = reports::rgb(255, 0, 0);
  own.fontName = "Courier";
  own.bold = own.italic = own.underline = true;
  grid.column(1).alignment = Alignment::RightCenter;
  grid.cell(1, 1).value = "grid";
  grid.cell(1, 1).fontName = "Arial";
  EXPECT_EQ(cellLine(grid, "fest"),
            "<TD WIDTH=\"50%\" BGCOLOR=\"#F0F0F0\" BORDERCOLOR=\"#A0A0A0\">"
            "<FONT COLOR=\"#000000\">fest</FONT></TD>");
  EXPECT_EQ(cellLine(grid, "eigen"),
            "<TD WIDTH=\"50%\" BGCOLOR=\"#FFFFC0\" ALIGN=RIGHT>"
            "<FONT FACE=\"Courier\" COLOR=\"#FF0000\"><B><I><U>eigen</B></I></U></FONT></TD>");
  EXPECT_EQ(cellLine(grid, "grid"), "<TD WIDTH=\"50%\" ALIGN=RIGHT>grid</TD>");
}

TEST(FlexGridHTML, SubtotalsAreIndentedByTheirLevel) {
  Grid grid(2, 2);
  grid.outlineBar = true;
  grid.outlineColumn = 1;
  grid.row(1).subtotal = true;
  grid.row(1).outlineLevel = 2;
  for (const int row : {0, 1})
    for (const int column : {0, 1}) grid.cell(row, column).value = "t";
  const std::string html = page(grid);
  EXPECT_THAT(html,
              HasSubstr(">&nbsp&nbsp&nbsp&nbsp&nbsp&nbsp&nbsp&nbspt</TD>\r\n</TR>\r\n</TABLE>"));
  EXPECT_EQ(html.find("&nbsp&nbsp"), html.rfind("&nbsp&nbsp&nbsp&nbsp&nbsp&nbsp&nbsp&nbsp"));
}

TEST(FlexGridHTML, ColoursAreTurnedRoundAndSystemColoursLookedUp) {
  const reports::HtmlScreen screen{15, [](int index) -> reports::CellColor {
                                     if (index == 15) return 0x123456;
                                     if (index == 0) return 0xA;
                                     return 0;
                                   }};
  const auto html = [&](reports::CellColor color) {
    return FlexGridHTML::colorToHtml(color, screen);
  };
  EXPECT_EQ(html(0x0000FF), "\"#FF0000\"");
  EXPECT_EQ(html(0xFF0000), "\"#0000FF\"");
  EXPECT_EQ(html(0xA), "\"#0A0000\"");
  EXPECT_EQ(html(0x8000000F), "\"#563412\"");
  // Navy begins with 8 and is looked up like a system colour.
  EXPECT_EQ(html(0x800000), "\"#0A0000\"");
  EXPECT_EQ(html(0x8), "\"#0A0000\"");
  EXPECT_EQ(html(0x80FFFFFF), "\"#000000\"");
}

TEST(FlexGridHTML, NumberTestKnowsDigitsCommasAndOnePoint) {
  for (const char* text : {"", "  ", "12", " 1,234.50 ", ",,", "."})
    EXPECT_TRUE(FlexGridHTML::isNumber(text)) << text;
  for (const char* text : {"-5", "5-", "+5", "1.2.3", "1 2", "12 €", "a"})
    EXPECT_FALSE(FlexGridHTML::isNumber(text)) << text;
}

TEST(FlexGridHTML, ReplaceAllGoesOnBehindTheStartOfEachFindAndEnds) {
  const auto replaced = [](std::string text, const char* find, const char* replacement) {
    FlexGridHTML::replaceAll(text, find, replacement);
    return text;
  };
  EXPECT_EQ(replaced("a&b&&", "&", "&amp;"), "a&amp;b&amp;&amp;");
  EXPECT_EQ(replaced("abc", "", "x"), "abc");
  EXPECT_EQ(replaced("aaaa", "aa", "a"), "aa");
  EXPECT_EQ(replaced("aab", "ab", "b"), "ab");
  EXPECT_EQ(replaced("&&", "&", ""), "&");
  EXPECT_EQ(replaced("aa", "a", "ba"), "baba");
  EXPECT_EQ(replaced("xx", "x", "xxx"), "xxxxxx");
}

TEST(FlexGridHTML, WriterTellsWhetherTheFileCouldBeOpened) {
  const support::TemporaryFolder folder;
  const auto files = base::makeDiskFileSystem();
  const Grid grid = buildOverview(sample::overview2024());
  const std::string path = folder / "Verbrauchsabrechnung 11.html";
  std::ofstream(path, std::ios::binary) << std::string(100000, 'x');
  ASSERT_TRUE(FlexGridHTML::write(grid, path, *files, reports::plainScreen()));
  EXPECT_EQ(files->readText(path), page(grid));
  EXPECT_FALSE(FlexGridHTML::write(grid, folder / "fehlt/x.html", *files, reports::plainScreen()));
}

}  // namespace
