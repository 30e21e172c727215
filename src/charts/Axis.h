#pragma once

#include <string>
#include <vector>

namespace charts {

// The scale of values: from low to high in whole steps of 1, 2, 2.5 or 5 times a power of ten, zero
// always among them.
struct Axis {
  double low = 0;
  double high = 1;
  double step = 1;
  double divisor = 1;     // numbers on the axis are divided by it
  std::string scaleName;  // "Mio." for a divisor of a million; "" for 1

  int intervals() const;
  std::vector<double> ticks() const;
  // The number at a tick: "1.250", "0,5".
  std::string label(double tick) const;
  // 0 at low, 1 at high.
  double share(double value) const { return (value - low) / (high - low); }
};

// For values between these two, with at most so many intervals (at least 2). Equal or missing
// values give 0 to 10.
Axis makeAxis(double smallest, double largest, int maxIntervals);

// A second scale whose ticks lie at the same heights as those of the first, which must reach below
// (above) zero if the second one's values do.
Axis makeAlignedAxis(const Axis& first, double smallest, double largest);

// 0 to 100 (or -100 to 100) for shares.
Axis makePercentAxis(bool negatives);

}  // namespace charts
