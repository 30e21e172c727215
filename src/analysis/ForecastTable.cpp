#include <cmath>

#include "analysis/AllYears.h"
#include "analysis/Cost.h"
#include "analysis/Forecast.h"
#include "base/GermanNumber.h"
#include "reports/GridText.h"

namespace analysis {
namespace {

using base::formatNumber;

std::string whole(Money amount) {
  return formatNumber(amount.toDouble(), 0);
}

std::string_view tableName(Meter meter) {
  if (meter == Meter::Gas) return "den Gradtagzahlen";
  return utilityOf(meter) == Utility::Water ? "gleichen Tagen" : "dem Lastprofil H0";
}

std::string percent(double part) {
  return formatNumber(part * 100, 0) + " %";
}

std::string monthsText(int count) {
  if (count == 0) return "noch kein Monat";
  return std::to_string(count) + (count == 1 ? " Monat" : " Monate");
}

std::string sentence(const MeterForecast& forecast, Meter meter) {
  const Outlook& outlook = forecast.outlook;
  std::string text = std::string(spokenName(meter)) + ": ";
  if (outlook.monthsRead == kMonths) return text + "das ganze Jahr ist abgelesen.";
  text += monthsText(outlook.monthsRead) + " abgelesen; Jahreszeit ";
  if (forecast.ownYears.empty())
    return text + "aus " + std::string(tableName(meter)) + ", Höhe aus den abgelesenen Monaten.";
  std::string years;
  for (const std::string& label : forecast.ownYears) years += (years.empty() ? "" : ", ") + label;
  return text + "zu " + percent(outlook.ownSeason) + " aus " + years + ", sonst aus " +
         std::string(tableName(meter)) + "; Höhe zu " + percent(outlook.soFar) +
         " aus den abgelesenen Monaten, sonst aus den früheren Jahren.";
}

// Values of the columns that the table and the file for spreadsheets share.
double rounded(double consumption) {
  return std::round(consumption * 10) / 10;
}

std::string consumption(double value) {
  return formatNumber(value, 0);
}

}  // namespace

std::string balanceText(Money balance, int decimals) {
  const double euro = std::fabs(balance.toDouble());
  const char* word = balance > Money() ? "Nachzahlung " : "Guthaben ";
  return word + formatNumber(euro, decimals) + " Euro";
}

std::string headlineOf(const Forecast& forecast) {
  const bool any = forecast.net != Money() || forecast.gross != Money();
  if (!any) return "Noch keine Ablesung und kein früheres Jahr";
  const std::string euro = formatNumber(std::fabs(forecast.balance.toDouble()), 0) + " Euro ";
  const char* word = forecast.balance > Money() ? "Nachzahlung" : "Guthaben";
  return "Voraussichtlich " + euro + word + " für das ganze Jahr";
}

std::vector<std::string> basisOf(const Forecast& forecast) {
  std::vector<std::string> sentences;
  for (const Meter meter : kMeters)
    if (forecast.meters[meter]) sentences.push_back(sentence(*forecast.meters[meter], meter));
  if (sentences.empty()) return sentences;
  sentences.emplace_back(
      "Preise und Abschläge kommender Monate wie eingetragen, wo nichts eingetragen ist wie "
      "zuletzt; die Grundgebühr des ganzen Jahres steht beim ersten Zähler eines Versorgers. In "
      "acht von zehn Jahren liegt das Ergebnis in der Spanne.");
  return sentences;
}

reports::Grid tableOf(const Forecast& forecast) {
  constexpr std::array kHeadings = {"Zähler",      "Jahr",       "",
                                    "von",         "bis",        "Netto Euro",
                                    "Brutto Euro", "Saldo Euro", "Abschlag Euro"};
  reports::Grid grid(1, static_cast<int>(kHeadings.size()));
  grid.headRows = grid.fixedRows = 1;
  for (int column = 0; column < grid.columns(); ++column) {
    const bool text = column == 0 || column == 2;
    grid.column(column).alignment =
        text ? reports::Alignment::LeftCenter : reports::Alignment::RightCenter;
    grid.cell(0, column).value = kHeadings[static_cast<std::size_t>(column)];
    grid.cell(0, column).bold = true;
  }
  const auto addRow = [&](const std::vector<std::string>& texts, bool bold) {
    grid.appendRows(1);
    for (std::size_t column = 0; column < texts.size(); ++column) {
      reports::Cell& cell = grid.cell(grid.rows() - 1, static_cast<int>(column));
      cell.value = texts[column];
      cell.bold = bold;
      if (bold) cell.lineAbove = grid.gridColor;
    }
  };
  for (const Meter meter : kMeters) {
    const auto& part = forecast.meters[meter];
    if (!part) continue;
    std::vector<std::string> row = {
        std::string(spokenName(meter)),   consumption(part->outlook.year),
        std::string(factsOf(meter).unit), consumption(part->outlook.low),
        consumption(part->outlook.high),  base::formatMoney(part->net),
        base::formatMoney(part->gross)};
    if (isFirstMeter(meter)) {
      const UtilityForecast& utility = *forecast.utilities[utilityOf(meter)];
      row.push_back(base::formatMoney(utility.balance));
      row.push_back(utility.payment ? base::formatMoney(*utility.payment) : "");
    }
    addRow(row, false);
  }
  addRow({"Zusammen", "", "", "", "", base::formatMoney(forecast.net),
          base::formatMoney(forecast.gross), base::formatMoney(forecast.balance), ""},
         true);
  for (int column = 0; column < grid.columns(); ++column)
    grid.fitColumn(column, reports::plainTextWidth);
  return grid;
}

reports::Grid csvTableOf(const Forecast& forecast) {
  constexpr std::array kHeadings = {"Zähler", "Verbrauch", "von",   "bis",
                                    "Netto",  "Brutto",    "Saldo", "Abschlag"};
  reports::Grid grid(1, static_cast<int>(kHeadings.size()));
  for (int column = 0; column < grid.columns(); ++column)
    grid.cell(0, column).value = kHeadings[static_cast<std::size_t>(column)];
  for (const Meter meter : kMeters) {
    grid.appendRows(1);
    int column = 0;
    const auto put = [&](auto value) {
      grid.cell(grid.rows() - 1, column++).value = std::move(value);
    };
    put(std::string(factsOf(meter).name));
    const auto& part = forecast.meters[meter];
    if (!part) continue;
    put(rounded(part->outlook.year));
    put(rounded(part->outlook.low));
    put(rounded(part->outlook.high));
    put(part->net);
    put(part->gross);
    if (!isFirstMeter(meter)) continue;
    const UtilityForecast& utility = *forecast.utilities[utilityOf(meter)];
    put(utility.balance);
    if (utility.payment) put(*utility.payment);
  }
  return grid;
}

std::string textOf(const Forecast& forecast) {
  std::string text = headlineOf(forecast) + '\n';
  if (basisOf(forecast).empty()) return text;
  text += '\n' + reports::toPlainText(tableOf(forecast)) + '\n';
  for (const Utility utility : yearbook::kUtilities) {
    const auto& part = forecast.utilities[utility];
    if (!part) continue;
    text += std::string(factsOf(utility).name) + ": " + balanceText(part->balance) +
            " (Spanne: " + balanceText(part->balanceLow) + " bis " +
            balanceText(part->balanceHigh) + ")";
    if (part->payment)
      text += "; passender Abschlag ab " + part->from + ": " + whole(*part->payment) + " Euro (" +
              whole(*part->paymentLow) + " bis " + whole(*part->paymentHigh) + ")";
    text += '\n';
  }
  text += '\n';
  for (const std::string& line : basisOf(forecast)) text += line + '\n';
  return text;
}

}  // namespace analysis
