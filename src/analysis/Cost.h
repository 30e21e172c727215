#pragma once

#include "analysis/Year.h"

namespace analysis {

struct Cost {
  Money net, gross;
  Cost& operator+=(const Cost& other) {
    net += other.net;
    gross += other.gross;
    return *this;
  }
};

bool isFirstMeter(Meter meter);

// What a meter's amount costs, taxed at the meter's rate. A utility's base fees, each at its own
// rate, go with its first meter.
Cost costOf(const yearbook::FieldValues& values, Meter meter, Money amount);

// A consumption in the unit of its price: gas in kWh.
double pricedUnits(const yearbook::FieldValues& values, Meter meter, double consumption);

}  // namespace analysis
