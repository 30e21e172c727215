#pragma once

#include "projection/Projection.h"
#include "yearbook/YearSession.h"

namespace projection {

// What the main window shows when the projection is opened; the start date as stored. The dates
// that are typed and the tick come from the projection's window.
ProjectionInput projectionInput(const yearbook::YearSession& year);

}  // namespace projection
