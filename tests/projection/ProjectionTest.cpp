#include "projection/Projection.h"

#include <gtest/gtest.h>

namespace {

using projection::project;
using projection::ProjectionInput;

base::Date date(const char* text) {
  return *base::parseDate(text);
}

ProjectionInput sampleInput() {
  ProjectionInput input;
  input.startDate = "01.01.2024";
  input.readingDate = "30.06.2024";
  input.consumption = 1542;
  input.unitPrice = 29.6;
  input.vatRate = 19;
  input.baseFee = base::Money::roundHalfEven(154.8);
  input.startMonth = "Januar";
  return input;
}

struct DaysCase {
  const char* start;
  const char* reading;
  int days;
};

TEST(Projection, CountsDaysInAYearOf365) {
  const DaysCase cases[] = {
      {"15.03.2010", "15.03.2010", 0},
      {"01.01.2010", "31.12.2010", 364},
      {"01.01.2010", "01.01.2010", 0},
      {"01.01.2010", "20.12.2009", -12},
      {"01.01.2010", "01.06.2012", 365},
      {"15.03.2010", "01.06.2012", 365},
      {"15.03.2010", "14.03.2011", 364},
      {"15.03.2010", "15.06.2010", 92},
      {"15.03.2010", "01.03.2010", -14},
      // Until 28.02.2013 there are 365 days, though the year from 29.02.2012 has 366.
      {"29.02.2012", "28.02.2013", 365},
      {"29.02.2012", "29.02.2012", 0},
      // 2024 has a 29 February between: the first day of such a year counts as day -1.
      {"01.02.2024", "01.02.2024", -1},
      {"01.01.2024", "31.12.2024", 365}};
  for (const DaysCase& c : cases)
    EXPECT_EQ(projection::daysSoFar(date(c.start), date(c.reading)), c.days)
        << c.start << " to " << c.reading;
}

TEST(Projection, PricesTheAverageDayFor365Days) {
  const auto outcome = project(sampleInput());
  ASSERT_TRUE(outcome.figures);
  EXPECT_TRUE(outcome.message.empty());
  EXPECT_EQ(outcome.figures->days, 181);
  // Single precision at this step.
  EXPECT_EQ(outcome.figures->averagePerDay, 8.519337F);
  EXPECT_NEAR(outcome.figures->pricePerDay, 2.521724, 1e-6);
  EXPECT_NEAR(outcome.figures->netYear, 920.4292, 1e-3);
  EXPECT_DOUBLE_EQ(outcome.figures->grossYear, outcome.figures->netYear * 1.19);
  EXPECT_FALSE(outcome.figures->grossWithBaseFee);
}

TEST(Projection, GrossBaseFeeIsRoundedAsMoneyAndAdded) {
  ProjectionInput input = sampleInput();
  input.addBaseFee = true;
  input.baseFee = base::Money::fromTenThousandths(1234567);
  const auto figures = *project(input).figures;
  EXPECT_DOUBLE_EQ(*figures.grossWithBaseFee, figures.grossYear + 146.9135);
}

TEST(Projection, WithoutDaysNothingIsInfinite) {
  ProjectionInput input = sampleInput();
  input.readingDate = input.startDate;
  input.addBaseFee = true;
  for (const std::optional<double> consumption : {std::optional(0.0), std::optional(1500.0)}) {
    input.consumption = consumption;
    const auto figures = *project(input).figures;
    EXPECT_EQ(figures.days, 0);
    EXPECT_EQ(figures.averagePerDay, 0.0F);
    EXPECT_EQ(figures.grossYear, 0.0);
    EXPECT_DOUBLE_EQ(*figures.grossWithBaseFee, 184.212);
  }
  input.readingDate = "02.01.2024";
  input.consumption = 1e300;
  EXPECT_EQ(project(input).figures->netYear, 0.0);
}

TEST(Projection, EmptyFieldsCountAsZero) {
  ProjectionInput input = sampleInput();
  input.unitPrice.reset();
  EXPECT_EQ(project(input).figures->grossYear, 0.0);
  input.consumption.reset();
  EXPECT_EQ(project(input).figures->averagePerDay, 0.0F);
}

TEST(Projection, WrongDatesAndMonthsAreExplained) {
  ProjectionInput input = sampleInput();
  input.startMonth = "April";
  EXPECT_EQ(project(input).message,
            "Der Startmonat April stimmt nicht mit dem Monat des Start-Datums  Januar (für die "
            "Hochrechnung) überein! \nPassen Sie entweder  das Start-Datum oder den Startmonat "
            "entsprechend an.");
  EXPECT_TRUE(project(input).startMonthDiffers);
  for (const char* wrong : {"", "31.02.2010", "1.1", "morgen"}) {
    input.readingDate = wrong;
    EXPECT_EQ(project(input).message,
              "Datum Ablesung ungültige Datumseingabe! Bitte geben Sie ein gültiges Datum ein.\n"
              "Beispiel:  01.01.2009");
  }
  input.startDate = "x";
  EXPECT_EQ(project(input).message,
            "Start-Datum, ungültige Datumseingabe! Bitte geben Sie ein gültiges Datum ein.\n"
            "Beispiel:  01.01.2009");
  EXPECT_FALSE(project(input).figures);
}

}  // namespace
