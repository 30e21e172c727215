#include "SampleYear.h"

#include <gmock/gmock.h>

#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "readings/MeterReading.h"
#include "reports/OverviewBuilder.h"
#include "reports/YearReport.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"

using base::Money;
using yearbook::Meter;
using yearbook::Utility;
using yearbook::YearSession;

namespace {

constexpr char kFolder[] = "/daten/";

// A column of the household's bill, figures as they are printed.
struct Bill {
  std::string consumption, amount, baseFee, net, vat, gross, advances, balance;
  auto fields() const {
    return std::tie(consumption, amount, baseFee, net, vat, gross, advances, balance);
  }
  bool operator==(const Bill& other) const { return fields() == other.fields(); }
  friend void PrintTo(const Bill& bill, std::ostream* out) {
    std::apply([out](const auto&... field) { ((*out << field << " | "), ...); }, bill.fields());
  }
};

std::string shown(std::optional<Money> amount) {
  return formatMoney(yearbook::orZero(amount));
}
std::string shown(double consumption) {
  return base::formatShort(consumption);
}

struct Bills {
  Bill electricity, water, gas;
  std::string dayAmount, nightAmount, waterAmount, wasteWaterAmount;
};

// What the overview says of a utility, with the consumptions and base fees of its meters.
Bill billOf(const YearSession& year, Utility utility) {
  const auto& values = year.values();
  const auto totals = reports::overviewTotals(reports::overviewInput(year))[utility];
  std::string consumption, fees;
  for (Meter meter : metersOf(utility)) {
    const std::string plus = consumption.empty() ? "" : "+";
    consumption += plus + shown(values.bill.meters[meter].consumption);
    if (meter != Meter::Night) fees += plus + shown(values.baseFees[meter]);
  }
  std::string vat = shown(totals.vat);
  if (totals.wasteWaterVat) vat += "+" + shown(totals.wasteWaterVat);
  return {consumption,
          shown(totals.amount),
          fees,
          shown(totals.net),
          vat,
          shown(totals.gross),
          shown(values.advanceSums[utility]),
          shown(totals.balance)};
}

Bills billsOf(const YearSession& year) {
  const auto& meters = year.values().bill.meters;
  return {billOf(year, Utility::Electricity),
          billOf(year, Utility::Water),
          billOf(year, Utility::Gas),
          shown(meters[Meter::Day].amount),
          shown(meters[Meter::Night].amount),
          shown(meters[Meter::Water].amount),
          shown(meters[Meter::WasteWater].amount)};
}

void expectBillsOf2024(const YearSession& year) {
  const Bills bills = billsOf(year);
  EXPECT_EQ(bills.electricity, (Bill{"3073+1553", "1.306,54", "154,80", "1.461,34", "277,65",
                                     "1.738,99", "1.800,00", "-61,01"}));
  EXPECT_EQ(bills.water, (Bill{"125+125", "620,00", "102,00+0,00", "722,00", "25,52+0,00", "747,52",
                               "756,00", "-8,49"}));
  EXPECT_EQ(bills.gas, (Bill{"1350", "1.279,76", "129,60", "1.409,36", "267,78", "1.677,14",
                             "1.560,00", "117,14"}));
  EXPECT_EQ(bills.dayAmount, "921,94");
  EXPECT_EQ(bills.nightAmount, "384,60");
  EXPECT_EQ(bills.waterAmount, "262,50");
  EXPECT_EQ(bills.wasteWaterAmount, "357,50");
}

void expectBillsOf2025(const YearSession& year) {
  const Bills bills = billsOf(year);
  EXPECT_EQ(bills.electricity, (Bill{"2993+1499", "1.231,27", "162,00", "1.393,27", "264,72",
                                     "1.657,99", "1.632,00", "25,99"}));
  EXPECT_EQ(bills.water, (Bill{"119+119", "630,70", "106,80+0,00", "737,50", "26,22+0,00", "763,72",
                               "792,00", "-28,28"}));
  EXPECT_EQ(bills.gas, (Bill{"1408", "1.388,00", "134,40", "1.522,40", "289,26", "1.811,66",
                             "1.704,00", "107,66"}));
  EXPECT_EQ(bills.dayAmount, "870,62");
  EXPECT_EQ(bills.nightAmount, "360,65");
  EXPECT_EQ(bills.waterAmount, "267,75");
  EXPECT_EQ(bills.wasteWaterAmount, "362,95");
}

class SampleYear : public testing::Test {
 protected:
  std::unique_ptr<YearSession> open(const std::string& name) {
    auto session = YearSession::open(files, kFolder + name, kFolder, clock);
    if (session) return std::move(*session);
    ADD_FAILURE() << base::germanMessage(session.error());
    return nullptr;
  }
  std::string bytes(const std::string& name) const {
    const base::Bytes content = files.get(kFolder + name);
    return {content.begin(), content.end()};
  }

  base::FixedClock clock{
      base::Date{std::chrono::year(2026), std::chrono::month(2), std::chrono::day(3)}};
  support::MemoryFileSystem files{{{std::string(kFolder) + "leer", {}}}};
};

}  // namespace

TEST_F(SampleYear, BothYearsComeToTheHouseholdsBills) {
  ASSERT_TRUE(sample::makeBoth(files, kFolder, support::emptyYear()));
  if (const auto year = open("Verbrauch2024.kwd")) expectBillsOf2024(*year);
  if (const auto year = open("Verbrauch2025.kwd")) expectBillsOf2025(*year);
}

TEST_F(SampleYear, EveryMeterAndFeeHasItsSideFile) {
  ASSERT_TRUE(sample::makeBoth(files, kFolder, support::emptyYear()));
  const std::pair<const char*, const char*> expected[] = {
      {"Verbrauch2024_WechselStrom.dat", "12,0\r\n"},
      {"Verbrauch2024_GrdGebStrMon.dat",
       "12.9,12.9,12.9,12.9,12.9,12.9,12.9,12.9,12.9,12.9,12.9,12.9\r\n"},
      {"Verbrauch2024_GrdGebGMon.dat",
       "10.8,10.8,10.8,10.8,10.8,10.8,10.8,10.8,10.8,10.8,10.8,10.8\r\n"},
      {"Verbrauch2025_WechselStrom.dat", "5,12\r\n"},
      {"Verbrauch2025_WechselNachtstrom.dat", "5,4\r\n"},
      {"Verbrauch2025_WechselWasser.dat", "12,0\r\n"},
      {"Verbrauch2025_WechselAbWasser.dat", "12,0\r\n"},
      {"Verbrauch2025_WechselGas.dat", "12,0\r\n"},
      {"Verbrauch2025_GrdGebStrMon.dat",
       "13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5\r\n"},
      {"Verbrauch2025_GrdGebWMon.dat", "8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9\r\n"},
      {"Verbrauch2025_GrdGebGMon.dat",
       "11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2\r\n"},
      {"Verbrauch2025_GrdGebAWMon.dat", "0,0,0,0,0,0,0,0,0,0,0,0\r\n"}};
  for (const auto& [name, content] : expected) EXPECT_EQ(bytes(name), content) << name;
}

TEST_F(SampleYear, TheChartTableHoldsTheConsumptions) {
  ASSERT_TRUE(sample::makeBoth(files, kFolder, support::emptyYear()));
  const auto year = open("Verbrauch2025.kwd");
  ASSERT_TRUE(year);
  using namespace yearbook;
  EXPECT_EQ(year->adoVerbrM.number(6, verbrMonat::day), 226);  // 238 less the new meter's 12
  EXPECT_EQ(year->adoVerbrM.number(6, verbrMonat::night), 89);
  EXPECT_EQ(year->adoVerbrM.number(11, verbrMonat::gas), 204);
  EXPECT_EQ(year->adoVerbrM.number(0, verbrMonat::water), 10);
  EXPECT_EQ(year->adoVerbrM.number(11, verbrMonat::wasteWater), 9);
}

// Years of other origin: empty ones, with other number types, further columns and indexes.
class SampleYearInOtherFiles : public SampleYear,
                               public testing::WithParamInterface<const char*> {};

TEST_P(SampleYearInOtherFiles, ComesToTheSameBill) {
  const std::string original = std::string(KALVIRA_JET_FILES "/year/") + GetParam();
  const auto content = base::makeDiskFileSystem()->readText(original);
  if (!content) GTEST_SKIP() << "no such year file: " << original;
  files.put("/daten/Verbrauch2025.kwd", base::asBytes(*content));
  if (const auto year = open("Verbrauch2025.kwd")) {
    const auto entered = sample::enter(*year, sample::year2025());
    ASSERT_TRUE(entered) << base::germanMessage(entered.error());
  }
  if (const auto year = open("Verbrauch2025.kwd")) expectBillsOf2025(*year);
}

INSTANTIATE_TEST_SUITE_P(Files, SampleYearInOtherFiles, testing::Values("plain.kwd", "memo.kwd"),
                         [](const auto& tested) {
                           const std::string name = tested.param;
                           return name.substr(0, name.find('.'));
                         });

TEST_F(SampleYear, AReadingThatItsColumnCannotHoldIsRefusedAsAWhole) {
  const std::string original = KALVIRA_JET_FILES "/year/filled.kwd";  // whole numbers only
  const auto content = base::makeDiskFileSystem()->readText(original);
  if (!content) GTEST_SKIP() << "no such year file: " << original;
  files.put("/daten/Alt.kwd", base::asBytes(*content));
  const auto year = open("Alt.kwd");
  ASSERT_TRUE(year);
  const base::Bytes before = files.get("/daten/Alt.kwd");
  yearbook::PerMonth<double> typed = {1000, 3'000'000'000};
  const auto taken = readings::takeOver(*year, yearbook::Meter::Day, typed, {});
  ASSERT_FALSE(taken);
  EXPECT_EQ(taken.error().code, base::ErrorCode::InvalidValue);
  EXPECT_EQ(taken.error().subject, "Februar, Zählerstand Strom");
  EXPECT_EQ(files.get("/daten/Alt.kwd"), before);
  typed[1] = 1200;
  ASSERT_TRUE(readings::takeOver(*year, yearbook::Meter::Day, typed, {}));
  EXPECT_EQ(year->adoStrom.number(1, yearbook::strom::dayConsumption), 200);
}
