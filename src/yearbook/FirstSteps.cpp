#include "yearbook/FirstSteps.h"

#include <algorithm>

namespace yearbook {
namespace {

struct Words {
  std::string_view name, advice;
};

constexpr PerFirstStep<Words> kWords = {{{
    {"Anfangsstände",
     "Den Stand vom ersten Tag des Jahres eintragen, bei jedem Zähler des Hauses."},
    {"Preise",
     "Den Preis je Einheit netto eintragen, ⇄ rechnet einen Bruttopreis um; für Wasser und "
     "Nachtstrom mit \"Preise je Monat\"."},
    {"Grundgebühr und MwSt",
     "Den Satz der MwSt und die Grundgebühr im Jahr netto eintragen, ⇄ rechnet auch sie um."},
    {"Abschläge", "Die monatlichen Abschläge eintragen, brutto, wie sie abgebucht werden."},
    {"Erste Ablesung", "Die Stände am Ende des ersten Monats eintragen."},
}}};

bool has(FirstStep step, const FieldValues& values, Meter meter) {
  const auto& months = values.consumptions[meter];
  switch (step) {
    case FirstStep::StartReadings:
      return orZero(values.startReadings[meter]) != 0;
    case FirstStep::Prices:
      return orZero(values.prices[meter]) != 0;
    case FirstStep::FeesAndVat:
      return orZero(values.baseFees[meter]) != Money() && orZero(values.vat[meter]) != 0;
    case FirstStep::Advances:
      return values.advanceSums[utilityOf(meter)] != Money();
    case FirstStep::FirstReading:
      break;
  }
  return std::any_of(months.begin(), months.end(), [](auto value) { return orZero(value) != 0; });
}

}  // namespace

std::string_view nameOf(FirstStep step) {
  return kWords[step].name;
}

std::string_view adviceFor(FirstStep step) {
  return kWords[step].advice;
}

namespace {

// The utility's meters that have the one and not the other; not a night meter that is hidden.
std::vector<Meter> metersWith(FirstStep done, FirstStep left, const FieldValues& values,
                              Utility utility) {
  std::vector<Meter> result;
  for (const Meter meter : metersOf(utility))
    if ((meter != Meter::Night || values.nightShown) && has(done, values, meter) &&
        !has(left, values, meter))
      result.push_back(meter);
  return result;
}

bool anyMeterHas(FirstStep step, const FieldValues& values, Utility utility) {
  const auto meters = metersOf(utility);
  return std::any_of(meters.begin(), meters.end(),
                     [&](Meter meter) { return has(step, values, meter); });
}

}  // namespace

std::vector<Meter> unpricedMeters(const FieldValues& values, Utility utility) {
  return metersWith(FirstStep::StartReadings, FirstStep::Prices, values, utility);
}

std::vector<Meter> unreadMeters(const FieldValues& values, Utility utility) {
  return metersWith(FirstStep::Prices, FirstStep::FirstReading, values, utility);
}

bool isDone(FirstStep step, const FieldValues& values, Utility utility) {
  if (step == FirstStep::Prices && !unpricedMeters(values, utility).empty()) return false;
  if (step == FirstStep::FirstReading && !unreadMeters(values, utility).empty()) return false;
  return anyMeterHas(step, values, utility);
}

bool isBegun(FirstStep step, const FieldValues& values) {
  return std::any_of(kMeters.begin(), kMeters.end(),
                     [&](Meter meter) { return has(step, values, meter); });
}

bool anyHas(FirstStep step, const FieldValues& values) {
  return std::any_of(kUtilities.begin(), kUtilities.end(),
                     [&](Utility utility) { return isDone(step, values, utility); });
}

bool hasAnything(const FieldValues& values, Utility utility) {
  return std::any_of(kFirstSteps.begin(), kFirstSteps.end(),
                     [&](FirstStep step) { return isDone(step, values, utility); });
}

std::vector<Utility> lackingIn(FirstStep step, const FieldValues& values) {
  const bool ofAll = step == FirstStep::StartReadings && !isBegun(FirstStep::Prices, values);
  std::vector<Utility> lacking;
  for (const Utility utility : kUtilities) {
    const bool asked = ofAll || hasAnything(values, utility);
    const bool through =
        step != FirstStep::FirstReading && anyMeterHas(FirstStep::FirstReading, values, utility);
    if (asked && !through && !isDone(step, values, utility)) lacking.push_back(utility);
  }
  return lacking;
}

PerFirstStep<bool> firstStepsDone(const FieldValues& values) {
  PerFirstStep<bool> done{};
  for (const FirstStep step : kFirstSteps)
    done[step] = anyHas(step, values) && lackingIn(step, values).empty();
  return done;
}

bool hasBegun(const FieldValues& values) {
  return anyHas(FirstStep::StartReadings, values);
}

namespace {

// The second meter by its own name where only that is left.
std::string_view nameOfLacking(FirstStep step, const FieldValues& values, Utility utility) {
  std::vector<Meter> left;
  if (step == FirstStep::Prices) left = unpricedMeters(values, utility);
  if (step == FirstStep::FirstReading) left = unreadMeters(values, utility);
  const bool ofOne = left.size() == 1 && left.front() != factsOf(utility).mainMeter;
  return ofOne ? factsOf(left.front()).name : factsOf(utility).name;
}

}  // namespace

std::string adviceFor(FirstStep step, const FieldValues& values) {
  std::string advice(adviceFor(step));
  if (!isBegun(step, values)) return advice;
  std::string left;
  for (const Utility utility : lackingIn(step, values))
    left.append(left.empty() ? " Noch ohne: " : ", ").append(nameOfLacking(step, values, utility));
  return left.empty() ? advice : advice + left + '.';
}

}  // namespace yearbook
