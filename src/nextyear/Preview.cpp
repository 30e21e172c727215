#include "base/GermanNumber.h"
#include "nextyear/CarryOver.h"
#include "yearbook/Months.h"

namespace nextyear {
namespace {

constexpr int kPriceDecimals = 4;

std::string_view spokenName(Meter meter) {
  switch (meter) {
    case Meter::Day:
      return "Strom, Tag";
    case Meter::Night:
      return "Strom, Nacht";
    default:
      return factsOf(meter).name;
  }
}

// At least two decimals, as prices are written.
std::string priceText(double value) {
  const std::string shown = base::formatShort(value, kPriceDecimals, true);
  const std::string plain = base::formatNumber(value, 2);
  return shown.size() > plain.size() ? shown : plain;
}

std::string shown(std::optional<Money> amount) {
  return amount ? formatMoney(*amount) : std::string();
}

class Preview {
 public:
  Preview(const Plan& plan, Advances advances) : plan_(plan), advances_(advances) {}

  std::vector<Line> lines() {
    for (Meter meter : yearbook::kMeters)
      if (const auto& start = plan_.startReadings[meter])
        addMeter(Group::StartReadings, meter, base::formatShort(start->value, 3, true),
                 std::string(factsOf(meter).unit), start->source);
    for (Meter meter : yearbook::kMeters)
      if (const auto& price = plan_.prices[meter])
        addMeter(Group::Prices, meter, priceText(price->value),
                 std::string(factsOf(meter).price->unit), price->source);
    for (Utility utility : yearbook::kUtilities) addAdvance(utility);
    addFeesAndTaxes();
    addBegin();
    return std::move(lines_);
  }

 private:
  void addMeter(Group group, Meter meter, const std::string& value, const std::string& unit,
                const std::string& source) {
    lines_.push_back({group, meter, std::string(spokenName(meter)), value, value, unit, source});
  }
  void add(Group group, const std::string& name, const std::string& value,
           const std::string& unit = {}) {
    lines_.push_back({group, {}, name, value, value, unit, {}});
  }

  void addAdvance(Utility utility) {
    const auto& next = plan_.advance(utility, advances_);
    if (!next) return;
    const bool fits = advances_ == Advances::AsConsumed && plan_.fittingAdvances[utility];
    lines_.push_back({Group::Advances, factsOf(utility).mainMeter,
                      std::string(factsOf(utility).name), shown(plan_.lastAdvances[utility]),
                      shown(next), "Euro im Monat",
                      fits ? "passend zum Verbrauch" : "wie zuletzt"});
  }

  void addFeesAndTaxes() {
    constexpr Group group = Group::FeesAndTaxes;
    for (Meter meter : yearbook::kMeters) {
      const std::string name(factsOf(meter).name);
      if (plan_.baseFees[meter])
        add(group, "Grundgebühr " + name, shown(plan_.baseFees[meter]),
            plan_.monthlyFees[meter] ? "Euro im Jahr, mit Monatsliste" : "Euro im Jahr");
      if (plan_.vat[meter] && factsOf(meter).baseFee)
        add(group, "MwSt " + name, base::formatShort(*plan_.vat[meter]), "%");
    }
    if (plan_.gasFactor) add(group, "Gasfaktor", base::formatShort(*plan_.gasFactor), "kWh/m³");
    if (plan_.freeKwh) add(group, "Pauschale", base::formatShort(*plan_.freeKwh, 6, true), "kWh");
  }

  void addBegin() {
    constexpr Group group = Group::BeginAndNight;
    for (Utility utility : yearbook::kUtilities)
      add(group, "Startmonat " + std::string(factsOf(utility).name),
          yearbook::rotatedMonthNames(plan_.startMonths[utility])[0]);
    if (!plan_.startDate.empty())
      lines_.push_back(
          {group, {}, "Start-Datum", plan_.lastStartDate, plan_.startDate, {}, "ein Jahr später"});
    add(group, "Nachtstrom", plan_.nightShown ? "eingeblendet" : "ausgeblendet");
  }

  const Plan& plan_;
  Advances advances_;
  std::vector<Line> lines_;
};

}  // namespace

std::string_view nameOf(Group group) {
  switch (group) {
    case Group::StartReadings:
      return "Anfangsstände";
    case Group::Prices:
      return "Preise netto";
    case Group::Advances:
      return "Abschläge brutto";
    case Group::FeesAndTaxes:
      return "Grundgebühr, MwSt, Gasfaktor";
    case Group::BeginAndNight:
      return "Jahresbeginn und Nachtstrom";
  }
  return {};
}

std::vector<Line> preview(const Plan& plan, Advances advances) {
  return Preview(plan, advances).lines();
}

}  // namespace nextyear
