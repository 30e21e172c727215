#include "analysis/Tariffs.h"

#include <algorithm>

#include "analysis/Cost.h"
#include "base/CsvRecord.h"
#include "base/GermanNumber.h"
#include "yearbook/Vat.h"

namespace analysis {
namespace {

double lastPrice(const Year& year, Meter meter) {
  for (int i = kMonths - 1; i >= 0; --i)
    if (yearbook::orZero(year.prices[meter][i]) > 0) return *year.prices[meter][i];
  return 0;
}

double withVat(double value, const Year& year, Energy energy) {
  return yearbook::withVat(value, yearbook::orZero(year.values.vat[meterOf(energy)]));
}

Basis basisOf(const yearbook::FieldValues& values, Energy energy, double consumption,
              double night) {
  Basis basis;
  basis.kwh = pricedUnits(values, meterOf(energy), consumption);
  if (energy == Energy::Electricity) basis.nightKwh = night;
  return basis;
}

double consumptionOf(const Year& year, Meter meter) {
  double sum = 0;
  for (int i = 0; i < kMonths; ++i) sum += year.consumption(meter, i);
  return sum;
}

// Cent per kWh over day and night, as the household uses them.
double averagePrice(const Contract& contract, const Basis& basis) {
  const double night = basis.total() > 0 ? basis.nightKwh / basis.total() : 0;
  return contract.price * (1 - night) + contract.nightPrice * night;
}

}  // namespace

std::string_view nameOf(Energy energy) {
  return factsOf(meterOf(energy)).name;
}

Meter meterOf(Energy energy) {
  return energy == Energy::Gas ? Meter::Gas : Meter::Day;
}

Contract contractOf(const Offer& offer, const Year& year) {
  const auto gross = [&](double value) {
    return offer.net ? withVat(value, year, offer.energy) : value;
  };
  Contract contract;
  contract.price = gross(offer.price);
  contract.nightPrice = gross(offer.nightPrice.value_or(offer.price));
  contract.baseFee = gross(offer.baseFee) * (offer.feePerMonth ? kMonths : 1);
  return contract;
}

Contract presentContract(const Year& year, Energy energy) {
  const Meter meter = meterOf(energy);
  Contract contract;
  contract.price = withVat(lastPrice(year, meter), year, energy);
  const double night = energy == Energy::Electricity ? lastPrice(year, Meter::Night) : 0;
  contract.nightPrice = night > 0 ? withVat(night, year, energy) : contract.price;
  contract.baseFee =
      withVat(yearbook::orZero(year.values.baseFees[meter]).toDouble(), year, energy);
  return contract;
}

std::optional<Basis> lastCompleteYear(const Year& year, const YearFolder& folder, Energy energy) {
  const Meter meter = meterOf(energy);
  const Year* last = nullptr;
  const auto consider = [&](const Year& candidate) {
    if (candidate.start > year.start || !candidate.isComplete(meter)) return;
    if (!last || candidate.start >= last->start) last = &candidate;
  };
  for (const Year& other : folder.years) consider(other);
  consider(year);
  if (!last) return std::nullopt;
  Basis basis = basisOf(last->values, energy, consumptionOf(*last, meter),
                        consumptionOf(*last, Meter::Night));
  basis.text = "letztes ganzes Jahr: " + last->name;
  return basis;
}

std::optional<Basis> forecastBasis(const Forecast& forecast, Energy energy) {
  const auto& part = forecast.meters[meterOf(energy)];
  if (!part) return std::nullopt;
  const auto& night = forecast.meters[Meter::Night];
  Basis basis =
      basisOf(forecast.year->values, energy, part->outlook.year, night ? night->outlook.year : 0);
  basis.text = "Prognose: " + forecast.year->name;
  return basis;
}

Basis typedBasis(double kwh, const std::optional<Basis>& like) {
  Basis basis;
  const double night = like && like->total() > 0 ? like->nightKwh / like->total() : 0;
  basis.kwh = kwh * (1 - night);
  basis.nightKwh = kwh * night;
  basis.text = "eigener Wert";
  return basis;
}

Basis usualBasis(const Year& year, const YearFolder& folder, Energy energy) {
  if (const auto last = lastCompleteYear(year, folder, energy)) return *last;
  if (const auto expected = forecastBasis(forecastOf(year, folder), energy)) return *expected;
  return typedBasis(0, std::nullopt);
}

double costOf(const Contract& contract, const Basis& basis) {
  return contract.baseFee +
         (basis.kwh * contract.price + basis.nightKwh * contract.nightPrice) / 100;
}

std::string Cheaper::text() const {
  switch (when) {
    case When::Always:
      return "immer";
    case When::Never:
      return "nie";
    case When::From:
      return "ab " + base::formatNumber(kwh, 0) + " kWh";
    case When::UpTo:
      break;
  }
  return "bis " + base::formatNumber(kwh, 0) + " kWh";
}

Cheaper cheaperWhere(const Contract& offer, const Contract& present, const Basis& basis) {
  using When = Cheaper::When;
  const double perKwh = (averagePrice(present, basis) - averagePrice(offer, basis)) / 100;
  const double fee = offer.baseFee - present.baseFee;
  if (perKwh == 0) return {fee < 0 ? When::Always : When::Never, 0};
  const double even = fee / perKwh;
  if (perKwh > 0) return even > 0 ? Cheaper{When::From, even} : Cheaper{When::Always, 0};
  return even > 0 ? Cheaper{When::UpTo, even} : Cheaper{When::Never, 0};
}

Comparison compareOffers(const Year& year, Energy energy, const Basis& basis,
                         const std::vector<Offer>& offers) {
  Comparison comparison;
  comparison.energy = energy;
  comparison.basis = basis;
  comparison.present = presentContract(year, energy);
  comparison.presentCost = costOf(comparison.present, basis);
  comparison.hasNight = basis.nightKwh > 0;
  for (const Offer& offer : offers) {
    if (offer.energy != energy) continue;
    OfferFigures figures;
    figures.offer = offer;
    figures.contract = contractOf(offer, year);
    figures.following = costOf(figures.contract, basis);
    figures.firstYear = figures.following - offer.bonus;
    figures.difference = figures.following - comparison.presentCost;
    figures.cheaper = cheaperWhere(figures.contract, comparison.present, basis);
    comparison.offers.push_back(std::move(figures));
  }
  return comparison;
}

}  // namespace analysis
