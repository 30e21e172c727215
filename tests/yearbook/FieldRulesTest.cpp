#include "yearbook/FieldRules.h"

#include <gmock/gmock.h>

#include "yearbook/FieldTexts.h"

using namespace yearbook;

namespace {

FilteredEntry kept(const char* text, bool commaRefused = false) {
  return {text, commaRefused};
}

FieldValues valuesOfAYear() {
  FieldValues values;
  values.startMonths = {4, 1, 1};
  values.bill.meters[Meter::Day] = {44309, 3073, Money::roundHalfEven(921.937), {}, {}, {}};
  values.bill.gross[Utility::Electricity] = Money::roundHalfEven(1554.7765);
  values.consumptions[Meter::Day] = {{{1250.5, 625.25, -3}}};
  values.advanceSums[Utility::Electricity] = Money::roundHalfEven(1800);
  return values;
}

}  // namespace

TEST(FieldRules, WholeUnitsRefuseTheComma) {
  EXPECT_EQ(filterEntry(EntryKind::WholeKwh, "1234,5"), kept("12345", true));
  EXPECT_EQ(filterEntry(EntryKind::WholeCubicMetres, ","), kept("", true));
  EXPECT_EQ(filterEntry(EntryKind::WholeKwh, "41.236 kWh"), kept("41.236"));
  EXPECT_EQ(wholeUnitsMessage(EntryKind::WholeKwh), "Bitte nur volle kWh eingeben!");
  EXPECT_EQ(wholeUnitsMessage(EntryKind::WholeCubicMetres), "Bitte nur volle m³ eingeben!");
  EXPECT_EQ(wholeUnitsMessage(EntryKind::Price), "");
}

TEST(FieldRules, RatesAndDatesTakeDigitsCommaAndPointOnly) {
  EXPECT_EQ(filterEntry(EntryKind::Percent, "19%"), kept("19"));
  EXPECT_EQ(filterEntry(EntryKind::Percent, "-7,5"), kept("7,5"));
  EXPECT_EQ(filterEntry(EntryKind::Date, "1. Januar 2010"), kept("1.2010"));
  EXPECT_EQ(filterEntry(EntryKind::Amount, "-1.234,50 €"), kept("-1.234,50"));
}

// "12.5" is twelve and a half wherever it is typed: never 125, and no whole unit either.
TEST(FieldRules, AFractionIsNotWorthStoringInWholeUnits) {
  EXPECT_FALSE(isComplete(EntryKind::WholeKwh, 12.5));
  EXPECT_TRUE(isComplete(EntryKind::WholeKwh, 12345));
  EXPECT_TRUE(isComplete(EntryKind::WholeKwh, std::nullopt));
  EXPECT_TRUE(isComplete(EntryKind::Price, 12.5));
}

TEST(FieldRules, TheStartDateIsADayOfTheCalendar) {
  EXPECT_TRUE(isStartDate("1.1.2010"));
  EXPECT_TRUE(isStartDate("01.01.09"));
  EXPECT_FALSE(isStartDate("31.02.2010"));
  EXPECT_FALSE(isStartDate(""));
  EXPECT_TRUE(isWholeStartDate("1.1.2010"));
  EXPECT_FALSE(isWholeStartDate("1.1.20"));
  EXPECT_FALSE(isWholeStartDate("31.02.2010"));
}

TEST(FieldTexts, FiguresReadGerman) {
  const FieldValues values = valuesOfAYear();
  const MeterLines lines = meterLines(values, Meter::Day);
  EXPECT_EQ(lines.endReading, "44.309");
  EXPECT_EQ(lines.consumption, "3.073");
  EXPECT_EQ(lines.amount, "921,94");
  EXPECT_EQ(grossText(values, Utility::Electricity), "1.554,78");
  EXPECT_EQ(priceText(29.6), "29,60");
  EXPECT_EQ(priceText(28.125), "28,125");
  EXPECT_EQ(priceText(std::nullopt), "");
}

TEST(FieldTexts, AHiddenNightTariffIsNamedWhereItIsSummed) {
  FieldValues values = valuesOfAYear();
  values.bill.meters[Meter::Night].gross = Money::roundHalfEven(429.17);
  const std::string plain = grossNote(values, Utility::Electricity);
  EXPECT_EQ(plain.find("Nachtstrom"), std::string::npos);
  values.nightShown = false;
  EXPECT_EQ(grossNote(values, Utility::Water), plain);
  EXPECT_EQ(grossNote(values, Utility::Electricity),
            plain + "; darin 429,17 Euro Nachtstrom (ausgeblendet)");
}

TEST(FieldTexts, TheMonthsFollowTheStartMonthAndTheClock) {
  const MonthTexts months = monthTexts(valuesOfAYear(), Utility::Electricity, "Mai");
  EXPECT_EQ(months.names.front(), "April");
  EXPECT_EQ(months.names.back(), "März");
  EXPECT_EQ(months.current, 1);
  EXPECT_EQ(months.consumptionSum, "3.073");
  EXPECT_EQ(months.consumptions[1], "625,25");
  EXPECT_EQ(months.consumptions[3], "");
  EXPECT_EQ(months.advanceSum, "1.800,00");
  EXPECT_THAT(months.shares, testing::ElementsAre(1, 0.5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(FieldTexts, AClearedUtilityShowsNothing) {
  FieldValues values = valuesOfAYear();
  values.cleared[Utility::Electricity] = true;
  EXPECT_EQ(meterLines(values, Meter::Night).endReading, "");
  EXPECT_EQ(grossText(values, Utility::Electricity), "");
  EXPECT_EQ(monthTexts(values, Utility::Electricity, "Mai").advanceSum, "");
  EXPECT_EQ(gasKwhText(values), "0");
}
