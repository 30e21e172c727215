#include "nextyear/CarryOver.h"

#include <algorithm>
#include <cmath>

#include "base/DateText.h"
#include "base/Paths.h"
#include "readingbook/BookOfYear.h"
#include "reports/YearReport.h"
#include "reports/YearResults.h"
#include "yearbook/StartMonthShift.h"

namespace nextyear {
namespace {

using base::Result;
using yearbook::kMonths;
using yearbook::orZero;
using yearbook::YearRows;

std::optional<double> unlessZero(std::optional<double> value) {
  return orZero(value) == 0 ? std::nullopt : value;
}
std::optional<Money> unlessZero(std::optional<Money> value) {
  return orZero(value) == Money() ? std::nullopt : value;
}

// Looks at a year from its end.
class Planner {
 public:
  Planner(const YearSession& year, const readingbook::ReadingBook& book)
      : year_(year), book_(book), calendarYear_(readingbook::calendarYear(year, book.firstDay())) {}

  Plan plan() {
    const yearbook::FieldValues& values = year_.values();
    plan_.from = base::baseName(base::fileName(year_.path()));
    for (Meter meter : yearbook::kMeters) {
      startReading(meter);
      price(meter);
      plan_.baseFees[meter] = unlessZero(values.baseFees[meter]);
      plan_.vat[meter] = values.vat[meter];
      monthlyFees(meter);
    }
    for (Utility utility : yearbook::kUtilities) advances(utility);
    plan_.gasFactor = unlessZero(values.gasFactor);
    plan_.freeKwh = unlessZero(values.freeKwh);
    plan_.nightShown = values.nightShown;
    plan_.startMonths = values.startMonths;
    if (const auto date = base::parseDate(values.startDate)) {
      base::Date next = *date + std::chrono::years(1);
      if (!next.ok()) next = next.year() / next.month() / std::chrono::last;
      plan_.lastStartDate = base::formatDate(*date);
      plan_.startDate = base::formatDate(next);
    }
    plan_.bookText = nextBook_.text();
    return std::move(plan_);
  }

 private:
  std::string monthOf(Meter meter, int position) const {
    return year_.monthNames(utilityOf(meter))[position];
  }

  void startReading(Meter meter) {
    const readingbook::StoredMeter stored = readingbook::storedMeter(year_, meter);
    int last = kMonths - 1;
    while (last >= 0 && stored.readings[last] == 0) --last;
    auto& found = plan_.startReadings[meter];
    if (last >= 0) {
      const bool changed = last == stored.change.position;
      found = FromMonth{changed ? stored.change.newStart : stored.readings[last],
                        (changed ? "Neuer Zähler, " : "Stand ") + monthOf(meter, last)};
    } else if (stored.startReading != 0) {
      found = FromMonth{stored.startReading, "Anfangsstand"};
    }
    if (calendarYear_) fromBook(meter, last);
    if (found && last < kMonths - 1 && !finished_[meter])
      note(last >= 0 ? monthOf(meter, last) + " ist der letzte Stand"
                     : std::string("Noch kein Monat ist abgelesen"),
           std::string(factsOf(meter).name));
  }

  // Meters of which the same is to be said share a sentence.
  void note(const std::string& what, const std::string& meter) {
    for (std::string& known : plan_.notes)
      if (known.starts_with(what)) {
        known.insert(known.size() - 2, ", " + meter);
        return;
      }
    plan_.notes.push_back(what + " (" + meter + ").");
  }

  // What the book knows of the year's last day counts where the last month has no reading; what
  // was read from that day on is in the next year's book as well.
  void fromBook(Meter meter, int last) {
    const base::Date end = readingbook::daysOf(year_, meter, *calendarYear_).end(kMonths - 1);
    const auto& entries = book_.of(meter);
    finished_[meter] = last == kMonths - 1;
    const auto ends = dayEnds(entries, readingbook::spreadOf(meter), std::array{end});
    if (!finished_[meter] && ends[0]) {
      plan_.startReadings[meter] =
          FromMonth{static_cast<double>(ends[0]->meter), "Ablesebuch, " + base::formatDate(end)};
      finished_[meter] = true;
    }
    for (readingbook::Entry entry : entries) {
      if (entry.date < end) continue;
      if (entry.date == end) {
        entry.reading = entry.atEnd();
        entry.newStart.reset();
      }
      base::ignore(nextBook_.add(meter, entry), "what stood in one book can stand in another");
    }
  }

  void price(Meter meter) {
    const auto& rows = year_.rows().of(meter);
    for (int k = kMonths - 1; k >= 0 && !plan_.prices[meter]; --k)
      if (const auto price = unlessZero(rows.number(k, *factsOf(meter).price)))
        plan_.prices[meter] = FromMonth{*price, "Preis im " + monthOf(meter, k)};
  }

  void monthlyFees(Meter meter) {
    if (!factsOf(meter).baseFee) return;
    const std::string path = readings::baseFeePath(year_, meter);
    if (year_.files().exists(path))
      plan_.monthlyFees[meter] = readings::readBaseFees(year_.files(), path);
  }

  void advances(Utility utility) {
    const yearbook::FieldValues& values = year_.values();
    auto& last = plan_.lastAdvances[utility];
    for (int k = kMonths - 1; k >= 0 && !last; --k) last = unlessZero(values.advances[utility][k]);
    const Meter meter = factsOf(utility).mainMeter;
    const bool whole =
        orZero(year_.rows().of(meter).number(kMonths - 1, *factsOf(meter).reading)) > 0;
    const auto fitting =
        reports::yearResults(reports::overviewInput(year_))[utility].fittingAdvance;
    if (!whole || !fitting) return;
    constexpr int kCents = 100;
    const double cents = std::round(fitting->toDouble() * kCents);
    plan_.fittingAdvances[utility] = unlessZero(Money::tryRoundHalfEven(cents / kCents));
  }

  const YearSession& year_;
  const readingbook::ReadingBook& book_;
  std::optional<int> calendarYear_;
  readingbook::ReadingBook nextBook_;
  PerMeter<bool> finished_{};
  Plan plan_;
};

// Puts a plan into the rows of another year.
class Writer {
 public:
  Writer(YearRows& rows, const Plan& plan, const Choice& choice)
      : rows_(rows), plan_(plan), choice_(choice) {}

  Result<void> write() {
    if (choice_.has(Group::BeginAndNight)) begin();
    if (choice_.has(Group::FeesAndTaxes)) feesAndTaxes();
    for (Meter meter : yearbook::kMeters) {
      const yearbook::MeterFacts& facts = factsOf(meter);
      const auto& start = plan_.startReadings[meter];
      if (choice_.has(Group::StartReadings) && start) setting(*facts.startReading, start->value);
      if (choice_.has(Group::Prices) && plan_.prices[meter]) price(meter);
    }
    if (choice_.has(Group::Advances)) advances();
    return done_;
  }

 private:
  template <class Step>
  void then(const Step& step) {
    if (done_) done_ = step();
  }
  void setting(const yearbook::Field& field, std::optional<double> value) {
    if (value) then([&] { return rows_.adoZStaende.setNumber(0, field, value); });
  }

  void begin() {
    for (Utility utility : yearbook::kUtilities) {
      const int month = plan_.startMonths[utility];
      if (month < 1 || month > kMonths) continue;
      then([&] { return shiftRows(rows_.of(utility), month); });
    }
    if (!plan_.startDate.empty())
      then([&] {
        return rows_.adoZStaende.setText(0, yearbook::zstaende::startDate, plan_.startDate);
      });
    then([&] {
      return rows_.adoZStaende.setText(0, yearbook::zstaende::nightDisplay,
                                       plan_.nightShown ? "on" : "off");
    });
  }

  void feesAndTaxes() {
    for (Meter meter : yearbook::kMeters) {
      const yearbook::MeterFacts& facts = factsOf(meter);
      if (facts.baseFee && plan_.baseFees[meter])
        then([&] { return rows_.adoZStaende.setMoney(0, *facts.baseFee, plan_.baseFees[meter]); });
      setting(*facts.vat, plan_.vat[meter]);
    }
    setting(yearbook::zstaende::gasFactor, plan_.gasFactor);
    setting(yearbook::zstaende::freeKwh, plan_.freeKwh);
  }

  void price(Meter meter) {
    const double factor = orZero(rows_.adoZStaende.number(0, yearbook::zstaende::gasFactor));
    for (int k = 0; k < kMonths; ++k) {
      then([&] {
        return rows_.of(meter).setNumber(k, *factsOf(meter).price, plan_.prices[meter]->value);
      });
      then([&] { return rows_.price(meter, k, factor); });
    }
  }

  void advances() {
    for (Utility utility : yearbook::kUtilities)
      if (const auto& advance = plan_.advance(utility, choice_.advances))
        for (int k = 0; k < kMonths; ++k)
          then([&] { return rows_.of(utility).setMoney(k, *factsOf(utility).advance, advance); });
  }

  YearRows& rows_;
  const Plan& plan_;
  const Choice& choice_;
  Result<void> done_;
};

}  // namespace

bool Plan::hasFittingAdvances() const {
  return std::any_of(fittingAdvances.begin(), fittingAdvances.end(),
                     [](const auto& advance) { return advance.has_value(); });
}

const std::optional<Money>& Plan::advance(Utility utility, Advances kind) const {
  const auto& fitting = fittingAdvances[utility];
  return kind == Advances::AsConsumed && fitting ? fitting : lastAdvances[utility];
}

Result<Plan> planNextYear(const YearSession& year) {
  const auto book = readingbook::readBook(year);
  if (!book) return base::Failure(book.error());
  return Planner(year, *book).plan();
}

bool isEmpty(const YearSession& year) {
  for (Meter meter : yearbook::kMeters) {
    const yearbook::MeterFacts& facts = factsOf(meter);
    if (orZero(year.rows().adoZStaende.number(0, *facts.startReading)) != 0) return false;
    for (int k = 0; k < kMonths; ++k)
      for (const yearbook::Field* field : {facts.reading, facts.price})
        if (orZero(year.rows().of(meter).number(k, *field)) != 0) return false;
  }
  return true;
}

Result<void> carryOver(YearSession& target, const Plan& plan, const Choice& choice) {
  yearbook::Change step{"Aus " + plan.from + " übernommen"};
  if (choice.has(Group::FeesAndTaxes))
    for (Meter meter : yearbook::kMeters)
      if (const auto& fees = plan.monthlyFees[meter])
        step.sides.push_back({readings::baseFeePath(target, meter), readings::baseFeeLine(*fees)});
  const std::string book = readingbook::bookPath(target.path());
  if (choice.has(Group::StartReadings) && !plan.bookText.empty() && !target.files().exists(book))
    step.sides.push_back({book, plan.bookText});
  return target.transact(step, [&](YearRows& rows) { return Writer(rows, plan, choice).write(); });
}

}  // namespace nextyear
