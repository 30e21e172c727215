#pragma once

#include <string>
#include <vector>

#include "reports/OverviewBuilder.h"

namespace reports {

// How a utility's year stands: what is to be paid or comes back, and the monthly payment that would
// have balanced it. A year that is under way stands as of its last month read: payments until then
// and as many twelfths of the base fee, whereas the table has all that has been entered.
struct YearResult {
  enum class Kind { Empty, Even, Payment, Credit };
  Kind kind = Kind::Empty;
  std::string name;      // "Strom"
  std::string headline;  // "Nachzahlung 25,99 Euro", "Bis März: Guthaben 3,10 Euro",
                         // "noch keine Ablesungen"
  // Empty without readings.
  std::optional<base::Money> fittingAdvance;
  std::string sum;  // "1.657,99 brutto − 1.632,00 Abschläge"
  // "Passender Abschlag: 138,17 Euro im Monat"; "Kosten bisher: ..." while the year is under way,
  // for what the months to come cost is another matter.
  std::string fitting;
  // "Abwasser ist noch nicht abgelesen.", where another meter of the utility is.
  std::string doubt;
  // Empty for a whole year, too.
  std::string standing;  // "Stand: 3 von 12 Monaten, Abschläge und Grundgebühr anteilig"
};

PerUtility<YearResult> yearResults(const OverviewInput& input);
// True when one of them stands as of its last reading.
bool isUnderWay(const PerUtility<YearResult>& results);

// The same as one sentence per utility (electricity, water, gas):
// "Strom: Nachzahlung 25,99 €; passender Abschlag wäre 138,17 € im Monat."
std::vector<std::string> plainSummary(const OverviewInput& input);

}  // namespace reports
