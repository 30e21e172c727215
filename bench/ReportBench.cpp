// The year's overview, from the open year's figures to the finished file, against replacing a file
// by the same finished bytes: the making is not to be noticed beside the writing.

#include <cstdio>

#include "Measure.h"
#include "base/File.h"
#include "reports/Exports.h"
#include "reports/FlexGridHTML.h"

namespace {

using base::Money;

constexpr int kRounds = 201;

reports::OverviewInput fullYear() {
  reports::OverviewInput input;
  input.yearFileName = "Verbrauch2025.kwd";
  input.currentYear = 2026;
  std::int64_t amount = 1234567;
  for (auto* rows : {&input.electricity, &input.water, &input.gas})
    for (std::size_t i = 0; i < rows->size(); ++i)
      (*rows)[i] = {std::string(base::kMonthNames[i]), Money::fromTenThousandths(amount += 77777)};
  input.dayAmount = input.waterAmount = input.gasAmount = Money::fromTenThousandths(12345678);
  input.vatElectricity = input.vatGas = {"19", 19};
  input.vatWater = {"7", 7};
  return input;
}

}  // namespace

int main(int, char** argv) {
  const auto input = fullYear();
  const auto files = base::makeDiskFileSystem();
  const std::string path = bench::scratch(argv[0], "report-bench.html");
  const std::string finished =
      reports::FlexGridHTML::page(reports::buildOverview(input), reports::plainScreen());
  const auto times = bench::compare(
      {{"finished page put in place",
        [&] { return files->replaceFile(path, base::asBytes(finished)).has_value(); }},
       {"table built", [&] { return reports::buildOverview(input).rows() > 0; }},
       {"table built, page written and put in place",
        [&] { return reports::exportHtml(*files, path, input).has_value(); }}},
      kRounds);
  base::ignore(files->remove(path), "a page that stays is replaced by the next run");
  if (!times) return 1;
  std::printf("ratio: %.2f\n", times->at(2) / times->at(0));
  return 0;
}
