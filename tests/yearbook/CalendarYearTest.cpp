#include "yearbook/CalendarYear.h"

#include <gtest/gtest.h>

using yearbook::calendarYearOf;

TEST(CalendarYear, IsThatOfTheStartDateElseOfTheName) {
  EXPECT_EQ(calendarYearOf("1.7.2023", "/2019/Verbrauch2025.kwd"), 2023);
  EXPECT_EQ(calendarYearOf("", "/2019/Verbrauch2025.kwd"), 2025);
  EXPECT_EQ(calendarYearOf("31.02.2023", "Haus 3 2024-25.kwd"), 2024);
  EXPECT_EQ(calendarYearOf("", "Zähler 123451987.kwd"), 1987) << "what is no year is passed over";
  EXPECT_EQ(calendarYearOf("", "/2019/Verbrauch.kwd"), std::nullopt);
  EXPECT_EQ(calendarYearOf("", "204.kwd"), std::nullopt);
}
