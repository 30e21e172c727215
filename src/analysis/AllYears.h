#pragma once

#include "analysis/Year.h"
#include "reports/Grid.h"

namespace analysis {

// One meter in one year. What is not known is nullopt: shown as nothing, never as 0.
struct MeterFigures {
  int months = 0;
  double consumption = 0;              // gas in m³
  std::optional<double> change;        // to the year before over the months that both have; 0.05
                                       // is 5 % more
  std::optional<double> perDay;        // over the days of the months that have been read
  Money net, gross;                    // with the utility's base fees at its first meter
  std::optional<double> grossPerUnit;  // cent per kWh, euro per m³ of water
  std::optional<Money> advances;       // first meter of a utility only, as is the balance
  std::optional<Money> balance;        // gross of the utility less advances
};

struct YearFigures {
  const Year* year = nullptr;
  PerMeter<MeterFigures> meters;
  Money net, gross, advances, balance;  // all meters together

  // "bis Oktober"; "" for a complete year.
  std::string until() const;
  std::string until(Meter meter) const;  // "" as well for a meter that was not read
};

YearFigures figuresOf(const Year& year, const Year* before);

// The figures of every year, in the order of the folder, which must outlive them.
std::vector<YearFigures> figuresOf(const YearFolder& folder);

// How a year stands in a line, one that is under way as of its last reading, with the payments and
// the share of the base fees until then: "leer", "noch keine Ablesung", "bis Oktober, Guthaben
// 119,73 Euro", "vollständig, ausgeglichen".
std::string standOf(const Year& year);

// Of the gross price per unit: "Cent/kWh", "Euro/m³".
std::string_view priceUnit(Meter meter);

// The household's words for a meter: "Strom, Tag".
std::string_view spokenName(Meter meter);

// "2 Jahre, dazu 1 leeres (Verbrauch.kwd)"
std::string summaryOf(const YearFolder& folder);
// A sentence for each damaged year, with the reason.
std::vector<std::string> remarksOf(const YearFolder& folder);
// How the year's place in time was found: "ab 01.01.2025", by the start date.
std::string startText(const Year& year);
// "+4,3 %" of a change of 0.043.
std::string changeText(double change);

// The table as it is shown, copied, printed and written as a page: latest year first, a row for the
// year and one for each meter that has been read.
reports::Grid tableOf(const std::vector<YearFigures>& years);
// The table for spreadsheets: one line per year and meter, earliest first.
reports::Grid csvTableOf(const std::vector<YearFigures>& years);

}  // namespace analysis
