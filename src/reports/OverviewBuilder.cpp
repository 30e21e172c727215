#include "reports/OverviewBuilder.h"

#include <algorithm>
#include <cmath>

#include "base/Paths.h"
#include "reports/GridStyle.h"

namespace reports {
namespace {

using base::Money;
using OptionalMoney = std::optional<Money>;

constexpr int kTotalWidth = 9400;
constexpr std::array<int, 3> kLabelColumns = {0, 3, 6};
constexpr std::array<int, 3> kAmountColumns = {1, 4, 7};
constexpr std::array<int, 2> kSpacerColumns = {2, 5};

Money orZero(const OptionalMoney& amount) {
  return amount.value_or(Money());
}

// Adds what is there; nothing there gives nothing.
OptionalMoney sumOf(const OptionalMoney& a, const OptionalMoney& b) {
  if (!a && !b) return std::nullopt;
  return orZero(a) + orZero(b);
}

OptionalMoney vatOn(Money net, const EnteredNumber& rate) {
  if (!rate.value) return std::nullopt;
  return Money::roundHalfEven(net.toDouble() / 100 * *rate.value);
}

void finish(UtilityTotals& totals, const OptionalMoney& advance) {
  totals.gross = totals.net + orZero(totals.vat) + orZero(totals.wasteWaterVat);
  totals.balance = totals.gross - orZero(advance);
}

void setElectricity(const OverviewInput& in, OverviewTotals& totals) {
  Money months;
  for (const MonthAmount& row : in.electricity) months += orZero(row.amount);
  Money charged = orZero(in.dayAmount) + orZero(in.nightAmount);

  totals.flatRateApplies = in.flatRate && in.freeKwh.value.value_or(0) > 0;
  if (totals.flatRateApplies) {
    const double value = *in.freeKwh.value * in.dayPrice.value_or(0) / 100;
    if (in.dayPrice) totals.freeValue = Money::roundHalfEven(value);
    totals.extraConsumption = Money::roundHalfEven(months.toDouble() - value);
    charged = totals.extraConsumption;
  }
  UtilityTotals& electricity = totals.electricity;
  electricity.amount = months;
  electricity.net = charged + orZero(in.baseFeeElectricity);
  electricity.vat = vatOn(electricity.net, in.vatElectricity);
  finish(electricity, in.advanceElectricity);
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
    if (totals_.flatRateApplies) flatRateBlock();
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
    const std::array<const char*, 3> names = {"Strom", "Wasser", "Gas"};
    for (std::size_t k = 0; k < names.size(); ++k) {
      grid_.cell(2, kLabelColumns[k]).value = names[k];
      grid_.cell(2, kAmountColumns[k]).value = names[k];
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
    for (std::size_t i = 0; i < in_.electricity.size(); ++i) {
      row_ = 3 + static_cast<int>(i);
      const std::array<const MonthAmount*, 3> rows = {&in_.electricity[i], &in_.water[i],
                                                      &in_.gas[i]};
      for (std::size_t k = 0; k < rows.size(); ++k) {
        grid_.cell(row_, kLabelColumns[k]).value = rows[k]->month;
        amount(kAmountColumns[k], rows[k]->amount);
      }
    }
  }

  void consumptionSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(totals_.electricity.amount, totals_.water.amount, totals_.gas.amount);
    markSumRow(grid_, row_);
  }

  void flatRateBlock() {
    grid_.appendRows(2);
    ++row_;
    grid_.cell(row_, 0).value = "Pauschal " + in_.freeKwh.text + " kWh";
    if (totals_.freeValue) amount(1, -*totals_.freeValue);
    ++row_;
    grid_.cell(row_, 0).value = "Mehrverbrauch ist";
    amount(1, totals_.extraConsumption);
  }

  void baseFees() {
    row_ += 2;
    labels("Grundgebühr", "Grundg. Wasser", "Grundgebühr");
    amounts(in_.baseFeeElectricity, in_.baseFeeWater, in_.baseFeeGas);
    ++row_;
    labels(" ", "Grundg. Abwasser", " ");
    grid_.cell(row_, 1).value = " ";
    amount(4, in_.baseFeeWasteWater);
    grid_.cell(row_, 7).value = " ";
  }

  void netSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(totals_.electricity.net, totals_.water.net, totals_.gas.net);
    markSumRow(grid_, row_);
  }

  void vat() {
    row_ += 2;
    labels(in_.vatElectricity.text + "% MwSt Strom", in_.vatWater.text + "% MwSt Wasser",
           in_.vatGas.text + "% MwSt Gas");
    amounts(totals_.electricity.vat, totals_.water.vat, totals_.gas.vat);
    ++row_;
    labels(" ", in_.vatWasteWater.text + "% MwSt Abwasser", " ");
    amount(4, totals_.water.wasteWaterVat);
  }

  void grossSums() {
    row_ += 2;
    labels("Summe", "Summe", "Summe");
    amounts(totals_.electricity.gross, totals_.water.gross, totals_.gas.gross);
    markSumRow(grid_, row_);
  }

  void advances() {
    row_ += 2;
    labels("Abschläge", "Abschläge", "Abschläge");
    amounts(in_.advanceElectricity, in_.advanceWater, in_.advanceGas);
  }

  void balances() {
    row_ += 2;
    labels("Saldo Strom", "Saldo Wasser", "Saldo Gas");
    amounts(totals_.electricity.balance, totals_.water.balance, totals_.gas.balance);
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
    const std::array<const std::string*, 3> texts = {&electricity, &water, &gas};
    for (std::size_t k = 0; k < texts.size(); ++k) {
      Cell& cell = grid_.cell(row_, kLabelColumns[k]);
      cell.value = *texts[k];
      cell.bold = true;
    }
  }

  void amounts(OptionalMoney electricity, OptionalMoney water, OptionalMoney gas) {
    amount(kAmountColumns[0], electricity);
    amount(kAmountColumns[1], water);
    amount(kAmountColumns[2], gas);
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

  UtilityTotals& water = totals.water;
  water.amount = sumOf(in.waterAmount, in.wasteWaterAmount);
  water.net = orZero(water.amount) + orZero(in.baseFeeWater) + orZero(in.baseFeeWasteWater);
  // Water and waste water are taxed apart, each with its base fee at its own rate.
  water.vat = vatOn(orZero(in.waterAmount) + orZero(in.baseFeeWater), in.vatWater);
  water.wasteWaterVat =
      vatOn(orZero(in.wasteWaterAmount) + orZero(in.baseFeeWasteWater), in.vatWasteWater);
  finish(water, in.advanceWater);

  UtilityTotals& gas = totals.gas;
  gas.amount = in.gasAmount;
  gas.net = orZero(in.gasAmount) + orZero(in.baseFeeGas);
  gas.vat = vatOn(gas.net, in.vatGas);
  finish(gas, in.advanceGas);
  return totals;
}

Grid buildOverview(const OverviewInput& input, const TextWidth& measure) {
  return Builder(input, measure).build();
}

}  // namespace reports
