#pragma once

#include "analysis/Outlook.h"
#include "analysis/Year.h"
#include "reports/Grid.h"

namespace analysis {

// What a year will come to, told from its months so far and the years before it.
struct MeterForecast {
  Outlook outlook;
  Money net, gross;        // with the utility's base fees at its first meter
  Money netLow, grossLow;  // at the ends of the range
  Money netHigh, grossHigh;
  std::vector<std::string> ownYears;  // labels of the earlier years that it rests on
};

struct UtilityForecast {
  Money gross, grossLow, grossHigh;
  Money advances;  // as entered, missing ones of months to come as the last one before
  Money balance, balanceLow, balanceHigh;
  // The payment of each month to come that would balance the year; nullopt when none is left.
  std::optional<Money> payment, paymentLow, paymentHigh;
  std::string from;  // the first month to come: "Oktober"
};

struct Forecast {
  const Year* year = nullptr;
  int monthsRead = 0;                             // most of any meter
  std::string lastMonth;                          // "September"; "" when no month has been read
  PerMeter<std::optional<MeterForecast>> meters;  // none where nothing can be told
  PerUtility<std::optional<UtilityForecast>> utilities;
  Money net, gross, balance;  // of all utilities
};

// monthsRead 1 to 12: as if only so many had been read, counted from the start month; 0: all that
// are. Prices and payments already entered for later months hold. year must outlive the forecast.
Forecast forecastOf(const Year& year, const YearFolder& folder, int monthsRead = 0);

// "Nachzahlung 25,99 Euro", "Guthaben 28,28 Euro"; without cents for estimates.
std::string balanceText(Money balance, int decimals = 0);

// "Voraussichtlich 154 Euro Nachzahlung für das ganze Jahr"
std::string headlineOf(const Forecast& forecast);
// What it rests on, a sentence for each meter and one for prices and payments.
std::vector<std::string> basisOf(const Forecast& forecast);

reports::Grid tableOf(const Forecast& forecast);
reports::Grid csvTableOf(const Forecast& forecast);
// The table, the utilities' outcome and what it rests on, for a terminal.
std::string textOf(const Forecast& forecast);

}  // namespace analysis
