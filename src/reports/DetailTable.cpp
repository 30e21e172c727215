#include "reports/DetailTable.h"

#include <algorithm>

#include "reports/GridStyle.h"

namespace reports {
namespace {

using base::Money;

constexpr int kColumns = 6;
constexpr int kNarrowest = 1300;
// Not navy: HTML pages show that in the colour of scroll bars.
constexpr CellColor kHeadingBlue = rgb(0, 0, 112);

struct BlockHeadings {
  const char* consumption;
  const char* unitPrice;
};

constexpr PerMeter<BlockHeadings> kHeadings = {{{
    {"Verbrauch in kWh", "Cent Je Einheit"},
    {"Verbrauch in kWh", "Cent Je Einheit"},
    {"Verbrauch in m³", "Euro Je m³"},
    {"Verbrauch in m³", "Euro Je m³"},
    {"Verbrauch in kWs", "Cent Je kWs"},
}}};

// One line's three amounts.
struct Amounts {
  Money net, vat, gross;
  Amounts& operator+=(const Amounts& other) {
    net += other.net;
    vat += other.vat;
    gross += other.gross;
    return *this;
  }
};

Amounts amountsOf(Money net, std::optional<double> vatPercent) {
  Amounts line;
  line.net = net;
  line.vat = yearbook::vatOn(net, vatPercent.value_or(0));
  line.gross = line.net + line.vat;
  return line;
}

class Builder {
 public:
  Builder(const DetailInput& input, const TextWidth& measure) : in_(input), measure_(measure) {
    for (int column = 1; column < kColumns; ++column) {
      grid_.column(column).format = "#,##0.00";
      grid_.column(column).alignment = Alignment::RightCenter;
    }
    grid_.column(0).alignment = Alignment::LeftCenter;
    writeHeading(grid_, 0, documentName(input.today), 12);
    writeHeading(grid_, 1, "Jahresübersicht alle Beträge in Euro", 12);
    grid_.row(0).height = 355;
    grid_.row(1).height = 455;
    grid_.headRows = 2;
    for (int row = 0; row < 2; ++row) grid_.mergeEqualNeighbours(row);
  }

  void block(Meter which) {
    addRow();  // the empty row before the block
    const int heading = addRow();
    headings(which, heading);
    const DetailMeter& meter = in_.meters[which];

    double consumption = 0;
    Amounts total;
    for (const DetailMonth& month : meter.months) {
      consumption += month.consumption.value_or(0);
      total += monthRow(month, meter.vatPercent);
    }
    addRow();
    line("Summen ", consumption, total);
    markSumRow(grid_, row_);
    if (which == Meter::Day) total = flatRateRows(consumption, total, meter.vatPercent);
    if (which != Meter::Night) baseFeeRows(meter, total);
    for (int row = heading + 1; row <= row_; ++row) grid_.row(row).headingRow = heading;
  }

  Grid finish() {
    grid_.column(0).width = kLabelWidth;
    for (int column = 1; column < kColumns; ++column) grid_.fitColumn(column, measure_, kNarrowest);
    return std::move(grid_);
  }

 private:
  int addRow() {
    grid_.appendRows(1);
    return row_ = grid_.rows() - 1;
  }

  void headings(Meter which, int row) {
    const std::array<std::string, kColumns> captions = {std::string(factsOf(which).name),
                                                        kHeadings[which].consumption,
                                                        kHeadings[which].unitPrice,
                                                        "Netto",
                                                        "MwSt",
                                                        "Brutto"};
    for (int column = 0; column < kColumns; ++column) {
      Cell& cell = grid_.cell(row, column);
      cell.value = captions[static_cast<std::size_t>(column)];
      cell.bold = true;
      cell.fore = kHeadingBlue;
    }
    grid_.cell(row, 0).pointSize = 10;
    grid_.row(row).height = 355;
  }

  Amounts monthRow(const DetailMonth& month, std::optional<double> vatPercent) {
    addRow();
    grid_.cell(row_, 0).value = month.month;
    if (month.consumption) grid_.cell(row_, 1).value = *month.consumption;
    if (month.unitPrice) grid_.cell(row_, 2).value = *month.unitPrice;
    if (!month.amount) return {};
    const Amounts line = amountsOf(*month.amount, vatPercent);
    amounts(line);
    return line;
  }

  // The free kWh come off with their value; the block's sums then are those beyond them.
  Amounts flatRateRows(double consumption, const Amounts& total, std::optional<double> vatPercent) {
    if (!in_.flatRate.hasBlock()) return total;
    const double freeKwh = *in_.flatRate.freeKwh;
    const double value = in_.flatRate.freeValue();
    addRow();
    line("Pauschale", -freeKwh, amountsOf(Money::roundHalfEven(-value), vatPercent));
    const Amounts beyond =
        amountsOf(Money::roundHalfEven(total.net.toDouble() - value), vatPercent);
    addRow();
    line("Verbrauch", consumption - freeKwh, beyond);
    return beyond;
  }

  void baseFeeRows(const DetailMeter& meter, Amounts total) {
    addRow();
    grid_.cell(row_, 0).value = "Grundgebühr";
    grid_.cell(row_, 0).bold = true;
    if (meter.baseFee) {
      const Amounts fee = amountsOf(*meter.baseFee, meter.vatPercent);
      amounts(fee);
      total += fee;
    }
    addRow();
    grid_.cell(row_, 0).value = "Summe Gesamt";
    amounts(total);
    markBalanceRow(grid_, row_);
  }

  void line(const char* label, double consumption, const Amounts& line) {
    grid_.cell(row_, 0).value = label;
    grid_.cell(row_, 0).bold = true;
    grid_.cell(row_, 1).value = consumption;
    amounts(line);
  }

  void amounts(const Amounts& line) {
    grid_.cell(row_, 3).value = line.net;
    grid_.cell(row_, 4).value = line.vat;
    grid_.cell(row_, 5).value = line.gross;
  }

  const DetailInput& in_;
  const TextWidth& measure_;
  Grid grid_{2, kColumns};
  int row_ = 1;
};

}  // namespace

Grid buildDetailTable(const DetailInput& input, const MeterChoice& ticked,
                      const TextWidth& measure) {
  Builder builder(input, measure);
  for (Meter meter : yearbook::kMeters)
    if (ticked[meter]) builder.block(meter);
  return builder.finish();
}

std::string documentName(base::Date today) {
  return "Verbrauchs-Abrechnung  " + base::formatLongDate(today);
}

}  // namespace reports
