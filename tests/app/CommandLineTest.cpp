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
      {{"--pruefen", "--uebersicht", "a.kwd"},
       "Bitte nur eine der Angaben --pruefen und --uebersicht."}};
  for (const auto& [arguments, problem] : cases) {
    const CommandLine line = parseCommandLine(arguments);
    EXPECT_EQ(line.action, Action::Wrong);
    EXPECT_EQ(line.problem, problem);
  }
}

}  // namespace
