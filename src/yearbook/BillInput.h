#pragma once

#include "yearbook/FieldValues.h"
#include "yearbook/RecordSource.h"

// What the bill is worked out of: the month rows of a utility and the main window's values.
namespace yearbook {

ElectricityInput electricityInput(const RecordSource& rows, const FieldValues& values);
WaterInput waterInput(const RecordSource& rows, const FieldValues& values);
GasInput gasInput(const RecordSource& rows, const FieldValues& values);

}  // namespace yearbook
