#pragma once

#include "yearbook/YearSession.h"

namespace yearbook {

// The advance payment of a month for all the months that follow it: one change, which says what
// they were before when any of them was another. Nothing happens where all are the same.
base::Result<void> fillAdvances(YearSession& session, Utility utility, int from);

}  // namespace yearbook
