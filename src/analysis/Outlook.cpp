#include "analysis/Outlook.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "yearbook/Season.h"

namespace analysis {
namespace {

// Found on made households and confirmed on others (docs/prognose.md).
constexpr yearbook::PerMeter<Weights> kWeights = {{{
    {3.0, 0.30, 0.3, 0.06, 0.07},
    {0.6, 0.22, 0.3, 0.06, 0.07},
    {0.6, 0.30, 0.3, 0.10, 0.10},
    {1.5, 0.30, 0.3, 0.10, 0.09},
    {4.5, 0.10, 0.6, 0.18, 0.12},
}}};

// Years that the usual deviations count for beside the household's own ones.
constexpr double kUsualSpreadYears = 2;

double sum(const PerMonth<double>& values, int from, int to) {
  return std::accumulate(values.begin() + from, values.begin() + to, 0.0);
}

double mixed(double own, double usual, double ownWeight) {
  return ownWeight * own + (1 - ownWeight) * usual;
}

// The earlier years by the months of the current one.
class OwnYears {
 public:
  OwnYears(const Course& current, const std::vector<Course>& earlier, double fading) {
    double weight = 1, weights = 0;
    for (auto year = earlier.rbegin(); year != earlier.rend(); ++year) {
      const double total = year->total();
      if (total <= 0) continue;
      PerMonth<double> shares;
      for (int i = 0; i < kMonths; ++i)
        shares[(year->calendarMonth(i) - current.calendarMonth(0) + kMonths) % kMonths] =
            year->months[i] / total;
      shares_.push_back(shares);
      totals_.push_back(total);
      level_ += weight * total;
      weights += weight;
      weight *= fading;
    }
    if (weights > 0) level_ /= weights;
  }

  int count() const { return static_cast<int>(shares_.size()); }
  double level() const { return level_; }

  double share(int position) const {
    double all = 0;
    for (const auto& shares : shares_) all += shares[position];
    return all / count();
  }

  // The usual deviation and the years' own, each counted by the years behind it.
  double levelSpread(double usual) const {
    const double mean = std::accumulate(totals_.begin(), totals_.end(), 0.0) / count();
    double squares = 0;
    for (const double total : totals_) squares += std::pow(total / mean - 1, 2);
    return spread(squares, count(), usual);
  }
  double monthSpread(const PerMonth<double>& season, double usual) const {
    double squares = 0;
    for (const auto& shares : shares_)
      for (int i = 0; i < kMonths; ++i)
        if (season[i] > 0) squares += std::pow((shares[i] - season[i]) / season[i], 2) * season[i];
    return spread(squares, count(), usual);
  }

 private:
  static double spread(double squares, int years, double usual) {
    return std::sqrt((squares + kUsualSpreadYears * usual * usual) / (years + kUsualSpreadYears));
  }

  std::vector<PerMonth<double>> shares_;
  std::vector<double> totals_;
  double level_ = 0;
};

double usualWeight(Meter meter, std::chrono::year_month month) {
  const int days = yearbook::daysInMonth(month.year(), month.month());
  if (utilityOf(meter) == yearbook::Utility::Water) return days;
  const base::Date first = month / std::chrono::day(1);
  if (meter == Meter::Gas) return yearbook::degreeDaysOn(first) * days;
  const int before = base::daysBetween(month.year() / 1 / 1, first);
  double factors = 0;
  for (int day = 1; day <= days; ++day) factors += yearbook::h0DayFactor(before + day);
  return factors;
}

}  // namespace

int Course::calendarMonth(int position) const {
  return static_cast<int>(static_cast<unsigned>((first + std::chrono::months(position)).month()));
}

double Course::total() const {
  return sum(months, 0, kMonths);
}

PerMonth<double> usualShares(Meter meter, std::chrono::year_month first) {
  PerMonth<double> shares;
  for (int i = 0; i < kMonths; ++i) shares[i] = usualWeight(meter, first + std::chrono::months(i));
  const double all = sum(shares, 0, kMonths);
  for (double& share : shares) share /= all;
  return shares;
}

const Weights& weightsOf(Meter meter) {
  return kWeights[meter];
}

std::optional<Outlook> outlookOf(Meter meter, const Course& current, int monthsRead,
                                 const std::vector<Course>& earlier) {
  const Weights& weights = weightsOf(meter);
  const OwnYears own(current, earlier, weights.fading);
  if (own.count() == 0 && monthsRead == 0) return std::nullopt;
  Outlook outlook;
  outlook.monthsRead = monthsRead;
  outlook.ownSeason = own.count() / (own.count() + weights.ownYears);
  PerMonth<double> season = usualShares(meter, current.first);
  if (own.count() > 0)
    for (int i = 0; i < kMonths; ++i) season[i] = mixed(own.share(i), season[i], outlook.ownSeason);

  const double part = sum(season, 0, monthsRead);
  const double soFar = sum(current.months, 0, monthsRead);
  outlook.soFar = own.count() == 0 ? 1 : part / (part + weights.soFar);
  const double level = part > 0 ? mixed(soFar / part, own.level(), outlook.soFar) : own.level();
  double levelSpread = weights.levelSpread, monthSpread = weights.monthSpread;
  if (own.count() > 0) {
    levelSpread = own.levelSpread(levelSpread);
    monthSpread = own.monthSpread(season, monthSpread);
  }

  double rest = 0, variance = 0;
  for (int i = 0; i < kMonths; ++i) {
    outlook.months[i] = i < monthsRead ? current.months[i] : std::max(0.0, season[i] * level);
    if (i < monthsRead) continue;
    outlook.spread[i] = outlook.months[i] * std::hypot(monthSpread, levelSpread);
    variance += std::pow(outlook.months[i] * monthSpread, 2);
    rest += outlook.months[i];
  }
  outlook.year = soFar + rest;
  // What has been read says more and more about the level.
  variance += std::pow(rest * levelSpread, 2) * (1 - outlook.soFar * part);
  const double reach = kEightOfTen * std::sqrt(variance);
  outlook.low = std::max(soFar, outlook.year - reach);
  outlook.high = outlook.year + reach;
  return outlook;
}

}  // namespace analysis
