#include "analysis/AllYears.h"

#include <algorithm>

#include "analysis/Cost.h"
#include "analysis/Forecast.h"
#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "yearbook/Season.h"

namespace analysis {
namespace {

using base::formatMoney;
using base::formatNumber;

// The consumption of the months up to the last one read by calendar month; the rest is not known.
PerMonth<std::optional<double>> byCalendar(const Year& year, Meter meter) {
  PerMonth<std::optional<double>> months;
  for (int i = 0; i < year.months[meter]; ++i)
    months[year.calendarMonth(meter, i) - 1] = year.consumption(meter, i);
  return months;
}

std::optional<double> changeOf(const Year& year, const Year& before, Meter meter) {
  const auto now = byCalendar(year, meter);
  const auto then = byCalendar(before, meter);
  double sumNow = 0, sumThen = 0;
  for (int i = 0; i < kMonths; ++i) {
    if (!now[i] || !then[i]) continue;
    sumNow += *now[i];
    sumThen += *then[i];
  }
  if (sumThen == 0) return std::nullopt;
  return sumNow / sumThen - 1;
}

int daysRead(const Year& year, Meter meter) {
  int days = 0;
  for (int i = 0; i < year.months[meter]; ++i) {
    const auto month = year.monthAt(meter, i);
    days += yearbook::daysInMonth(month.year(), month.month());
  }
  return days;
}

std::optional<double> perUnit(const Year& year, Meter meter, const MeterFigures& figures) {
  const double units = pricedUnits(year.values, meter, figures.consumption);
  if (units <= 0) return std::nullopt;
  const double cents = factsOf(meter).rule == yearbook::PriceRule::EuroPerUnit ? 1 : 100;
  return figures.gross.toDouble() * cents / units;
}

MeterFigures meterFigures(const Year& year, const Year* before, Meter meter) {
  MeterFigures figures;
  figures.months = year.months[meter];
  for (int i = 0; i < kMonths; ++i) figures.consumption += year.consumption(meter, i);
  if (before) figures.change = changeOf(year, *before, meter);
  if (const int days = daysRead(year, meter)) figures.perDay = figures.consumption / days;
  const Cost cost = costOf(year.values, meter, year.values.bill.meters[meter].amount);
  figures.net = cost.net;
  figures.gross = cost.gross;
  figures.grossPerUnit = perUnit(year, meter, figures);
  return figures;
}

bool hasSettings(const yearbook::FieldValues& values) {
  const auto meter = [&](Meter m) {
    return yearbook::orZero(values.startReadings[m]) != 0 ||
           yearbook::orZero(values.prices[m]) != 0 || yearbook::orZero(values.vat[m]) != 0 ||
           yearbook::orZero(values.baseFees[m]) != Money();
  };
  return std::any_of(kMeters.begin(), kMeters.end(), meter) ||
         std::any_of(values.advanceSums.begin(), values.advanceSums.end(),
                     [](Money sum) { return sum != Money(); });
}

// What has been used of each utility against what was paid for those months; one that has not been
// read says nothing yet.
Money balanceSoFar(const Year& year) {
  yearbook::FieldValues values = year.values;
  Money balance;
  for (const Utility utility : yearbook::kUtilities) {
    int months = 0;
    for (const Meter meter : yearbook::metersOf(utility))
      months = std::max(months, year.months[meter]);
    for (const Meter meter : yearbook::metersOf(utility))
      values.baseFees[meter] =
          yearbook::baseFeeUntil(yearbook::orZero(values.baseFees[meter]), months);
    for (const Meter meter : yearbook::metersOf(utility))
      balance += costOf(values, meter, values.bill.meters[meter].amount).gross;
    balance = balance - yearbook::advancesUntil(values.advances[utility], months);
  }
  return balance;
}

std::string untilMonth(const Year& year, Meter meter) {
  const int months = year.months[meter];
  if (months == 0 || months == kMonths) return {};
  return "bis " + std::string(base::kMonthNames[static_cast<std::size_t>(
                      year.calendarMonth(meter, months - 1) - 1)]);
}

// --- the table ---

enum Column {
  Name,
  Consumption,
  Unit,
  Change,
  PerDay,
  Net,
  Gross,
  PerUnit,
  PerUnitUnit,
  Advances,
  Balance,
  kColumns
};

constexpr std::array<const char*, kColumns> kHeadings = {
    "Jahr und Zähler", "Verbrauch",         "", "zum Vorjahr",    "je Tag",    "Netto Euro",
    "Brutto Euro",     "Brutto je Einheit", "", "Abschläge Euro", "Saldo Euro"};

class TableWriter {
 public:
  TableWriter() {
    grid_.headRows = grid_.fixedRows = 1;
    for (int column = 0; column < kColumns; ++column) {
      const bool text = column == Name || column == Unit || column == PerUnitUnit;
      grid_.column(column).alignment =
          text ? reports::Alignment::LeftCenter : reports::Alignment::RightCenter;
      put(column, kHeadings[static_cast<std::size_t>(column)]);
    }
    markBold();
  }

  void year(const YearFigures& figures) {
    addRow();
    std::string name =
        figures.year->label() + "   " + figures.year->name + " (" + startText(*figures.year);
    if (const std::string until = figures.until(); !until.empty()) name += ", " + until;
    put(Name, name + ')');
    putMoney(Net, figures.net);
    putMoney(Gross, figures.gross);
    putMoney(Advances, figures.advances);
    putMoney(Balance, figures.balance);
    markBold();
    for (int column = 0; column < kColumns; ++column)
      grid_.cell(row_, column).lineAbove = grid_.gridColor;
    for (const Meter meter : kMeters)
      if (figures.meters[meter].months > 0) this->meter(figures, meter);
  }

  reports::Grid finish() {
    for (int column = 0; column < kColumns; ++column)
      grid_.fitColumn(column, reports::plainTextWidth);
    return std::move(grid_);
  }

 private:
  void meter(const YearFigures& year, Meter meter) {
    const MeterFigures& figures = year.meters[meter];
    addRow();
    const std::string until = year.until(meter);
    const bool apart = until != year.until() && !until.empty();
    put(Name, "      " + std::string(spokenName(meter)) + (apart ? " (" + until + ')' : ""));
    put(Consumption, base::formatShort(figures.consumption, 1, true));
    put(Unit, std::string(factsOf(meter).unit));
    if (figures.change) put(Change, changeText(*figures.change));
    if (figures.perDay) put(PerDay, formatNumber(*figures.perDay, 2));
    putMoney(Net, figures.net);
    putMoney(Gross, figures.gross);
    if (figures.grossPerUnit) {
      put(PerUnit, formatNumber(*figures.grossPerUnit, 2));
      put(PerUnitUnit, std::string(priceUnit(meter)));
    }
    if (figures.advances) putMoney(Advances, *figures.advances);
    if (figures.balance) putMoney(Balance, *figures.balance);
  }

  void addRow() {
    grid_.appendRows(1);
    row_ = grid_.rows() - 1;
  }
  void put(int column, std::string text) { grid_.cell(row_, column).value = std::move(text); }
  void putMoney(int column, Money amount) { put(column, formatMoney(amount)); }
  void markBold() {
    for (int column = 0; column < kColumns; ++column) grid_.cell(row_, column).bold = true;
  }

  reports::Grid grid_{1, kColumns};
  int row_ = 0;
};

}  // namespace

std::string YearFigures::until() const {
  const auto most = std::max_element(year->months.begin(), year->months.end());
  return untilMonth(*year, kMeters[static_cast<std::size_t>(most - year->months.begin())]);
}

std::string YearFigures::until(Meter meter) const {
  return untilMonth(*year, meter);
}

YearFigures figuresOf(const Year& year, const Year* before) {
  YearFigures figures;
  figures.year = &year;
  for (const Meter meter : kMeters) {
    figures.meters[meter] = meterFigures(year, before, meter);
    figures.net += figures.meters[meter].net;
    figures.gross += figures.meters[meter].gross;
  }
  for (const Utility utility : yearbook::kUtilities) {
    MeterFigures& first = figures.meters[yearbook::metersOf(utility).front()];
    Money gross;
    for (const Meter meter : yearbook::metersOf(utility)) gross += figures.meters[meter].gross;
    first.advances = year.values.advanceSums[utility];
    first.balance = gross - *first.advances;
    figures.advances += *first.advances;
    figures.balance += *first.balance;
  }
  return figures;
}

std::vector<YearFigures> figuresOf(const YearFolder& folder) {
  std::vector<YearFigures> figures;
  for (const Year& year : folder.years) figures.push_back(figuresOf(year, folder.yearBefore(year)));
  return figures;
}

std::string standOf(const Year& year) {
  if (year.isEmpty()) return hasSettings(year.values) ? "noch keine Ablesung" : "leer";
  const std::string until = figuresOf(year, nullptr).until();
  const Money balance = balanceSoFar(year);
  const std::string words =
      formatMoney(balance) == "0,00" ? "ausgeglichen" : balanceText(balance, 2);
  return (until.empty() ? "vollständig" : until) + ", " + words;
}

std::string_view priceUnit(Meter meter) {
  return factsOf(meter).rule == yearbook::PriceRule::EuroPerUnit ? "Euro/m³" : "Cent/kWh";
}

std::string_view spokenName(Meter meter) {
  if (meter == Meter::Day) return "Strom, Tag";
  return meter == Meter::Night ? "Strom, Nacht" : factsOf(meter).name;
}

std::string changeText(double change) {
  const std::string percent = formatNumber(change * 100, 1);
  return (change > 0 && percent != "0,0" ? "+" : "") + percent + " %";
}

std::string startText(const Year& year) {
  switch (year.source) {
    case StartSource::StartDate:
      return "ab " + year.values.startDate;
    case StartSource::FileName:
      return "Jahr aus dem Namen";
    case StartSource::FileDate:
      break;
  }
  return "Jahr aus dem Dateidatum";
}

std::string summaryOf(const YearFolder& folder) {
  const std::size_t count = folder.years.size();
  std::string text = std::to_string(count) + (count == 1 ? " Jahr" : " Jahre");
  if (folder.empty.empty()) return text;
  const std::size_t empty = folder.empty.size();
  text += ", dazu " + std::to_string(empty) + (empty == 1 ? " leeres (" : " leere (");
  for (std::size_t i = 0; i < empty; ++i) text += (i > 0 ? ", " : "") + folder.empty[i];
  return text + ')';
}

std::vector<std::string> remarksOf(const YearFolder& folder) {
  std::vector<std::string> remarks;
  for (const DamagedYear& damaged : folder.damaged)
    remarks.push_back(damaged.file + " fehlt: " + damaged.reason);
  return remarks;
}

reports::Grid tableOf(const std::vector<YearFigures>& years) {
  TableWriter writer;
  for (auto year = years.rbegin(); year != years.rend(); ++year) writer.year(*year);
  return writer.finish();
}

reports::Grid csvTableOf(const std::vector<YearFigures>& years) {
  constexpr std::array kCsvHeadings = {"Jahr",  "Datei",  "Zähler",    "Monate", "Verbrauch",
                                       "Netto", "Brutto", "Abschläge", "Saldo"};
  reports::Grid grid(1, static_cast<int>(kCsvHeadings.size()));
  for (int column = 0; column < grid.columns(); ++column)
    grid.cell(0, column).value = kCsvHeadings[static_cast<std::size_t>(column)];
  for (const YearFigures& year : years) {
    for (const Meter meter : kMeters) {
      const MeterFigures& figures = year.meters[meter];
      grid.appendRows(1);
      const int row = grid.rows() - 1;
      int column = 0;
      const auto put = [&](auto value) { grid.cell(row, column++).value = std::move(value); };
      put(year.year->label());
      put(std::string(base::fileName(year.year->path)));
      put(std::string(factsOf(meter).name));
      put(static_cast<double>(figures.months));
      put(figures.consumption);
      put(figures.net);
      put(figures.gross);
      if (figures.advances) put(*figures.advances);
      if (figures.balance) put(*figures.balance);
    }
  }
  return grid;
}

}  // namespace analysis
