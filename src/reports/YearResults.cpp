#include "reports/YearResults.h"

namespace reports {
namespace {

using base::formatMoney;
using base::Money;
using yearbook::kMonths;

struct Figures {
  Money balance, gross, fitting;
  int monthsCovered;
};

PerUtility<Figures> figuresOf(const OverviewInput& input) {
  OverviewInput withoutFees = input;
  withoutFees.baseFees = {};
  const OverviewTotals totals = overviewTotals(input);
  const OverviewTotals consumption = overviewTotals(withoutFees);
  PerUtility<Figures> figures;
  for (Utility utility : yearbook::kUtilities) {
    const Money gross = totals[utility].gross;
    const Money used = consumption[utility].gross;
    const int months = input.monthsCovered[utility];
    const double fitting =
        months == 0 ? 0 : used.toDouble() / months + (gross.toDouble() - used.toDouble()) / kMonths;
    figures[utility] = {totals[utility].balance, gross, Money::roundHalfEven(fitting), months};
  }
  return figures;
}

YearResult::Kind kindOf(const Figures& figures) {
  if (figures.monthsCovered == 0) return YearResult::Kind::Empty;
  if (formatMoney(figures.balance) == "0,00") return YearResult::Kind::Even;
  return figures.balance > Money() ? YearResult::Kind::Payment : YearResult::Kind::Credit;
}

std::string balanceWords(const Figures& figures, const std::string& euro) {
  switch (kindOf(figures)) {
    case YearResult::Kind::Empty:
      return "noch keine Ablesungen";
    case YearResult::Kind::Even:
      return "ausgeglichen";
    case YearResult::Kind::Payment:
      return "Nachzahlung " + formatMoney(figures.balance) + euro;
    case YearResult::Kind::Credit:
      break;
  }
  return "Guthaben " + formatMoney(-figures.balance) + euro;
}

std::string standingOf(const Figures& figures) {
  if (figures.monthsCovered == 0 || figures.monthsCovered == kMonths) return {};
  return "Stand: " + std::to_string(figures.monthsCovered) +
         " von 12 Monaten, Grundgebühr des ganzen Jahres, alle eingetragenen Abschläge";
}

std::string nameOf(Utility utility) {
  return std::string(factsOf(utility).name);
}

}  // namespace

PerUtility<YearResult> yearResults(const OverviewInput& input) {
  const PerUtility<Figures> all = figuresOf(input);
  PerUtility<YearResult> results;
  for (Utility utility : yearbook::kUtilities) {
    const Figures& figures = all[utility];
    YearResult& result = results[utility];
    result.kind = kindOf(figures);
    result.name = utility == Utility::Water ? "Wasser und Abwasser" : nameOf(utility);
    result.headline = balanceWords(figures, " Euro");
    if (result.kind == YearResult::Kind::Empty) continue;
    result.sum = formatMoney(figures.gross) + " brutto − " +
                 formatMoney(yearbook::orZero(input.advances[utility])) + " Abschläge";
    result.fittingAdvance = figures.fitting;
    result.fitting = "Passender Abschlag: " + formatMoney(figures.fitting) + " Euro im Monat";
    result.standing = standingOf(figures);
  }
  return results;
}

std::vector<std::string> plainSummary(const OverviewInput& input) {
  const PerUtility<Figures> all = figuresOf(input);
  std::vector<std::string> sentences;
  sentences.reserve(yearbook::kUtilities.size());
  for (Utility utility : yearbook::kUtilities) {
    const Figures& figures = all[utility];
    std::string text = nameOf(utility) + ": " + balanceWords(figures, " €");
    if (figures.monthsCovered > 0)
      text += "; passender Abschlag wäre " + formatMoney(figures.fitting) + " € im Monat";
    if (const std::string standing = standingOf(figures); !standing.empty())
      text.append(" (").append(standing).append(")");
    sentences.push_back(text.append("."));
  }
  return sentences;
}

}  // namespace reports
