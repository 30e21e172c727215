#include "MadeHouseholds.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace made {
namespace {

using analysis::Course;
using analysis::kMonths;
using analysis::Meter;
using analysis::PerMonth;
using std::chrono::January;

constexpr int kFirstYear = 2019;
constexpr int kAllMonths = kYears * kMonths;

constexpr std::size_t placeOf(int year, int month) {
  return static_cast<std::size_t>(year) * kMonths + static_cast<std::size_t>(month);
}

// The standard's distributions differ from library to library, its generator does not.
class Chance {
 public:
  explicit Chance(std::uint32_t seed) : source_(seed) {}
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(source_()) + 0.5) / 4294967296.0;
  }
  double deviation(double standard) {
    const double radius = std::sqrt(-2 * std::log(between(0, 1)));
    return standard * radius * std::cos(2 * std::numbers::pi * between(0, 1));
  }
  // Around 1, never below a tenth.
  double factor(double standard) { return std::max(0.1, 1 + deviation(standard)); }
  bool happens(double probability) { return between(0, 1) < probability; }
  int oneOf(int count) { return std::min(count - 1, static_cast<int>(between(0, count))); }

 private:
  std::mt19937 source_;
};

using AllMonths = std::array<double, kAllMonths>;

PerMonth<double> usual(Meter meter, int year) {
  return analysis::usualShares(meter, std::chrono::year(kFirstYear + year) / January);
}

// Consumption that follows the load profile `strength` times as much as the average does.
AllMonths electricity(Chance& chance, double perYear, double strength) {
  const int holiday = chance.happens(0.6) ? 6 + chance.oneOf(2) : -1;
  AllMonths months{};
  double level = perYear;
  for (int y = 0; y < kYears; ++y, level *= chance.factor(0.03)) {
    const auto profile = usual(Meter::Day, y);
    const auto even = usual(Meter::Water, y);
    for (int m = 0; m < kMonths; ++m) {
      const double share = even[m] + strength * (profile[m] - even[m]);
      const double away = m == holiday ? chance.between(0.6, 0.9) : 1;
      months[placeOf(y, m)] = level * share * away * chance.factor(0.05);
    }
  }
  return months;
}

AllMonths gas(Chance& chance) {
  const double heating = chance.between(600, 2000);
  const double hotWater = heating * chance.between(0.1, 0.25);
  AllMonths months{};
  double habit = 1;
  for (int y = 0; y < kYears; ++y, habit *= chance.factor(0.03)) {
    const double winter = chance.factor(0.12);
    const auto cold = usual(Meter::Gas, y);
    const auto even = usual(Meter::Water, y);
    for (int m = 0; m < kMonths; ++m)
      months[placeOf(y, m)] = habit * (heating * cold[m] * winter * chance.factor(0.15) +
                                       hotWater * even[m] * chance.factor(0.05));
  }
  return months;
}

// The garden's water does not come back as waste water where it has a meter of its own.
void water(Chance& chance, AllMonths& fresh, AllMonths& waste) {
  const double perYear = chance.between(32, 48) * (1 + chance.oneOf(5));
  const double garden = chance.happens(0.4) ? chance.between(5, 25) : 0;
  const bool gardenMeter = chance.happens(0.5);
  const int holiday = chance.happens(0.6) ? 6 + chance.oneOf(2) : -1;
  constexpr PerMonth<double> kGarden = {{{0, 0, 0, 0.05, 0.2, 0.25, 0.25, 0.2, 0.05, 0, 0, 0}}};
  double level = perYear;
  for (int y = 0; y < kYears; ++y, level *= chance.factor(0.03)) {
    const auto even = usual(Meter::Water, y);
    const double dryness = chance.factor(0.3);
    for (int m = 0; m < kMonths; ++m) {
      const auto at = placeOf(y, m);
      const double away = m == holiday ? chance.between(0.5, 0.85) : 1;
      const double indoors = level * even[m] * away * chance.factor(0.09);
      const double outdoors = garden * kGarden[m] * dryness * chance.factor(0.2);
      fresh[at] = indoors + outdoors;
      waste[at] = indoors + (gardenMeter ? 0 : outdoors);
    }
  }
}

}  // namespace

std::vector<Household> makeHouseholds(int count, std::uint32_t seed) {
  Chance chance(seed);
  std::vector<Household> households(static_cast<std::size_t>(count));
  for (Household& household : households) {
    yearbook::PerMeter<AllMonths> months;
    const double perYear = chance.between(1500, 4500);
    months[Meter::Day] = electricity(chance, perYear, chance.between(0.3, 1.3));
    months[Meter::Night] =
        electricity(chance, perYear * chance.between(0.25, 0.8), chance.between(0.6, 2.2));
    water(chance, months[Meter::Water], months[Meter::WasteWater]);
    months[Meter::Gas] = gas(chance);

    const auto changed = yearbook::kUtilities[static_cast<std::size_t>(chance.oneOf(3))];
    const int from = chance.oneOf(kAllMonths);
    const double factor =
        chance.happens(0.5) ? chance.between(0.65, 0.85) : chance.between(1.2, 1.5);
    for (const Meter meter : yearbook::metersOf(changed))
      for (int i = from; i < kAllMonths; ++i) months[meter][static_cast<std::size_t>(i)] *= factor;

    for (const Meter meter : yearbook::kMeters) {
      for (int y = 0; y < kYears; ++y) {
        Course course{std::chrono::year(kFirstYear + y) / January, {}};
        std::copy_n(&months[meter][placeOf(y, 0)], kMonths, course.months.begin());
        household.courses[meter].push_back(course);
      }
    }
  }
  return households;
}

}  // namespace made
