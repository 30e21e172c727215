#include <gtest/gtest.h>

#include "base/CsvRecord.h"
#include "base/DateText.h"
#include "base/GermanDate.h"
#include "base/GermanNumber.h"
#include "base/Money.h"
#include "base/TextCodec.h"

namespace {

using base::Money;

TEST(Money, RoundsHalfToEvenOnceToFourDecimals) {
  EXPECT_EQ(Money::roundHalfEven(0.03125).tenThousandths(), 312);
  EXPECT_EQ(Money::roundHalfEven(0.09375).tenThousandths(), 938);
  EXPECT_EQ(Money::roundHalfEven(-0.03125).tenThousandths(), -312);
  EXPECT_EQ(Money::roundHalfEven(299 * 30.40 / 100).tenThousandths(), 908960);
  EXPECT_FALSE(Money::tryRoundHalfEven(1e15));
  EXPECT_FALSE(Money::tryRoundHalfEven(0.0 / 0.0 * 1));
}

TEST(Money, IsShownWithCentsRoundedAwayFromZero) {
  const auto shown = [](std::int64_t count) {
    return formatMoney(Money::fromTenThousandths(count));
  };
  EXPECT_EQ(shown(5969250), "596,93");
  EXPECT_EQ(shown(-84850), "-8,49");
  EXPECT_EQ(shown(500), "0,05");
  EXPECT_EQ(shown(-500), "-0,05");
  EXPECT_EQ(shown(-49), "0,00");
  EXPECT_EQ(shown(9999950), "1.000,00");
  EXPECT_EQ(shown(12345678900), "1.234.567,89");
  EXPECT_EQ(shown(INT64_MIN), "-922.337.203.685.477,58");
}

TEST(GermanNumber, ReadsWhatAHouseholdTypes) {
  const std::pair<const char*, double> accepted[] = {{"4", 4},
                                                     {"4,0", 4},
                                                     {"1.234,5", 1234.5},
                                                     {" -3 ", -3},
                                                     {"12.5", 12.5},
                                                     {"1.234", 1234},
                                                     {"0.125", .125},
                                                     {",5", .5},
                                                     {"1234.567", 1234.567},
                                                     {"12.345.678", 12345678},
                                                     {"5,", 5}};
  for (const auto& [text, value] : accepted) EXPECT_EQ(base::parseNumber(text), value) << text;
  for (const char* text : {"", " ", ",", "-", "abc", "1,2,3", "1.2.3", "12.34,5", "1,234.5", "1e5",
                           "0x10", "--1", "1 000", "nan", "inf"})
    EXPECT_FALSE(base::parseNumber(text)) << text;
}

TEST(GermanNumber, IsWrittenWithGroupsAndComma) {
  EXPECT_EQ(base::formatNumber(41236, 0), "41.236");
  EXPECT_EQ(base::formatNumber(2.675, 2), "2,68");
  EXPECT_EQ(base::formatNumber(-0.001, 2), "0,00");
  EXPECT_EQ(base::formatNumber(999.995, 2), "1.000,00");
  EXPECT_EQ(base::formatShort(7.5), "7,5");
  EXPECT_EQ(base::formatShort(19), "19");
  EXPECT_EQ(base::formatShort(10.483), "10,483");
}

TEST(GermanDate, AcceptsOnlyDaysOfTheCalendar) {
  using namespace std::chrono;
  EXPECT_EQ(base::parseDate("1.1.2010"), year(2010) / 1 / 1);
  EXPECT_EQ(base::parseDate("29.02.2012"), year(2012) / 2 / 29);
  EXPECT_EQ(base::parseDate("31.12.09"), year(2009) / 12 / 31);
  for (const char* text : {"31.02.2010", "1.13.2010", "", "1.1", "1.1.", "01012010", "1.1.2010.",
                           "a.b.c", "1.1.99999", "-1.1.2010", "0.1.2010"})
    EXPECT_FALSE(base::parseDate(text)) << text;
  // As it is typed, not as it stands in a file.
  for (const char* text : {"01,01,2026", "1.1,26", "01012026", " 010126 "})
    EXPECT_EQ(base::parseTypedDate(text), year(2026) / 1 / 1) << text;
  for (const char* text :
       {"31022026", "0101202", "1012026", "1,1", "2026", "-1012026", "01.012026"})
    EXPECT_FALSE(base::parseTypedDate(text)) << text;
  EXPECT_EQ(base::formatLongDate(year(2026) / 11 / 14), "14 November, 2026");
  EXPECT_EQ(base::daysBetween(year(2010) / 1 / 1, year(2010) / 12 / 31), 364);
}

TEST(Records, HaveTheBytesOfTheSideFiles) {
  EXPECT_EQ(base::RecordWriter().number(3).number(18250.5F).line(), "3,18250.5\r\n");
  EXPECT_EQ(base::RecordWriter().number(12).number(0.0F).line(), "12,0\r\n");
  EXPECT_EQ(base::RecordWriter().number(7.91).number(10.5).number(0.1 + 0.2).line(),
            "7.91,10.5,0.3\r\n");
  EXPECT_EQ(base::RecordWriter().number(1234567.0F).line(), "1234567\r\n");
  EXPECT_EQ(base::RecordWriter().text("D:\\Zähler\\").line(), "\"D:\\Z\xE4hler\\\"\r\n");
  EXPECT_EQ(base::RecordWriter().boolean(true).line(), "#TRUE#\r\n");
}

TEST(Records, AreReadLeniently) {
  const base::RecordReader half(".5, 0.5 ,7");
  EXPECT_EQ(half.number(0), 0.5);
  EXPECT_EQ(half.number(1), 0.5);
  EXPECT_EQ(half.number(2), 7);
  EXPECT_FALSE(half.number(3));
  EXPECT_EQ(base::RecordReader("\"D:\\a, b\\\"\r\n").text(0), "D:\\a, b\\");
  EXPECT_EQ(base::RecordReader(" #true# ").boolean(0), true);
  EXPECT_EQ(base::RecordReader("#FALSE#\n").boolean(0), false);
  EXPECT_FALSE(base::RecordReader("").number(0));
  EXPECT_EQ(base::RecordReader(std::string(1000000, '9')).size(), 0U);
}

TEST(TextCodec, EveryByteOfTheCodePageSurvivesTheRoundTrip) {
  std::string all;
  for (int i = 1; i < 256; ++i) all += static_cast<char>(i);
  EXPECT_EQ(base::toWindows1252(base::fromWindows1252(all)), all);
  EXPECT_EQ(base::fromWindows1252("\x80 M\xE4rz"), "€ März");
  EXPECT_EQ(base::toWindows1252("→"), "?");
}

TEST(TextCodec, MalformedUtf8BecomesTheReplacementCharacter) {
  for (const char* text :
       {"\xC3", "\xE2\x82", "\xFF", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80"})
    EXPECT_EQ(base::toUtf32(text)[0], 0xFFFDU);
  EXPECT_EQ(base::fromUtf16(base::toUtf16("aä€😀")), "aä€😀");
}

}  // namespace
