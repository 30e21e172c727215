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
    {"Preise", "Den Preis je Einheit netto eintragen; für Wasser mit \"Preise je Monat\"."},
    {"Grundgebühr und MwSt", "Die Grundgebühr im Jahr netto und den Satz der MwSt eintragen."},
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

bool isDone(FirstStep step, const FieldValues& values, Utility utility) {
  const auto meters = metersOf(utility);
  return std::any_of(meters.begin(), meters.end(),
                     [&](Meter meter) { return has(step, values, meter); });
}

PerFirstStep<bool> firstStepsDone(const FieldValues& values) {
  PerFirstStep<bool> done{};
  for (const FirstStep step : kFirstSteps)
    done[step] = std::any_of(kUtilities.begin(), kUtilities.end(),
                             [&](Utility utility) { return isDone(step, values, utility); });
  return done;
}

}  // namespace yearbook
