#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "base/Result.h"

namespace {

std::string read(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// The sentences in a source: literals of more than one word, parts of one put together.
std::set<std::string> sentencesIn(std::string source) {
  source = std::regex_replace(source, std::regex("ignore\\([^;]*;"), "");
  source = std::regex_replace(source, std::regex("\"\\s*\n\\s*\""), "");
  source = std::regex_replace(source, std::regex("\\\\\""), "'");
  const std::regex literal("\"([a-z%][^\"\n]* [^\"\n]*)\"");
  std::set<std::string> found;
  for (std::sregex_iterator at(source.begin(), source.end(), literal), end; at != end; ++at)
    found.insert((*at)[1]);
  return found;
}

base::Error errorWith(const std::string& reason) {
  return base::fail(base::ErrorCode::Damaged, reason, "/jahr.kwd").value();
}

TEST(Reasons, OfTheEngineAreAllSaidInGerman) {
  const std::filesystem::path tests = KALVIRA_TEST_SOURCES;
  // The one reason that others look for has a name.
  std::set<std::string> reasons =
      sentencesIn(read(tests.parent_path() / "src" / "base" / "OpenOutcome.h"));
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(tests.parent_path() / "src" / "jet"))
    if (entry.is_regular_file()) reasons.merge(sentencesIn(read(entry.path())));
  EXPECT_GT(reasons.size(), 80u);
  for (const std::string& reason : reasons) {
    EXPECT_NE(base::germanDetail(errorWith(reason)), reason);
  }
  // And none is kept that nobody gives any more.
  const std::string table = read(tests.parent_path() / "src" / "base" / "Reasons.cpp");
  const std::regex pair("\\{\"([a-z%][^\"\n]* [^\"\n]*)\",\\s+\"");
  for (std::sregex_iterator at(table.begin(), table.end(), pair), end; at != end; ++at)
    EXPECT_THAT(reasons, testing::Contains((*at)[1].str()));
}

TEST(Reasons, HaveTheirArgumentsFilledIn) {
  base::Error error = errorWith("the table has %1 rows instead of %2");
  error.subject = "Strom";
  error.arguments = {"%2", "12"};
  error.page = 7;
  EXPECT_EQ(base::germanReason(error),
            "Die Datei ist beschädigt. (Strom: Tabelle hat %2 Datensätze statt 12, Seite 7)");
  EXPECT_EQ(base::describe(error),
            "Damaged: Strom, page 7: the table has %2 rows instead of 12 (/jahr.kwd)");
  EXPECT_EQ(base::germanDetail(errorWith("der Betrag ist zu groß")), "der Betrag ist zu groß");
}

TEST(Reasons, BeginWithTheSentenceOfTheirCode) {
  using base::ErrorCode;
  const struct {
    ErrorCode code;
    std::string name, word;
  } codes[] = {{ErrorCode::NotFound, "NotFound", "nicht vorhanden"},
               {ErrorCode::NoSpace, "NoSpace", "kein Platz"},
               {ErrorCode::InUse, "InUse", "bereits geöffnet"},
               {ErrorCode::Encrypted, "Encrypted", "verschlüsselt"},
               {ErrorCode::Damaged, "Damaged", "beschädigt"},
               {ErrorCode::MissingColumn, "MissingColumn", "Ein Feld fehlt"},
               {ErrorCode::InvalidValue, "InvalidValue", "passt nicht in das Feld"},
               {ErrorCode::Cancelled, "Cancelled", "abgebrochen"}};
  for (const auto& [code, name, word] : codes) {
    base::Error error;
    error.code = code;
    EXPECT_EQ(base::describe(error), name);
    EXPECT_THAT(base::germanReason(error), testing::HasSubstr(word));
  }
}

}  // namespace
