#include "charts/Axis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/GermanNumber.h"

namespace charts {
namespace {

// Beyond this a household's file is damaged; the sums of a stack must still be finite.
constexpr double kLargest = 1e300;

constexpr std::array<double, 4> kMantissas = {1, 2, 2.5, 5};

// The smallest round number that is not below the wanted one.
double roundStep(double wanted) {
  const double power = std::pow(10.0, std::floor(std::log10(wanted)));
  for (const double mantissa : kMantissas)
    if (mantissa * power >= wanted * (1 - 1e-9)) return mantissa * power;
  return 10 * power;
}

int stepsBelow(double smallest, double step) {
  return smallest < 0 ? static_cast<int>(std::ceil(-smallest / step - 1e-9)) : 0;
}
int stepsAbove(double largest, double step) {
  return largest > 0 ? static_cast<int>(std::ceil(largest / step - 1e-9)) : 0;
}

void nameScale(Axis& axis) {
  struct Scale {
    double from;
    const char* name;
  };
  static constexpr std::array<Scale, 3> kScales = {{{1e12, "Bio."}, {1e9, "Mrd."}, {1e6, "Mio."}}};
  const double magnitude = std::max(-axis.low, axis.high);
  for (const Scale& scale : kScales) {
    if (magnitude < scale.from) continue;
    axis.divisor = scale.from;
    axis.scaleName = scale.name;
    return;
  }
}

Axis axisOf(double step, int below, int above) {
  Axis axis;
  axis.step = step;
  axis.low = -step * below;
  axis.high = step * above;
  nameScale(axis);
  return axis;
}

}  // namespace

int Axis::intervals() const {
  return static_cast<int>(std::lround((high - low) / step));
}

std::vector<double> Axis::ticks() const {
  std::vector<double> values;
  const int below = static_cast<int>(std::lround(-low / step));
  for (int i = 0; i <= intervals(); ++i) values.push_back((i - below) * step);
  return values;
}

std::string Axis::label(double tick) const {
  const double value = tick / divisor, spacing = step / divisor;
  if (std::max(-low, high) / divisor >= 1e6) {
    const int exponent =
        tick == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::fabs(tick)) + 1e-9));
    if (exponent == 0) return base::formatShort(tick, 2);
    return base::formatShort(tick / std::pow(10.0, exponent), 2) + "E" + std::to_string(exponent);
  }
  int decimals = 0;
  for (double scaled = spacing;
       decimals < 9 && std::fabs(scaled - std::round(scaled)) > 1e-6 * scaled; scaled *= 10)
    ++decimals;
  return base::formatNumber(value, decimals);
}

Axis makeAxis(double smallest, double largest, int maxIntervals) {
  smallest = std::clamp(std::min(smallest, 0.0), -kLargest, 0.0);
  largest = std::clamp(std::max(largest, 0.0), 0.0, kLargest);
  const double range = largest - smallest;
  if (!(range > 1e-9)) return maxIntervals < 5 ? axisOf(5, 0, 2) : axisOf(2, 0, 5);
  const int limit = std::max(maxIntervals, 2);
  double step = roundStep(range / limit);
  while (stepsBelow(smallest, step) + stepsAbove(largest, step) > limit)
    step = roundStep(step * 1.01);
  return axisOf(step, stepsBelow(smallest, step), stepsAbove(largest, step));
}

Axis makeAlignedAxis(const Axis& first, double smallest, double largest) {
  smallest = std::clamp(std::min(smallest, 0.0), -kLargest, 0.0);
  largest = std::clamp(std::max(largest, 0.0), 0.0, kLargest);
  const int below = static_cast<int>(std::lround(-first.low / first.step));
  const int above = first.intervals() - below;
  double wanted = 1e-9;
  if (above > 0) wanted = std::max(wanted, largest / above);
  if (below > 0) wanted = std::max(wanted, -smallest / below);
  if (!(wanted > 1e-9)) wanted = 2;
  return axisOf(roundStep(wanted), below, above);
}

Axis makePercentAxis(bool negatives) {
  return axisOf(25, negatives ? 4 : 0, 4);
}

}  // namespace charts
