#include "app/ui/YearCommands.h"

#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "base/Paths.h"
#include "nextyear/YearBefore.h"
#include "readingbook/BookOfYear.h"

namespace app {
namespace {

using base::Result;
using yearbook::YearSession;

constexpr std::uint64_t kLargestTable = 64 << 20;

int failed(const Console& console, const base::Error& error) {
  console.err << "Fehler: " << base::germanMessage(error) << '\n';
  return 1;
}

// A bare name lies in the current folder.
std::string withFolder(const std::string& path) {
  if (!base::folderOf(path).empty()) return path;
  return std::string(".") + base::kPathSeparator + path;
}

Result<std::unique_ptr<YearSession>> open(const Console& console, const std::string& path) {
  return YearSession::open(console.files, path, std::string(base::folderOf(path)), console.clock);
}

Result<void> keepCopy(const Console& console, const std::string& path) {
  SafetyCopies copies(console.files, std::string(base::folderOf(path)), console.clock);
  const std::string name(base::fileName(path));
  if (copies.hasTodays(name)) return {};
  const auto kept = copies.keep(CopyMoment::Opening, name);
  return kept ? Result<void>() : base::Failure(kept.error());
}

void printPlan(std::ostream& out, const nextyear::Plan& plan, const nextyear::Choice& choice) {
  std::optional<nextyear::Group> group;
  for (const nextyear::Line& line : preview(plan, choice.advances)) {
    if (line.group != group) out << nameOf(line.group) << ":\n";
    group = line.group;
    out << "  " << line.name << ": " << line.to << (line.unit.empty() ? "" : " ") << line.unit;
    if (!line.source.empty()) out << " (" << line.source << ')';
    out << '\n';
  }
  for (const std::string& note : plan.notes) out << "Hinweis: " << note << '\n';
}

// The new year, filled. What has been made of it goes again if that fails.
Result<void> makeNext(const Console& console, const std::string& path, const nextyear::Plan& plan,
                      const nextyear::Choice& choice) {
  base::PathState paths;
  paths.ProgramFolder = console.programFolder;
  if (auto made = createYear(console.files, paths, path); !made) return made;
  Result<void> done;
  {
    const auto year = open(console, path);
    done = year ? carryOver(**year, plan, choice) : base::Failure(year.error());
  }
  if (!done) base::ignore(console.files.remove(path), "the first failure is the one to tell");
  return done;
}

}  // namespace

int importTable(const CommandLine& line, const Console& console) {
  const auto bytes = console.files.readText(line.target, kLargestTable);
  if (!bytes) return failed(console, bytes.error());
  const auto rows = readingbook::readTable(*bytes);
  const auto columns = readingbook::guessColumns(rows, line.target);
  if (columns.date == readingbook::TableColumns::kNone || !columns.anyMeter()) {
    console.err << line.target
                << ": Gesucht werden die Spalten Datum und Strom, Nachtstrom, Wasser, Abwasser "
                   "oder Gas.\n";
    return 1;
  }
  const std::string path = withFolder(line.file);
  if (auto kept = keepCopy(console, path); !kept) return failed(console, kept.error());
  const auto year = open(console, path);
  if (!year) return failed(console, year.error());
  const auto report = readingbook::importTable(**year, readingsOf(rows, columns));
  if (!report) return failed(console, report.error());
  for (const readingbook::TableProblem& problem : report->problems) {
    console.err << line.target;
    if (problem.line > 0) console.err << ", Zeile " << problem.line;
    console.err << ": " << problem.reason << '\n';
  }
  if (!report->problems.empty()) {
    console.err << "Es wurde nichts gespeichert.\n";
    return 1;
  }
  for (const std::string& text : report->lines) console.out << text << '\n';
  return 0;
}

int continueYear(const CommandLine& line, const Console& console) {
  const std::string from = withFolder(line.target);
  const std::string path = withFolder(line.file);
  if (const auto found = console.files.info(path);
      found || found.error().code != base::ErrorCode::NotFound)
    return failed(console, base::fail(base::ErrorCode::AlreadyExists, {}, path).value());
  const auto plan = nextyear::planNextYear(console.files, from, console.clock);
  if (!plan) return failed(console, plan.error());
  nextyear::Choice choice;
  choice.advances = nextyear::Advances::AsLast;
  if (auto made = makeNext(console, path, *plan, choice); !made)
    return failed(console, made.error());
  printPlan(console.out, *plan, choice);
  return 0;
}

}  // namespace app
