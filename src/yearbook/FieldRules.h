#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "yearbook/Meter.h"

// What the typed fields of the main window accept and how they show their values.
namespace yearbook {

enum class EntryKind {
  WholeKwh,          // start readings of electricity, free kWh
  WholeCubicMetres,  // start readings of water, waste water and gas
  Percent,           // VAT rates
  Price,             // per kWh or m³
  Amount,            // base fees and advance payments in euro
  Factor,            // kWh per m³
  Date,
};

// How the readings of a meter are typed.
EntryKind wholeUnitsOf(Meter meter);

// Of what is typed, pasted or dropped: the characters that may stand in the field, and whether a
// comma was among the refused ones that deserves a box.
struct FilteredEntry {
  std::string kept;
  bool commaRefused = false;
  bool operator==(const FilteredEntry&) const = default;
};
FilteredEntry filterEntry(EntryKind kind, std::string_view utf8);

// Is the number worth storing, or is it still on its way ("12.3" in a field for whole units may
// become "12.345", and is refused if it does not)?
bool isComplete(EntryKind kind, std::optional<double> value);

// "Bitte nur volle kWh eingeben!" or the same for m³; "" for fields that take fractions.
std::string_view wholeUnitsMessage(EntryKind kind);
inline constexpr std::string_view kStartReadingTitle = "Eingabe Anfangszählerstand";

// The numbers rest with at least and at most as many decimals.
struct Decimals {
  int least = 0;
  int most = 0;
};
Decimals decimalsOf(EntryKind kind);

// A date of the calendar, as "1.1.2010" or "01.01.2010".
bool isStartDate(std::string_view text);
// The same with the year written out: not a step on the way to another date, as "1.1.20" is.
bool isWholeStartDate(std::string_view text);

}  // namespace yearbook
