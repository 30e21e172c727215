// Holds the forecast against made households: kalvira's own figures in docs/prognose.md.
//   backtest [HOUSEHOLDS [SEED]]

#include <cstdio>
#include <cstdlib>

#include "Backtest.h"

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 30;
  const auto seed = static_cast<std::uint32_t>(argc > 2 ? std::atoi(argv[2]) : 1);
  if (count < 1) return 1;
  const auto errors = made::backtest(made::makeHouseholds(count, seed));
  std::fputs(made::asTable(errors).c_str(), stdout);
  for (const auto meter : yearbook::kMeters) {
    double worst = 0;
    for (int month = 0; month < yearbook::kMonths; ++month) {
      double best = errors[meter].at(made::Way::EvenDays, month);
      for (const made::Way way : {made::Way::LastYear, made::Way::Table})
        best = std::min(best, errors[meter].at(way, month));
      if (best > 0) worst = std::max(worst, errors[meter].at(made::Way::Forecast, month) / best);
    }
    std::printf("%s: at worst %.2f of the best, %.0f %% within the range\n",
                std::string(factsOf(meter).name).c_str(), worst, errors[meter].covered * 100);
  }
  return 0;
}
