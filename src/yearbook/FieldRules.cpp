#include "yearbook/FieldRules.h"

#include <cmath>

#include "base/GermanDate.h"

namespace yearbook {
namespace {

bool isWholeUnits(EntryKind kind) {
  return kind == EntryKind::WholeKwh || kind == EntryKind::WholeCubicMetres;
}

std::string_view acceptedBy(EntryKind kind) {
  switch (kind) {
    case EntryKind::WholeKwh:
    case EntryKind::WholeCubicMetres:
      return "0123456789.-";
    case EntryKind::Percent:
    case EntryKind::Date:
      return "0123456789,.";
    case EntryKind::Price:
    case EntryKind::Amount:
    case EntryKind::Factor:
      break;
  }
  return "0123456789,.-";
}

}  // namespace

EntryKind wholeUnitsOf(Meter meter) {
  return utilityOf(meter) == Utility::Electricity ? EntryKind::WholeKwh
                                                  : EntryKind::WholeCubicMetres;
}

FilteredEntry filterEntry(EntryKind kind, std::string_view utf8) {
  FilteredEntry result;
  for (const char c : utf8) {
    if (acceptedBy(kind).find(c) != std::string_view::npos)
      result.kept += c;
    else if (c == ',')
      result.commaRefused = true;
  }
  return result;
}

bool isComplete(EntryKind kind, std::optional<double> value) {
  return !value || !isWholeUnits(kind) || std::trunc(*value) == *value;
}

std::string_view wholeUnitsMessage(EntryKind kind) {
  if (kind == EntryKind::WholeKwh) return "Bitte nur volle kWh eingeben!";
  if (kind == EntryKind::WholeCubicMetres) return "Bitte nur volle m³ eingeben!";
  return {};
}

Decimals decimalsOf(EntryKind kind) {
  switch (kind) {
    case EntryKind::Price:
    case EntryKind::Amount:
      return {2, 4};
    case EntryKind::Percent:
      return {0, 4};
    case EntryKind::Factor:
      return {0, 6};
    // A foreign file may hold fractions of a unit: they are shown, never typed.
    case EntryKind::WholeKwh:
    case EntryKind::WholeCubicMetres:
    case EntryKind::Date:
      break;
  }
  return {0, 3};
}

bool isStartDate(std::string_view text) {
  return base::parseDate(text).has_value();
}

bool isWholeStartDate(std::string_view text) {
  const auto lastPoint = text.find_last_of('.');
  const auto digits = text.find_last_of("0123456789");
  return isStartDate(text) && lastPoint != std::string_view::npos && digits == lastPoint + 4;
}

}  // namespace yearbook
