#include <cmath>

#include "analysis/Tariffs.h"
#include "base/GermanNumber.h"
#include "reports/GridText.h"

namespace analysis {
namespace {

using base::formatNumber;

std::string signedEuro(double euro) {
  const std::string text = formatNumber(euro, 2);
  return (euro > 0 && text != "0,00" ? "+" : "") + text;
}

struct Column {
  const char* heading;
  bool text = false;
};

}  // namespace

reports::Grid tableOf(const Comparison& comparison) {
  std::vector<Column> columns = {{"Angebot", true}, {"Cent/kWh brutto"}};
  if (comparison.hasNight) columns.push_back({"nachts"});
  for (const Column& column : std::initializer_list<Column>{{"Grundgebühr im Jahr"},
                                                            {"Bonus"},
                                                            {"erstes Jahr Euro"},
                                                            {"Folgejahr Euro"},
                                                            {"Unterschied Euro"},
                                                            {"günstiger", true},
                                                            {"Preisgarantie bis", true},
                                                            {"Vertragsende", true}})
    columns.push_back(column);
  reports::Grid grid(1, static_cast<int>(columns.size()));
  grid.headRows = grid.fixedRows = 1;
  for (int i = 0; i < grid.columns(); ++i) {
    const Column& column = columns[static_cast<std::size_t>(i)];
    grid.column(i).alignment =
        column.text ? reports::Alignment::LeftCenter : reports::Alignment::RightCenter;
    grid.cell(0, i).value = column.heading;
    grid.cell(0, i).bold = true;
  }
  const auto addRow = [&](const std::vector<std::string>& texts, bool bold) {
    grid.appendRows(1);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      grid.cell(grid.rows() - 1, static_cast<int>(i)).value = texts[i];
      grid.cell(grid.rows() - 1, static_cast<int>(i)).bold = bold;
    }
  };
  const auto row = [&](const std::string& name, const Contract& contract) {
    std::vector<std::string> texts = {name, formatNumber(contract.price, 2)};
    if (comparison.hasNight) texts.push_back(formatNumber(contract.nightPrice, 2));
    texts.push_back(formatNumber(contract.baseFee, 2));
    return texts;
  };
  auto present = row("bisheriger Vertrag", comparison.present);
  const std::string cost = formatNumber(comparison.presentCost, 2);
  present.insert(present.end(), {"", cost, cost});
  addRow(present, true);
  for (const OfferFigures& figures : comparison.offers) {
    auto texts = row(figures.offer.name, figures.contract);
    texts.push_back(figures.offer.bonus == 0 ? ""
                                             : base::formatShort(figures.offer.bonus, 2, true));
    texts.insert(texts.end(),
                 {formatNumber(figures.firstYear, 2), formatNumber(figures.following, 2),
                  signedEuro(figures.difference), figures.cheaper.text(),
                  figures.offer.guaranteedUntil, figures.offer.contractEnd});
    addRow(texts, false);
  }
  for (int i = 0; i < grid.columns(); ++i) grid.fitColumn(i, reports::plainTextWidth);
  return grid;
}

reports::Grid csvTableOf(const std::vector<Comparison>& comparisons) {
  constexpr std::array kHeadings = {
      "Energie",     "Angebot",   "Cent je kWh",       "Cent je kWh nachts",
      "Grundgebühr", "Bonus",     "erstes Jahr",       "Folgejahr",
      "Unterschied", "günstiger", "Preisgarantie bis", "Vertragsende"};
  reports::Grid grid(1, static_cast<int>(kHeadings.size()));
  for (int i = 0; i < grid.columns(); ++i)
    grid.cell(0, i).value = kHeadings[static_cast<std::size_t>(i)];
  int column = 0;
  const auto put = [&](auto value) {
    grid.cell(grid.rows() - 1, column++).value = std::move(value);
  };
  const auto euro = [](double value) { return Money::roundHalfEven(value); };
  const auto begin = [&](const Comparison& comparison, const std::string& name,
                         const Contract& contract, double bonus) {
    grid.appendRows(1);
    column = 0;
    put(std::string(nameOf(comparison.energy)));
    put(name);
    put(contract.price);
    put(contract.nightPrice);
    put(euro(contract.baseFee));
    put(euro(bonus));
  };
  for (const Comparison& comparison : comparisons) {
    begin(comparison, "bisheriger Vertrag", comparison.present, 0);
    put(euro(comparison.presentCost));
    put(euro(comparison.presentCost));
    for (const OfferFigures& figures : comparison.offers) {
      begin(comparison, figures.offer.name, figures.contract, figures.offer.bonus);
      put(euro(figures.firstYear));
      put(euro(figures.following));
      put(euro(figures.difference));
      put(figures.cheaper.text());
      put(figures.offer.guaranteedUntil);
      put(figures.offer.contractEnd);
    }
  }
  return grid;
}

std::string textOf(const Comparison& comparison) {
  const Basis& basis = comparison.basis;
  std::string text = std::string(nameOf(comparison.energy)) + ", " + basis.text + ": " +
                     formatNumber(basis.total(), 0) + " kWh";
  if (comparison.hasNight) text += ", davon nachts " + formatNumber(basis.nightKwh, 0) + " kWh";
  return text + "\n\n" + reports::toPlainText(tableOf(comparison));
}

}  // namespace analysis
