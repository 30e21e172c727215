#pragma once

#include <span>

#include "yearbook/FieldValues.h"

namespace yearbook {

// Which columns "Alle Werte löschen" sets to 0. Month names and remarks stay, and so do the
// settings of waste water, of the flat rate and of the display.
struct Clearing {
  std::span<const Field* const> monthFields;
  std::span<const Field* const> settings;
};
const Clearing& clearingOf(Utility utility);

// Shows the utility's fields empty, waste water with water.
void emptyFields(FieldValues& values, Utility utility);

}  // namespace yearbook
