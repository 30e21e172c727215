// The year's overview, from the open year's figures to the finished file, against replacing a file
// by the same finished bytes: the making is not to be noticed beside the writing.

#include <cstdio>

#include "Measure.h"
#include "base/File.h"
#include "base/Paths.h"
#include "reports/Exports.h"
#include "reports/FlexGridHTML.h"
#include "reports/YearReport.h"

namespace {

constexpr int kRounds = 201;

}  // namespace

int main(int, char** argv) {
  const auto original = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!original) return 1;
  const auto files = base::makeDiskFileSystem();
  const base::SystemClock clock;
  const auto year = yearbook::YearSession::open(
      *files, *original, std::string(base::folderOf(*original)), clock, {.readOnly = true});
  if (!year) return 1;
  const auto input = reports::overviewInput(**year);
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
  bench::sayRatio("the overview as a file to its bytes put in place", times->at(2), times->at(0));
  return 0;
}
