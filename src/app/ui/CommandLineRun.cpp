#include "app/ui/CommandLineRun.h"

#include "app/Findings.h"
#include "app/StrayJournal.h"
#include "app/YearFiles.h"
#include "app/ui/TableReports.h"
#include "app/ui/YearCommands.h"
#include "base/Paths.h"
#include "readingbook/BookOfYear.h"
#include "reports/Exports.h"
#include "reports/YearReport.h"
#include "reports/ui/PdfExport.h"
#include "yearbook/YearCheck.h"
#include "yearbook/YearSession.h"

namespace app {
namespace {

using base::Error;
using Year = std::unique_ptr<yearbook::YearSession>;

int failed(const Console& console, const Error& error) {
  console.err << "Fehler: " << base::germanMessage(error) << '\n';
  return 1;
}

base::Result<Year> openYear(const Console& console, const std::string& file) {
  jet::OpenOptions options;
  options.readOnly = true;
  const std::string folder(base::folderOf(file));
  return yearbook::YearSession::open(console.files, file, folder, console.clock, options);
}

base::Result<void> writeReport(const CommandLine& line, const Console& console) {
  if (!line.target.empty())
    if (auto allowed = checkIsNoYear(console.files, line.target); !allowed) return allowed;
  const auto opened = openYear(console, line.file);
  if (!opened) return base::Failure(opened.error());
  const yearbook::YearSession& year = **opened;
  const reports::OverviewInput input = reports::overviewInput(year);
  switch (line.action) {
    case CommandLine::Action::Html:
      return reports::exportHtml(console.files, line.target, input);
    case CommandLine::Action::Pdf:
      return reports::exportPdf(console.files, line.target, input,
                                reports::documentName(console.clock.today()));
    case CommandLine::Action::Csv:
      return reports::exportCsv(console.files, line.target,
                                reports::detailInput(year, console.clock.today()),
                                readingbook::readingsTable(year));
    default:
      console.out << reports::overviewText(input);
      return {};
  }
}

int check(const CommandLine& line, const Console& console) {
  jet::OpenOptions options;
  options.readOnly = options.acceptPassword = options.acceptEncryption = true;
  auto database = jet::Database::open(console.files, line.file, options);
  if (!database) return failed(console, database.error());
  const auto findings = yearbook::checkYear(*database);
  const std::string former = formerNameOf(console.files, std::string(base::folderOf(line.file)),
                                          std::string(base::fileName(line.file)));
  if (!former.empty()) {
    console.err << "Fehler: " << line.file << ": " << waitingChangeFinding(former) << '\n';
    return 1;
  }
  int errors = 0;
  for (const jet::Finding& finding : findings) {
    console.out << (finding.warning ? "Hinweis: " : "Fehler: ") << describe(finding) << '\n';
    if (!finding.warning) ++errors;
  }
  if (errors > 0) {
    console.err << line.file << ": " << errors << " Fehler gefunden. " << advice(findings) << '\n';
    return 1;
  }
  if (!findings.empty()) console.out << advice(findings) << '\n';
  console.out << line.file << ": keine Fehler gefunden.\n";
  return 0;
}

}  // namespace

int runCommandLine(const CommandLine& line, const Console& console) {
  switch (line.action) {
    case CommandLine::Action::Version:
      console.out << "Kalvira " KALVIRA_VERSION "\n";
      return 0;
    case CommandLine::Action::Help:
      console.out << commandLineHelp();
      return 0;
    case CommandLine::Action::Wrong:
      console.err << line.problem << "\n\n" << commandLineHelp();
      return 1;
    case CommandLine::Action::Check:
      return check(line, console);
    case CommandLine::Action::Import:
      return importTable(line, console);
    case CommandLine::Action::Continue:
      return continueYear(line, console);
    default:
      break;
  }
  const auto written =
      isTableReport(line.action) ? writeTableReport(line, console) : writeReport(line, console);
  return written ? 0 : failed(console, written.error());
}

}  // namespace app
