#include "reports/OverviewBuilder.h"

#include <algorithm>
#include <cmath>

#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "reports/GridStyle.h"

namespace reports {
namespace {

using base::Money;
using yearbook::orZero;
using OptionalMoney = std::optional<Money>;

constexpr int kTotalWidth = 9400;
constexpr PerUtility<int> kLabelColumns = {0, 3, 6};
constexpr PerUtility<int> kAmountColumns = {1, 4, 7};
constexpr std::array<int, 2> kSpacerColumns = {2, 5};

// Adds what is there; nothing there gives nothing.
OptionalMoney sumOf(const OptionalMoney& a, const OptionalMoney& b) {
  if (!a && !b) return std::nullopt;
  return orZero(a) + orZero(b);
}

OptionalMoney vatOn(Money net, const EnteredNumber& rate) {
  if (!rate.value) return std::nullopt;
  return yearbook::vatOn(net, *rate.value);
}

void finish(UtilityTotals& totals, const OptionalMoney& advance) {
  totals.gross = totals.net + orZero(totals.vat) + orZero(totals.wasteWaterVat);
  totals.balance = totals.gross - orZero(advance);
}

void setElectricity(const OverviewInput& in, OverviewTotals& totals) {
  Money months;
  for (const MonthAmount& row : in.months[Utility::Electricity]) months += orZero(row.amount);
  Money charged = orZero(in.amounts[Meter::Day]) + orZero(in.amounts[Meter::Night]);
  if (in.flatRate.hasBlock()) {
    const double value = in.flatRate.freeValue();
    if (in.flatRate.dayPrice) totals.freeValue = Money::roundHalfEven(value);
    totals.extraConsumption = Money::roundHalfEven(months.toDouble() - value);
    charged = totals.extraConsumption;
  }
  UtilityTotals& electricity = totals[Utility::Electricity];
  electricity.amount = months;
  electricity.net = charged + orZero(in.baseFees[Meter::Day]);
  electricity.vat = vatOn(electricity.net, in.vat[Meter::Day]);
}

// Writes the rows from top to bottom; each step knows how far it is from the one before.
class Builder {
 public:
  Builder(const OverviewInput& input, const TextWidth& measure)
      : in_(input), totals_(overviewTotals(input)), measure_(measure) {}

  Grid build() {
    setUp();
    headings();
    months();
    consumptionSums();
    if (in_.flatRate.hasBlock()) flatRateBlock();
    baseFees();
    netSums();
    vat();
    grossSums();
    advances();
    balances();
    widths();
    return std::move(grid_);
  }

 private:
  void setUp() {
    for (const int column : kAmountColumns) {
      grid_.column(column).format = "#,##0.00";
      grid_.column(column).alignment = Alignment::RightCenter;
    }
    grid_.headRows = 3;
    grid_.row(0).height = 355;
    grid_.row(1).height = 455;
    grid_.row(2).height = 355;
  }

  void headings() {
    writeHeading(grid_, 0,
                 "Verbrauchs-Abrechnung  " + std::to_string(in_.currentYear) + "  /  " +
                     base::baseName(in_.yearFileName),
                 12);
    writeHeading(grid_, 1, "Jahresübersicht alle Beträge in Euro", 12);
    for (Utility utility : yearbook::kUtilities) {
      const std::string name(factsOf(utility).name);
      grid_.cell(2, kLabelColumns[utility]).value = name;
      grid_.cell(2, kAmountColumns[utility]).value = name;
    }
    for (int column = 0; column < grid_.columns(); ++column) {
      Cell& cell = grid_.cell(2, column);
      cell.bold = true;
      cell.pointSize = 10;
      cell.fore = kNavy;
      cell.placed = Alignment::CenterCenter;
    }
    for (int row = 0; row < 3; ++row) grid_.mergeEqualNeighbours(row);
  }

  void months() {
    for (int i = 0; i < yearbook::kMonths; ++i) {
      row_ = 3 + i;
      for (Utility utility : yearbook::kUtilities) {
        const MonthAmount& month = in_.months[utility][i];
        grid_.cell(row_, kLabelColumns[utility]).value = month.month;
        amount(kAmountColumns[utility], month.amount);
      }
    }
  }

  void consumptionSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(&UtilityTotals::amount);
    markSumRow(grid_, row_);
  }

  void flatRateBlock() {
    grid_.appendRows(2);
    ++row_;
    grid_.cell(row_, 0).value = "Pauschal " + base::formatShort(*in_.flatRate.freeKwh) + " kWh";
    if (totals_.freeValue) amount(1, -*totals_.freeValue);
    ++row_;
    grid_.cell(row_, 0).value = "Mehrverbrauch ist";
    amount(1, totals_.extraConsumption);
  }

  void baseFees() {
    row_ += 2;
    labels("Grundgebühr", "Grundg. Wasser", "Grundgebühr");
    for (Meter meter : {Meter::Day, Meter::Water, Meter::Gas})
      amount(kAmountColumns[utilityOf(meter)], in_.baseFees[meter]);
    ++row_;
    labels(" ", "Grundg. Abwasser", " ");
    grid_.cell(row_, 1).value = " ";
    amount(4, in_.baseFees[Meter::WasteWater]);
    grid_.cell(row_, 7).value = " ";
  }

  void netSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(&UtilityTotals::net);
    markSumRow(grid_, row_);
  }

  void vat() {
    row_ += 2;
    labels(in_.vat[Meter::Day].text + "% MwSt Strom", in_.vat[Meter::Water].text + "% MwSt Wasser",
           in_.vat[Meter::Gas].text + "% MwSt Gas");
    amounts(&UtilityTotals::vat);
    ++row_;
    labels(" ", in_.vat[Meter::WasteWater].text + "% MwSt Abwasser", " ");
    amount(4, totals_[Utility::Water].wasteWaterVat);
  }

  void grossSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(&UtilityTotals::gross);
    markSumRow(grid_, row_);
  }

  void advances() {
    row_ += 2;
    labels("Abschläge", "Abschläge", "Abschläge");
    for (Utility utility : yearbook::kUtilities)
      amount(kAmountColumns[utility], in_.advances[utility]);
  }

  void balances() {
    row_ += 2;
    labels("Saldo Strom", "Saldo Wasser", "Saldo Gas");
    amounts(&UtilityTotals::balance);
    markBalanceRow(grid_, row_);
  }

  void widths() {
    for (const int column : kLabelColumns) grid_.column(column).width = kLabelWidth;
    for (const int column : kAmountColumns) grid_.fitColumn(column, measure_);
    for (const int column : kSpacerColumns) grid_.column(column).width = 0;
    const int spacer = static_cast<int>(std::nearbyint((kTotalWidth - grid_.totalWidth()) / 2.0));
    for (const int column : kSpacerColumns) grid_.column(column).width = std::max(0, spacer);
  }

  void labels(const std::string& electricity, const std::string& water, const std::string& gas) {
    const PerUtility<std::string> texts = {electricity, water, gas};
    for (Utility utility : yearbook::kUtilities) {
      Cell& cell = grid_.cell(row_, kLabelColumns[utility]);
      cell.value = texts[utility];
      cell.bold = true;
    }
  }

  template <class Amount>
  void amounts(Amount UtilityTotals::*figure) {
    for (Utility utility : yearbook::kUtilities)
      amount(kAmountColumns[utility], totals_[utility].*figure);
  }

  void amount(int column, OptionalMoney value) {
    if (value) grid_.cell(row_, column).value = *value;
  }

  const OverviewInput& in_;
  const OverviewTotals totals_;
  const TextWidth& measure_;
  Grid grid_{32, 8};
  int row_ = 0;
};

}  // namespace

OverviewTotals overviewTotals(const OverviewInput& in) {
  OverviewTotals totals;
  setElectricity(in, totals);

  // Water and waste water are taxed apart, each with its base fee at its own rate.
  const auto net = [&](Meter meter) {
    return orZero(in.amounts[meter]) + orZero(in.baseFees[meter]);
  };
  UtilityTotals& water = totals[Utility::Water];
  water.amount = sumOf(in.amounts[Meter::Water], in.amounts[Meter::WasteWater]);
  water.net = net(Meter::Water) + net(Meter::WasteWater);
  water.vat = vatOn(net(Meter::Water), in.vat[Meter::Water]);
  water.wasteWaterVat = vatOn(net(Meter::WasteWater), in.vat[Meter::WasteWater]);

  UtilityTotals& gas = totals[Utility::Gas];
  gas.amount = in.amounts[Meter::Gas];
  gas.net = net(Meter::Gas);
  gas.vat = vatOn(gas.net, in.vat[Meter::Gas]);
  for (Utility utility : yearbook::kUtilities) finish(totals[utility], in.advances[utility]);
  return totals;
}

Grid buildOverview(const OverviewInput& input, const TextWidth& measure) {
  return Builder(input, measure).build();
}

}  // namespace reports
