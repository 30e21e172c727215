#include "projection/Projection.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/DateText.h"
#include "yearbook/Bill.h"

namespace projection {
namespace {

constexpr int kYear = 365;
constexpr const char* kExample =
    "Bitte geben Sie ein gültiges Datum ein.\n"
    "Beispiel:  01.01.2009";

ProjectionFigures figuresOf(const ProjectionInput& input, int days) {
  ProjectionFigures figures;
  figures.days = days;
  // Without days there is no average: it stays 0, and the figures below follow from that.
  const double average = days == 0 ? 0 : input.consumption.value_or(0) / days;
  if (std::fabs(average) <= std::numeric_limits<float>::max())
    figures.averagePerDay = static_cast<float>(average);
  const double perDay = input.unitPrice.value_or(0) * figures.averagePerDay / 100;
  if (std::isfinite(perDay * kYear)) figures.pricePerDay = perDay;
  figures.netYear = figures.pricePerDay * kYear;
  const double gross = 100.0 + input.vatRate;
  figures.grossYear = figures.netYear / 100 * gross;
  if (input.addBaseFee) {
    const auto fee = yearbook::grossOf(input.baseFee, input.vatRate);
    figures.grossWithBaseFee = figures.grossYear + fee.toDouble();
  }
  return figures;
}

}  // namespace

int daysSoFar(base::Date start, base::Date reading) {
  using namespace std::chrono;
  const auto january = month(1);
  if (start.month() == january) return std::min(kYear, base::daysBetween(start, reading));
  // A start on 29 February ends on the 28th, which every year has.
  const bool leapDay = start.month() == month(2) && start.day() == day(29);
  const base::Date end{start.year() + years(1), start.month(), leapDay ? day(28) : start.day()};
  return std::min(kYear, kYear - base::daysBetween(reading, end));
}

ProjectionOutcome project(const ProjectionInput& input) {
  ProjectionOutcome outcome;
  const auto start = base::parseTypedDate(input.startDate);
  if (!start) {
    outcome.fault = ProjectionOutcome::Fault::StartDate;
    outcome.message = std::string("Start-Datum, ungültige Datumseingabe! ") + kExample;
    return outcome;
  }
  const auto reading = base::parseTypedDate(input.readingDate);
  if (!reading) {
    outcome.fault = ProjectionOutcome::Fault::ReadingDate;
    outcome.message = std::string("Datum Ablesung ungültige Datumseingabe! ") + kExample;
    return outcome;
  }
  const std::string month(base::kMonthNames[static_cast<unsigned>(start->month()) - 1]);
  if (month != input.startMonth) {
    outcome.fault = ProjectionOutcome::Fault::StartDate;
    outcome.startMonthDiffers = true;
    outcome.message = "Der Startmonat " + input.startMonth +
                      " stimmt nicht mit dem Monat des Start-Datums  " + month +
                      " (für die Hochrechnung) überein! \n"
                      "Passen Sie entweder  das Start-Datum oder den Startmonat entsprechend an.";
    return outcome;
  }
  outcome.figures = figuresOf(input, daysSoFar(*start, *reading));
  return outcome;
}

}  // namespace projection
