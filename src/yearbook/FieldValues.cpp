#include "yearbook/FieldValues.h"

#include "base/GermanDate.h"

namespace yearbook {
namespace {

class Reader {
 public:
  Reader(const YearRows& rows, const Modes& modes) : rows_(rows), modes_(modes) {}

  FieldValues values() {
    for (Meter meter : kMeters) readMeter(meter);
    for (Utility utility : kUtilities) readUtility(utility);
    const RecordSource& settings = rows_.adoZStaende;
    values_.gasFactor = number(settings, zstaende::gasFactor);
    values_.freeKwh = number(settings, zstaende::freeKwh);
    values_.nightShown = settings.text(0, zstaende::nightDisplay) != "off";
    const std::string date = settings.text(0, zstaende::startDate);
    if (base::parseDate(date)) values_.startDate = date;
    values_.flatRate = modes_.flatRate;
    values_.cleared = modes_.cleared;
    values_.bill = billOf(billInput());
    return std::move(values_);
  }

 private:
  bool emptied(const Field& field, int row) const { return modes_.emptied.contains({&field, row}); }
  std::optional<double> number(const RecordSource& source, const Field& field, int row = 0) const {
    return emptied(field, row) ? std::nullopt : source.number(row, field);
  }
  std::optional<Money> money(const RecordSource& source, const Field& field, int row = 0) const {
    return emptied(field, row) ? std::nullopt : source.money(row, field);
  }

  void readMeter(Meter meter) {
    const MeterFacts& facts = factsOf(meter);
    const RecordSource& months = rows_.of(facts.utility);
    values_.startReadings[meter] = number(rows_.adoZStaende, *facts.startReading);
    values_.vat[meter] = number(rows_.adoZStaende, *facts.vat);
    if (facts.baseFee) values_.baseFees[meter] = money(rows_.adoZStaende, *facts.baseFee);
    values_.prices[meter] = number(months, *facts.price, kPriceRow);
    if (modes_.cleared[facts.utility]) return;
    for (int i = 0; i < kMonths; ++i)
      values_.consumptions[meter][i] = months.number(i, *facts.consumption);
  }

  void readUtility(Utility utility) {
    const UtilityFacts& facts = factsOf(utility);
    const RecordSource& months = rows_.of(utility);
    values_.startMonths[utility] = base::monthNumber(months.text(0, *facts.month));
    for (int i = 0; i < kMonths; ++i) {
      values_.advances[utility][i] = money(months, *facts.advance, i);
      values_.advanceSums[utility] += orZero(values_.advances[utility][i]);
      values_.remarks[utility][i] = months.text(i, *facts.remark);
    }
  }

  BillInput billInput() const {
    BillInput input;
    for (Meter meter : kMeters)
      input.meters[meter] = {rows_.months(meter), values_.startReadings[meter], values_.vat[meter],
                             values_.baseFees[meter]};
    input.flatRate = {values_.flatRate, values_.freeKwh, values_.prices[Meter::Day]};
    input.gasFactor = values_.gasFactor;
    return input;
  }

  const YearRows& rows_;
  const Modes& modes_;
  FieldValues values_;
};

}  // namespace

FieldValues valuesOf(const YearRows& rows, const Modes& modes) {
  return Reader(rows, modes).values();
}

}  // namespace yearbook
