#include "analysis/Tariffs.h"

#include "HouseholdFixture.h"
#include "reports/GridText.h"
#include "support/Golden.h"

using namespace analysis;
using testing::ElementsAre;

namespace {

Offer gasOffer(const char* name, double price, double baseFee, double bonus = 0) {
  Offer offer;
  offer.energy = Energy::Gas;
  offer.name = name;
  offer.price = price;
  offer.baseFee = baseFee;
  offer.bonus = bonus;
  return offer;
}

Offer nightOffer() {
  Offer offer;
  offer.name = "Zwei Zeiten, \"neu\"";
  offer.price = 30;
  offer.nightPrice = 20;
  offer.net = true;
  offer.baseFee = 10;
  offer.feePerMonth = true;
  offer.guaranteedUntil = "31.12.2026";
  offer.contractEnd = "30.06.2027";
  return offer;
}

class Tariffs : public HouseholdFixture {};

}  // namespace

TEST_F(Tariffs, OfGasAreComparedWithThePresentContract) {
  const YearFolder read = folder();
  const Year& year = read.years.back();
  const std::vector<Offer> offers = {gasOffer("Festpreis 12 Monate", 10.49, 178.80, 100),
                                     gasOffer("Grundversorgung", 11.89, 96), nightOffer()};
  const Comparison comparison =
      compareOffers(year, Energy::Gas, usualBasis(year, read, Energy::Gas), offers);
  EXPECT_NEAR(comparison.basis.kwh, 1408 * 10.523, 1e-9);
  EXPECT_NEAR(comparison.presentCost, 1790.85, 0.005);
  ASSERT_EQ(comparison.offers.size(), 2U);
  EXPECT_NEAR(comparison.offers[0].firstYear, 1633.04, 0.005);
  EXPECT_NEAR(comparison.offers[0].following, 1733.04, 0.005);
  EXPECT_NEAR(comparison.offers[0].difference, -57.81, 0.005);
  EXPECT_EQ(comparison.offers[0].cheaper.text(), "ab 3.645 kWh");
  EXPECT_EQ(comparison.offers[1].cheaper.text(), "bis 7.245 kWh");
  EXPECT_TRUE(matchesGolden("tariffs-gas.txt", textOf(comparison)));
  EXPECT_TRUE(matchesGolden("tariffs-gas.csv", reports::toCsv(csvTableOf({comparison}))));
}

TEST_F(Tariffs, OfElectricityAddVatTwelveFeesAndTheNight) {
  const YearFolder read = folder();
  const Year& year = read.years.back();
  const Contract contract = contractOf(nightOffer(), year);
  EXPECT_NEAR(contract.price, 35.7, 1e-9);
  EXPECT_NEAR(contract.nightPrice, 23.8, 1e-9);
  EXPECT_NEAR(contract.baseFee, 142.8, 1e-9);
  const auto basis = usualBasis(year, read, Energy::Electricity);
  const Comparison comparison = compareOffers(year, Energy::Electricity, basis, {nightOffer()});
  EXPECT_TRUE(comparison.hasNight);
  EXPECT_NEAR(comparison.offers[0].following, 142.8 + 2993 * 0.357 + 1499 * 0.238, 1e-6);
  // At the point where they cost the same, they do.
  const Contract dear{35.7, 23.8, 285.6};
  const Cheaper cheaper = cheaperWhere(dear, comparison.present, basis);
  EXPECT_EQ(cheaper.when, Cheaper::When::From);
  const Basis even = typedBasis(cheaper.kwh, basis);
  EXPECT_NEAR(costOf(dear, even), costOf(comparison.present, even), 1e-6);
}

TEST(CheaperWhere, NamesTheSideOnWhichAnOfferCostsLess) {
  const Contract present{10, 10, 100};
  const Basis basis{1000, 0, {}};
  const std::tuple<Contract, const char*> cases[] = {
      {{9, 9, 120}, "ab 2.000 kWh"}, {{12, 12, 80}, "bis 1.000 kWh"}, {{9, 9, 90}, "immer"},
      {{11, 11, 110}, "nie"},        {{10, 10, 90}, "immer"},         {{10, 10, 100}, "nie"}};
  for (const auto& [offer, text] : cases)
    EXPECT_EQ(cheaperWhere(offer, present, basis).text(), text);
}

TEST_F(Tariffs, RestOnTheLastCompleteYearElseOnTheForecast) {
  YearFolder read = folder();
  EXPECT_EQ(usualBasis(read.years.front(), read, Energy::Gas).text,
            "letztes ganzes Jahr: Verbrauch2024");
  endAt("Verbrauch2025.kwd", 9);
  read = folder();
  EXPECT_EQ(usualBasis(read.years.back(), read, Energy::Gas).text,
            "letztes ganzes Jahr: Verbrauch2024");
  ASSERT_TRUE(disk.remove(pathOf("Verbrauch2024.kwd")));
  read = folder();
  const Basis expected = usualBasis(read.years.back(), read, Energy::Electricity);
  EXPECT_EQ(expected.text, "Prognose: Verbrauch2025");
  const Forecast forecast = forecastOf(read.years.back(), read);
  EXPECT_EQ(expected.kwh, forecast.meters[Meter::Day]->outlook.year);
  EXPECT_EQ(expected.nightKwh, forecast.meters[Meter::Night]->outlook.year);
}

TEST_F(Tariffs, AreKeptAsTheyWereEntered) {
  EXPECT_TRUE(readOffers(disk, "/daten/")->offers.empty());
  const OfferFile file{{gasOffer("Ökogas", 10.89, 168, 12.5), nightOffer()}, {"etwas anderes"}};
  ASSERT_TRUE(writeOffers(disk, "/daten/", file));
  const auto written = disk.get("/daten/Tarife.dat");
  EXPECT_EQ(base::asText(written),
            "\"Gas\",\"\xD6kogas\",10.89,-1,#FALSE#,168,#FALSE#,12.5,\"\",\"\"\r\n"
            "\"Strom\",\"Zwei Zeiten, 'neu'\",30,20,#TRUE#,10,#TRUE#,0,\"31.12.2026\","
            "\"30.06.2027\"\r\n"
            "etwas anderes\r\n");
  const auto read = readOffers(disk, "/daten/");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->offers[0], file.offers[0]);
  EXPECT_EQ(read->offers[1].contractEnd, "30.06.2027");
  EXPECT_THAT(read->otherLines, ElementsAre("etwas anderes"));
  ASSERT_TRUE(writeOffers(disk, "/daten/", *read));
  EXPECT_EQ(disk.get("/daten/Tarife.dat"), written);
}

TEST_F(Tariffs, AreReadLeniently) {
  const std::string text =
      "  Gas , Kurz , 9.5\n\n\"Strom\",\"\",30\n\"Wasser\",\"Nein\",3\n\"Strom\",\"Gut\",\"x\"";
  disk.put("/daten/Tarife.dat", base::asBytes(text));
  const auto read = readOffers(disk, "/daten/");
  ASSERT_TRUE(read);
  ASSERT_EQ(read->offers.size(), 1U);
  EXPECT_EQ(read->offers[0], gasOffer("Kurz", 9.5, 0));
  EXPECT_EQ(read->otherLines.size(), 3U);
}
