#include "app/ui/TableReports.h"

#include "analysis/AllYears.h"
#include "analysis/Forecast.h"
#include "analysis/Tariffs.h"
#include "app/DataFolder.h"
#include "app/YearFiles.h"
#include "base/Paths.h"
#include "reports/GridText.h"
#include "yearbook/FlatRate.h"

namespace app {
namespace {

using Action = CommandLine::Action;

struct Report {
  std::string text;
  reports::Grid table{0, 0};
};

void nameDamaged(const analysis::YearFolder& folder, const Console& console) {
  for (const std::string& remark : analysis::remarksOf(folder)) console.err << remark << '\n';
}

base::Result<Report> allYears(const CommandLine& line, const Console& console) {
  std::string place = line.file;
  if (place.empty()) {
    SystemFacts facts = readSystemFacts();
    facts.chosenDataFolder = line.dataFolder;
    place = dataFolderInForce(console.files, facts);
  }
  const auto folder = analysis::readFolder(console.files, place);
  if (!folder) return base::Failure(folder.error());
  nameDamaged(*folder, console);
  const auto figures = analysis::figuresOf(*folder);
  Report report;
  report.text = analysis::summaryOf(*folder) + "\n\n";
  if (!figures.empty()) report.text += reports::toPlainText(analysis::tableOf(figures));
  report.table = analysis::csvTableOf(figures);
  return report;
}

struct YearAmongOthers {
  analysis::Year year;
  analysis::YearFolder folder;
};

base::Result<YearAmongOthers> readAmongOthers(const CommandLine& line, const Console& console) {
  std::string place(base::folderOf(line.file));
  if (place.empty()) place = std::string(".") + base::kPathSeparator;
  auto year =
      analysis::readYear(console.files, line.file, yearbook::readFlatRate(console.files, place));
  if (!year) return base::Failure(year.error());
  auto folder = analysis::readFolder(console.files, place);
  if (!folder) return base::Failure(folder.error());
  nameDamaged(*folder, console);
  return YearAmongOthers{std::move(*year), std::move(*folder)};
}

base::Result<Report> forecast(const CommandLine& line, const Console& console) {
  const auto years = readAmongOthers(line, console);
  if (!years) return base::Failure(years.error());
  const auto forecast = analysis::forecastOf(years->year, years->folder, line.monthsRead);
  return Report{analysis::textOf(forecast), analysis::csvTableOf(forecast)};
}

base::Result<Report> tariffs(const CommandLine& line, const Console& console) {
  const auto years = readAmongOthers(line, console);
  if (!years) return base::Failure(years.error());
  const auto offers = analysis::readOffers(console.files, std::string(base::folderOf(line.file)));
  if (!offers) return base::Failure(offers.error());
  std::vector<analysis::Comparison> comparisons;
  Report report;
  for (const analysis::Energy energy : analysis::kEnergies) {
    const auto basis = analysis::usualBasis(years->year, years->folder, energy);
    comparisons.push_back(analysis::compareOffers(years->year, energy, basis, offers->offers));
    report.text += (report.text.empty() ? "" : "\n") + analysis::textOf(comparisons.back());
  }
  report.table = analysis::csvTableOf(comparisons);
  return report;
}

base::Result<Report> reportOf(const CommandLine& line, const Console& console) {
  if (line.action == Action::AllYears) return allYears(line, console);
  return line.action == Action::Forecast ? forecast(line, console) : tariffs(line, console);
}

}  // namespace

bool isTableReport(CommandLine::Action action) {
  return action == Action::AllYears || action == Action::Forecast || action == Action::Tariffs;
}

base::Result<void> writeTableReport(const CommandLine& line, const Console& console) {
  if (!line.target.empty())
    if (auto allowed = checkIsNoYear(console.files, line.target); !allowed) return allowed;
  const auto report = reportOf(line, console);
  if (!report) return base::Failure(report.error());
  if (!line.target.empty()) {
    const std::string csv = reports::toCsv(report->table);
    return console.files.replaceFile(line.target, base::asBytes(csv));
  }
  console.out << report->text;
  return {};
}

}  // namespace app
