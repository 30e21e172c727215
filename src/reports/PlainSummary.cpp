#include "reports/PlainSummary.h"

namespace reports {
namespace {

std::string sentence(const std::string& name, const UtilityTotals& totals, int monthsRead) {
  if (monthsRead <= 0) return name + ": noch keine Ablesungen.";
  const std::string balance = base::formatMoney(totals.balance);
  std::string text = name + ": ";
  if (balance == "0,00")
    text += "ausgeglichen";
  else if (totals.balance > base::Money())
    text += "Nachzahlung " + balance + " €";
  else
    text += "Guthaben " + base::formatMoney(-totals.balance) + " €";
  const auto fitting = base::Money::roundHalfEven(totals.gross.toDouble() / monthsRead);
  return text + "; passender Abschlag wäre " + base::formatMoney(fitting) + " € im Monat.";
}

}  // namespace

std::vector<std::string> plainSummary(const OverviewInput& input) {
  const OverviewTotals totals = overviewTotals(input);
  std::vector<std::string> sentences;
  sentences.reserve(yearbook::kUtilities.size());
  for (Utility utility : yearbook::kUtilities)
    sentences.push_back(
        sentence(std::string(factsOf(utility).name), totals[utility], input.monthsRead[utility]));
  return sentences;
}

}  // namespace reports
