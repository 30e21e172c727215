#include "reports/YearResults.h"

#include <algorithm>

namespace reports {
namespace {

using base::formatMoney;
using base::Money;
using yearbook::kMonths;

struct Figures {
  Money balance, gross, advances, fitting;
  int monthsCovered = 0;
  std::string until;  // "Oktober" in a year that is under way, else ""
};

// The whole of a year that is complete.
OverviewInput asOfLastReading(OverviewInput input) {
  for (yearbook::Meter meter : yearbook::kMeters)
    if (auto& fee = input.baseFees[meter])
      fee = yearbook::baseFeeUntil(*fee, input.monthsCovered[utilityOf(meter)]);
  for (Utility utility : yearbook::kUtilities)
    input.advances[utility] = input.advancesCovered[utility];
  return input;
}

PerUtility<Figures> figuresOf(const OverviewInput& input) {
  const OverviewInput soFar = asOfLastReading(input);
  const OverviewTotals totals = overviewTotals(soFar);
  PerUtility<Figures> figures;
  for (Utility utility : yearbook::kUtilities) {
    Figures& part = figures[utility];
    part.monthsCovered = input.monthsCovered[utility];
    if (part.monthsCovered == 0) continue;
    part.balance = totals[utility].balance;
    part.gross = totals[utility].gross;
    part.advances = yearbook::orZero(soFar.advances[utility]);
    part.fitting = Money::roundHalfEven(part.gross.toDouble() / part.monthsCovered);
    if (part.monthsCovered < kMonths)
      part.until = input.months[utility][part.monthsCovered - 1].month;
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
         " von 12 Monaten, Abschläge und Grundgebühr anteilig";
}

// Without its consumption the result looks better than it is. Where nothing is read, that is said.
std::string doubtOf(const Figures& figures, const std::vector<yearbook::Meter>& unread) {
  if (figures.monthsCovered == 0 || unread.empty()) return {};
  return std::string(factsOf(unread.front()).name) + " ist noch nicht abgelesen.";
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
    result.headline = (figures.until.empty() ? "" : "Bis " + figures.until + ": ") +
                      balanceWords(figures, " Euro");
    if (result.kind == YearResult::Kind::Empty) continue;
    result.sum =
        formatMoney(figures.gross) + " brutto − " + formatMoney(figures.advances) + " Abschläge";
    result.fittingAdvance = figures.fitting;
    result.fitting = (figures.until.empty() ? "Passender Abschlag: " : "Kosten bisher: ") +
                     formatMoney(figures.fitting) + " Euro im Monat";
    result.standing = standingOf(figures);
    result.doubt = doubtOf(figures, input.unread[utility]);
  }
  return results;
}

bool isUnderWay(const PerUtility<YearResult>& results) {
  return std::any_of(results.begin(), results.end(),
                     [](const YearResult& result) { return !result.standing.empty(); });
}

std::vector<std::string> plainSummary(const OverviewInput& input) {
  const PerUtility<Figures> all = figuresOf(input);
  std::vector<std::string> sentences;
  sentences.reserve(yearbook::kUtilities.size());
  for (Utility utility : yearbook::kUtilities) {
    const Figures& figures = all[utility];
    std::string text = nameOf(utility) + ": " +
                       (figures.until.empty() ? "" : "bis " + figures.until + " ") +
                       balanceWords(figures, " €");
    if (figures.monthsCovered > 0)
      text += (figures.until.empty() ? "; passender Abschlag wäre " : "; Kosten bisher ") +
              formatMoney(figures.fitting) + " € im Monat";
    if (const std::string standing = standingOf(figures); !standing.empty())
      text.append(" (").append(standing).append(")");
    text.append(".");
    if (const std::string doubt = doubtOf(figures, input.unread[utility]); !doubt.empty())
      text.append(" ").append(doubt);
    sentences.push_back(text);
  }
  return sentences;
}

}  // namespace reports
