#include "readingbook/ReadingBook.h"

#include <gmock/gmock.h>

#include "support/MemoryFileSystem.h"

using readingbook::Entry;
using readingbook::ReadingBook;
using yearbook::Meter;

namespace {

base::Date day(const char* text) {
  return *base::parseDate(text);
}

std::string refusal(ReadingBook& book, Meter meter, const Entry& entry) {
  const auto added = book.add(meter, entry);
  return added ? "" : added.error().detail;
}

TEST(ReadingBook, RefusesWhatContradictsItsNeighboursAndKeepsTheRest) {
  ReadingBook book;
  EXPECT_EQ(refusal(book, Meter::Gas, {day("31.12.2024"), 10114000}), "");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("30.11.2025"), 11318000}), "");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("31.12.2025"), 11231000}),
            "Niedriger als der Stand davor (11.318 am 30.11.2025).");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("30.10.2025"), 11318001}),
            "Höher als der Stand danach (11.318 am 30.11.2025).");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("30.11.2025"), 11318000}),
            "Für diesen Tag ist schon ein Stand eingetragen (11.318 am 30.11.2025).");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("01.02.2025"), -1}),
            "Ein Zählerstand liegt zwischen 0 und 999.999.999.");
  EXPECT_NE(refusal(book, Meter::Gas, {day("01.02.2025"), 10200000, {}, "\u0416"}), "");
  EXPECT_EQ(book.of(Meter::Gas).size(), 2U);
  // Another meter has days of its own; the same reading twice is no fall.
  EXPECT_EQ(refusal(book, Meter::Day, {day("30.11.2025"), 1000}), "");
  EXPECT_EQ(refusal(book, Meter::Gas, {day("01.10.2025"), 11318000}), "");
}

TEST(ReadingBook, AMeterChangeMayFallButOnlyToItsNewStart) {
  ReadingBook book;
  EXPECT_EQ(refusal(book, Meter::Day, {day("31.05.2025"), 45585000}), "");
  EXPECT_EQ(refusal(book, Meter::Day, {day("31.07.2025"), 238000}),
            "Niedriger als der Stand davor (45.585 am 31.05.2025).");
  EXPECT_EQ(refusal(book, Meter::Day, {day("30.06.2025"), 45584000, 12000}),
            "Der Endstand des alten Zählers ist niedriger als der Stand davor (45.585 am "
            "31.05.2025).");
  EXPECT_EQ(refusal(book, Meter::Day, {day("30.06.2025"), 45808000, 12500, "neu"}), "");
  EXPECT_EQ(refusal(book, Meter::Day, {day("31.07.2025"), 12000}),
            "Niedriger als der Stand davor (12,5 am 30.06.2025).");
  EXPECT_EQ(refusal(book, Meter::Day, {day("31.07.2025"), 238000}), "");
  EXPECT_EQ(refusal(book, Meter::Day, {day("15.07.2025"), 200000, 239000}),
            "Der Anfang des neuen Zählers ist höher als der Stand danach (238 am 31.07.2025).");
}

TEST(ReadingBook, DatesFarFromTheYearAreRefused) {
  ReadingBook book;
  const readingbook::Days permitted{day("01.12.2024"), day("31.01.2026")};
  EXPECT_FALSE(book.add(Meter::Gas, {day("30.11.2024"), 1000}, permitted));
  EXPECT_TRUE(book.add(Meter::Gas, {day("01.12.2024"), 1000}, permitted));
  EXPECT_TRUE(book.add(Meter::Gas, {day("31.01.2026"), 1000}, permitted));
  const auto late = book.add(Meter::Gas, {day("01.02.2026"), 1000}, permitted);
  ASSERT_FALSE(late);
  EXPECT_EQ(late.error().detail,
            "Das Datum 01.02.2026 liegt außerhalb des Jahres (01.12.2024 bis 31.01.2026).");
}

TEST(ReadingBook, TheFileKeepsEveryEntryToTheByte) {
  ReadingBook book;
  ASSERT_TRUE(book.add(Meter::Gas, {day("28.02.2025"), 10580567, {}, "Heizung \"an\", früh"}));
  ASSERT_TRUE(book.add(Meter::Gas, {day("31.12.2024"), 10114000}));
  ASSERT_TRUE(book.add(Meter::Day, {day("28.02.2025"), 44855000, 12500, ""}));
  const std::string text = book.text();
  EXPECT_EQ(text,
            "\"Gas\",\"31.12.2024\",10114,\"Ablesung\",0,\"\"\r\n"
            "\"Strom\",\"28.02.2025\",44855,\"Zaehlerwechsel\",12.5,\"\"\r\n"
            "\"Gas\",\"28.02.2025\",10580.567,\"Ablesung\",0,\"Heizung \"\"an\"\", fr\xFCh\"\r\n");
  const ReadingBook again = ReadingBook::fromText(text);
  EXPECT_TRUE(again.kept().empty());
  for (Meter meter : yearbook::kMeters) EXPECT_EQ(again.of(meter), book.of(meter));
  EXPECT_EQ(again.text(), text);
}

TEST(ReadingBook, LinesThatDoNotCountStayInTheFile) {
  const ReadingBook book = ReadingBook::fromText(
      "strom , 1.3.2025 , 500 , ablesung\n"
      "Nachtstrom,31.03.2025,40\r\n"  // no kind
      "; mein Zettel\r\n"
      "\r\n"
      "\"Strom\",\"01.02.2025\",400,\"Ablesung\",0,\"\"\r\n"
      "\"Strom\",\"15.02.2025\",600,\"Ablesung\",0,\"\"\r\n"  // 500 follows in March
      "\"Strom\",\"31.02.2025\",450,\"Ablesung\",0,\"\"\r\n"
      "\"Strom\",\"01.04.2025\",1.2.3,\"Ablesung\",0,\"\"\r\n"
      "\"Strom\",\"01.05.2025\",700,\"Zählerwechsel\"\r\n"  // without a new start
      "\"Wasser\",\"01.05.2025\",70,\"Z\xE4hlerwechsel\",0,\"neu");
  EXPECT_EQ(book.of(Meter::Day),
            (std::vector<Entry>{{day("01.02.2025"), 400000}, {day("15.02.2025"), 600000}}));
  EXPECT_EQ(book.of(Meter::Water), (std::vector<Entry>{{day("01.05.2025"), 70000, 0, "neu"}}));
  ASSERT_EQ(book.kept().size(), 6U);
  EXPECT_EQ(book.kept()[1].bytes, "; mein Zettel");
  EXPECT_EQ(book.kept()[5].bytes, "strom , 1.3.2025 , 500 , ablesung");
  EXPECT_EQ(book.kept()[5].reason, "Niedriger als der Stand davor (600 am 15.02.2025).");
  const ReadingBook again = ReadingBook::fromText(book.text());
  EXPECT_EQ(again.text(), book.text());
  EXPECT_THAT(book.text(), testing::EndsWith("strom , 1.3.2025 , 500 , ablesung\r\n"));
}

TEST(ReadingBook, NumbersOfTheFileAreExact) {
  using readingbook::parseThousandths;
  EXPECT_EQ(parseThousandths("0", '.'), 0);
  EXPECT_EQ(parseThousandths("999999999.999", '.'), readingbook::kMostReading);
  EXPECT_EQ(parseThousandths("12,5", ','), 12500);
  EXPECT_EQ(parseThousandths("12.5000", '.'), 12500);
  for (const char* wrong : {"", "-1", ".5", "5.", "1e3", "12.5678", "1000000000", "12,5", " 1"})
    EXPECT_EQ(parseThousandths(wrong, '.'), std::nullopt) << wrong;
}

TEST(ReadingBook, LiesBesideItsYearAndIsEmptyWithoutAFile) {
  EXPECT_EQ(readingbook::bookPath("/daten/Verbrauch2025.kwd"),
            "/daten/Verbrauch2025_Ablesungen.dat");
  support::MemoryFileSystem disk;
  const auto book = readingbook::readBook(disk, "/daten/keins.dat");
  ASSERT_TRUE(book);
  EXPECT_TRUE(book->empty());
  EXPECT_FALSE(book->firstDay());
}

}  // namespace
