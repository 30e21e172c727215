#include "app/CommandLine.h"

#include <gtest/gtest.h>

namespace {

using app::CommandLine;
using app::parseCommandLine;
using Action = CommandLine::Action;

TEST(CommandLine, NamesActionTargetFileAndFolderInAnyOrder) {
  const auto html = parseCommandLine({"--datenordner", "/d", "--html", "z.html", "2025.kwd"});
  EXPECT_EQ(html.action, Action::Html);
  EXPECT_EQ(html.target, "z.html");
  EXPECT_EQ(html.file, "2025.kwd");
  EXPECT_EQ(html.dataFolder, "/d");
  EXPECT_EQ(parseCommandLine({"a.kwd", "--pruefen"}).action, Action::Check);
  EXPECT_EQ(parseCommandLine({"a.kwd"}).file, "a.kwd");
  EXPECT_EQ(parseCommandLine({}).action, Action::Windows);
}

TEST(CommandLine, CsvBesideATableNamesItsTarget) {
  for (const auto& arguments :
       std::vector<std::vector<std::string>>{{"--alle-jahre", "--csv", "z.csv", "/jahre"},
                                             {"--csv", "z.csv", "--alle-jahre", "/jahre"}}) {
    const auto all = parseCommandLine(arguments);
    EXPECT_EQ(all.action, Action::AllYears);
    EXPECT_EQ(all.target, "z.csv");
    EXPECT_EQ(all.file, "/jahre");
  }
  EXPECT_EQ(parseCommandLine({"--alle-jahre"}).action, Action::AllYears);
  const auto forecast = parseCommandLine({"--prognose", "a.kwd", "--stand", "9"});
  EXPECT_EQ(forecast.action, Action::Forecast);
  EXPECT_EQ(forecast.monthsRead, 9);
  EXPECT_EQ(parseCommandLine({"--tarife", "a.kwd"}).action, Action::Tariffs);
}

TEST(CommandLine, SaysWhatIsMissing) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--html", "z.html"}, "Nach --html fehlt die Jahresdatei (*.kwd)."},
      {{"--html"}, "Nach --html fehlt die Zieldatei."},
      {{"--datenordner"}, "Nach --datenordner fehlt der Ordner."},
      {{"--fliegen"}, "Unbekannte Angabe: --fliegen"},
      {{"a.kwd", "b.kwd"}, "Bitte nur eine Datei angeben: a.kwd, b.kwd"},
      {{"--csv", "b.csv", "a.kwd", "b.kwd"}, "Bitte nur eine Datei angeben: a.kwd, b.kwd"},
      {{"--csv", "a.kwd", "b.kwd"}, "Eine Jahresdatei wird nicht überschrieben: a.kwd"},
      {{"--html", "a.KWX", "b.kwd"}, "Eine Jahresdatei wird nicht überschrieben: a.KWX"},
      {{"--prognose", "--stand", "3"}, "Nach --prognose fehlt die Jahresdatei (*.kwd)."},
      {{"--prognose", "a.kwd", "--stand", "13"}, "--stand nennt einen Monat von 1 bis 12."},
      {{"--prognose", "a.kwd", "--stand", "0"}, "--stand nennt einen Monat von 1 bis 12."},
      {{"--prognose", "a.kwd", "--stand", "1,5"}, "--stand nennt einen Monat von 1 bis 12."},
      {{"--prognose", "a.kwd", "--stand"}, "Nach --stand fehlt der Monat (1 bis 12)."},
      {{"--uebersicht", "a.kwd", "--stand", "3"}, "--stand gehört zu --prognose."},
      {{"--alle-jahre", "--csv", "a.kwd"}, "Eine Jahresdatei wird nicht überschrieben: a.kwd"},
      {{"--alle-jahre", "--prognose", "a.kwd"},
       "Bitte nur eine der Angaben --alle-jahre und --prognose."},
      {{"--pruefen", "--uebersicht", "a.kwd"},
       "Bitte nur eine der Angaben --pruefen und --uebersicht."}};
  for (const auto& [arguments, problem] : cases) {
    const CommandLine line = parseCommandLine(arguments);
    EXPECT_EQ(line.action, Action::Wrong);
    EXPECT_EQ(line.problem, problem);
  }
}

}  // namespace
