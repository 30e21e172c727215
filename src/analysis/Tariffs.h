#pragma once

#include "analysis/Forecast.h"
#include "analysis/Year.h"
#include "base/DataFiles.h"
#include "reports/Grid.h"

// Offers of suppliers beside the present contract.
namespace analysis {

enum class Energy { Electricity, Gas };
inline constexpr std::array kEnergies = {Energy::Electricity, Energy::Gas};
std::string_view nameOf(Energy energy);  // "Strom", "Gas"
Meter meterOf(Energy energy);

// As it stands in the letter of the supplier.
struct Offer {
  Energy energy = Energy::Electricity;
  std::string name;
  double price = 0;                  // cent per kWh; by day where there is a night price
  std::optional<double> nightPrice;  // electricity only
  bool net = false;                  // price and base fee without VAT
  double baseFee = 0;                // euro
  bool feePerMonth = false;          // else per year
  double bonus = 0;                  // euro with VAT, off the first year
  std::string guaranteedUntil;       // dates as typed; may be empty
  std::string contractEnd;
  bool operator==(const Offer&) const = default;
};

// "Tarife.dat" of the data folder: one comma-separated record a line. Lines that are no offers are
// kept as they are.
struct OfferFile {
  std::vector<Offer> offers;
  std::vector<std::string> otherLines;  // bytes, without line end
};
using base::kOfferFile;
// No file: no offers. folder ends with the separator.
base::Result<OfferFile> readOffers(base::FileSystem& files, const std::string& folder);
base::Result<void> writeOffers(base::FileSystem& files, const std::string& folder,
                               const OfferFile& file);

// A contract in comparable figures: with VAT, in a year.
struct Contract {
  double price = 0;       // cent per kWh
  double nightPrice = 0;  // the same as the price where there is one price only
  double baseFee = 0;     // euro a year
};
Contract contractOf(const Offer& offer, const Year& year);
// The last prices and the base fee of the year.
Contract presentContract(const Year& year, Energy energy);

// What a year is compared for.
struct Basis {
  double kwh = 0;  // by day, or of gas
  double nightKwh = 0;
  std::string text;  // "letztes ganzes Jahr: Verbrauch2025"
  double total() const { return kwh + nightKwh; }
};
// nullopt where there is no complete year up to this one.
std::optional<Basis> lastCompleteYear(const Year& year, const YearFolder& folder, Energy energy);
std::optional<Basis> forecastBasis(const Forecast& forecast, Energy energy);
// A typed consumption, in kWh. A part of it is night tariff as in the other basis, where there is
// one.
Basis typedBasis(double kwh, const std::optional<Basis>& like);
// The first of these that there is: last complete year, forecast.
Basis usualBasis(const Year& year, const YearFolder& folder, Energy energy);

// Euro with VAT in a year.
double costOf(const Contract& contract, const Basis& basis);

// Where an offer costs less than the present contract, in kWh of the year; the part of the night
// tariff is that of the basis.
struct Cheaper {
  enum class When { Always, Never, From, UpTo } when = When::Never;
  double kwh = 0;
  std::string text() const;  // "ab 3.645 kWh", "bis 7.245 kWh", "immer", "nie"
};
Cheaper cheaperWhere(const Contract& offer, const Contract& present, const Basis& basis);

struct OfferFigures {
  Offer offer;
  Contract contract;
  double firstYear = 0, following = 0;  // euro with VAT
  double difference = 0;                // following year less the present contract
  Cheaper cheaper;
};

struct Comparison {
  Energy energy = Energy::Electricity;
  Basis basis;
  Contract present;
  double presentCost = 0;
  std::vector<OfferFigures> offers;
  bool hasNight = false;  // the household uses a night tariff
};
Comparison compareOffers(const Year& year, Energy energy, const Basis& basis,
                         const std::vector<Offer>& offers);

reports::Grid tableOf(const Comparison& comparison);
// All contracts and offers for spreadsheets, a line each.
reports::Grid csvTableOf(const std::vector<Comparison>& comparisons);
// Basis and table, for a terminal.
std::string textOf(const Comparison& comparison);

}  // namespace analysis
