#include "reports/YearReport.h"

#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "yearbook/FirstSteps.h"

namespace reports {
namespace {

using base::Money;
using yearbook::FieldValues;
using yearbook::kMonths;
using yearbook::orZero;
using yearbook::YearSession;

EnteredNumber entered(std::optional<double> value) {
  return {value ? base::formatShort(*value) : std::string(), value};
}

PerMonth<MonthAmount> monthAmounts(const YearSession& year, Utility utility) {
  const yearbook::RecordSource& rows = year.rows().of(utility);
  PerMonth<MonthAmount> months;
  for (int i = 0; i < kMonths; ++i)
    months[i] = {rows.text(i, *factsOf(utility).month),
                 rows.money(i, *factsOf(utility).monthAmount)};
  return months;
}

int monthsCovered(const YearSession& year, Utility utility) {
  int covered = 0;
  for (Meter meter : yearbook::metersOf(utility)) {
    const auto months = year.rows().months(meter);
    for (int i = covered; i < kMonths; ++i)
      if (orZero(months[i].reading) > 0 || orZero(months[i].consumption) != 0) covered = i + 1;
  }
  return covered;
}

yearbook::FlatRate flatRateOf(const FieldValues& values) {
  return {values.flatRate, values.freeKwh, values.prices[Meter::Day]};
}

}  // namespace

OverviewInput overviewInput(const YearSession& year) {
  const FieldValues& values = year.values();
  OverviewInput in;
  in.yearFileName = base::fileName(year.path());
  in.currentYear = static_cast<int>(year.openedOn().year());
  in.currentMonth = year.openedMonth();
  for (Utility utility : yearbook::kUtilities) {
    in.months[utility] = monthAmounts(year, utility);
    in.monthsCovered[utility] = monthsCovered(year, utility);
    in.advancesCovered[utility] =
        yearbook::advancesUntil(values.advances[utility], in.monthsCovered[utility]);
    in.unread[utility] = yearbook::unreadMeters(values, utility);
    // A field that clearing has emptied shows nothing until the next summary.
    if (!values.cleared[utility]) in.advances[utility] = values.advanceSums[utility];
  }
  for (Meter meter : yearbook::kMeters) {
    const yearbook::MeterFacts& facts = factsOf(meter);
    if (!values.cleared[facts.utility]) in.amounts[meter] = values.bill.meters[meter].amount;
    if (facts.baseFee) in.baseFees[meter] = year.adoZStaende.money(0, *facts.baseFee);
    in.vat[meter] = entered(values.vat[meter]);
  }
  in.flatRate = flatRateOf(values);
  return in;
}

DetailInput detailInput(const YearSession& year, base::Date today) {
  const FieldValues& values = year.values();
  DetailInput in;
  for (Meter meter : yearbook::kMeters) {
    const yearbook::MeterFacts& facts = factsOf(meter);
    const yearbook::RecordSource& rows = year.rows().of(meter);
    DetailMeter& block = in.meters[meter];
    for (int i = 0; i < kMonths; ++i)
      block.months[i] = {rows.text(i, *factsOf(facts.utility).month),
                         rows.number(i, *facts.consumption), rows.number(i, *facts.price),
                         rows.money(i, *facts.amount)};
    block.vatPercent = values.vat[meter];
    block.baseFee = values.baseFees[meter];
  }
  in.flatRate = flatRateOf(values);
  in.today = today;
  in.nightShown = values.nightShown;
  return in;
}

}  // namespace reports
