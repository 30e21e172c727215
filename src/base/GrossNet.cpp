#include "base/GrossNet.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace base {
namespace {

constexpr double kUnit = 10000;  // four decimals of a figure, and of a percentage
constexpr double kMost = 30e6;

}  // namespace

std::optional<double> netOf(double gross, std::optional<double> vatPercent, FeeShare share) {
  if (!vatPercent || !(*vatPercent > -100) || !(*vatPercent < kMost)) return std::nullopt;
  if (!(std::fabs(gross) <= kMost)) return std::nullopt;
  constexpr std::int64_t kWhole = 100 * static_cast<std::int64_t>(kUnit);
  const std::int64_t above = std::llround(gross * kUnit) * kWhole * share.times;
  const std::int64_t below = (kWhole + std::llround(*vatPercent * kUnit)) * share.parts;
  if (below <= 0) return std::nullopt;
  const std::int64_t rounded = (2 * std::abs(above) + below) / (2 * below);
  return static_cast<double>(above < 0 ? -rounded : rounded) / kUnit;
}

}  // namespace base
