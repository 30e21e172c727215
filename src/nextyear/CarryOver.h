#pragma once

#include <array>
#include <string>
#include <vector>

#include "readings/BaseFees.h"
#include "yearbook/YearSession.h"

// A new year begins with what the one before ended with.
namespace nextyear {

using base::Money;
using yearbook::Meter;
using yearbook::PerMeter;
using yearbook::PerUtility;
using yearbook::Utility;
using yearbook::YearSession;

// What can be taken over by itself.
enum class Group { StartReadings, Prices, Advances, FeesAndTaxes, BeginAndNight };
inline constexpr std::array kGroups = {Group::StartReadings, Group::Prices, Group::Advances,
                                       Group::FeesAndTaxes, Group::BeginAndNight};
std::string_view nameOf(Group group);

enum class Advances {
  AsLast,      // of the last month
  AsConsumed,  // a twelfth of the year's bill
};

struct FromMonth {
  double value = 0;
  std::string source;  // "Stand Dezember", "Preis im Dezember"
};

// Pure: what the next year would get. Missing values are not there to be taken over.
struct Plan {
  std::string from;  // the year's name
  PerMeter<std::optional<FromMonth>> startReadings;
  PerMeter<std::optional<FromMonth>> prices;
  PerUtility<std::optional<Money>> lastAdvances;
  PerUtility<std::optional<Money>> fittingAdvances;  // none for a year that is not finished
  PerMeter<std::optional<Money>> baseFees;
  PerMeter<std::optional<readings::MonthlyFees>> monthlyFees;  // those that have a list
  PerMeter<std::optional<double>> vat;
  std::optional<double> gasFactor;
  std::optional<double> freeKwh;
  bool nightShown = true;
  PerUtility<int> startMonths{};
  std::string lastStartDate;
  std::string startDate;  // a year later; "" when there was none
  // Readings in the book from the year's last day on, as they are in the next year's.
  std::string bookText;
  // "Oktober ist der letzte Stand (Gas)."
  std::vector<std::string> notes;

  bool hasFittingAdvances() const;
  const std::optional<Money>& advance(Utility utility, Advances kind) const;
};
base::Result<Plan> planNextYear(const YearSession& year);

// A line of the preview.
struct Line {
  Group group = Group::StartReadings;
  std::optional<Meter> meter;
  std::string name;
  std::string from, to;  // as shown
  std::string unit;
  std::string source;
};
std::vector<Line> preview(const Plan& plan, Advances advances);

struct Choice {
  std::array<bool, kGroups.size()> groups = {true, true, true, true, true};
  Advances advances = Advances::AsConsumed;
  bool has(Group group) const { return groups[static_cast<std::size_t>(group)]; }
};

// Nothing has been typed into the year yet: no reading, no start reading, no price.
bool isEmpty(const YearSession& year);

// Stores it in the other year as one step.
base::Result<void> carryOver(YearSession& target, const Plan& plan, const Choice& choice);

}  // namespace nextyear
