#include <gmock/gmock.h>

#include <sstream>

#include "app/ui/CommandLineRun.h"
#include "support/EmptyYear.h"
#include "support/SampleYears.h"

// The commands that write a year, on the sample household's folder.

namespace {

using testing::HasSubstr;

class YearCommands : public testing::Test {
 protected:
  YearCommands() {
    sample::openYear(disk, "Verbrauch2025.kwd");
    disk.put("/programm/Vorlverbr8.kwx", support::emptyYear());
  }
  int run(const std::vector<std::string>& arguments) {
    out.str({});
    err.str({});
    return app::runCommandLine(app::parseCommandLine(arguments),
                               {disk, clock, out, err, "/programm/"});
  }

  support::MemoryFileSystem disk;
  base::FixedClock clock{std::chrono::year(2026) / 1 / 3};
  std::ostringstream out, err;
};

TEST_F(YearCommands, TheNextYearIsMadeAndTheLastOneStaysAsItIs) {
  const auto before = disk.get("/daten/Verbrauch2024.kwd");
  EXPECT_EQ(run({"--fortfuehren", "/daten/Verbrauch2024.kwd", "/daten/Neu.kwd"}), 0) << err.str();
  EXPECT_THAT(out.str(), HasSubstr("Strom, Tag: 44.309 kWh (Stand Dezember)"));
  EXPECT_THAT(out.str(), HasSubstr("Strom: 150,00 Euro im Monat (wie zuletzt)"));
  EXPECT_EQ(disk.get("/daten/Verbrauch2024.kwd"), before);
  const auto made = disk.get("/daten/Neu.kwd");
  EXPECT_EQ(run({"--fortfuehren", "/daten/Verbrauch2025.kwd", "/daten/Neu.kwd"}), 1);
  EXPECT_THAT(err.str(), HasSubstr("bereits vorhanden"));
  EXPECT_EQ(disk.get("/daten/Neu.kwd"), made);
  EXPECT_EQ(run({"--fortfuehren", "/daten/fehlt.kwd", "/daten/Neu2.kwd"}), 1);
  EXPECT_FALSE(disk.exists("/daten/Neu2.kwd"));
}

TEST_F(YearCommands, WhatIsWrittenAsATableGoesIntoTheNextYearAgain) {
  ASSERT_EQ(run({"--fortfuehren", "/daten/Verbrauch2024.kwd", "/daten/Neu.kwd"}), 0);
  ASSERT_EQ(run({"--csv", "/daten/a.csv", "/daten/Verbrauch2025.kwd"}), 0);
  EXPECT_EQ(run({"--einlesen", "/daten/a.csv", "/daten/Neu.kwd"}), 0) << err.str();
  EXPECT_THAT(out.str(), HasSubstr("Gas:\n  Anfangsstand 31.12.2024: 10.114 (wie gespeichert)\n"
                                   "  Januar: 10.354\n"));
  ASSERT_EQ(run({"--csv", "/daten/b.csv", "/daten/Neu.kwd"}), 0);
  const auto readings = [this](const std::string& path) {
    const std::string text = disk.readText(path).value();
    return text.substr(text.find("Datum;"));
  };
  EXPECT_EQ(readings("/daten/b.csv"), readings("/daten/a.csv"));
}

TEST_F(YearCommands, ATableWithAProblemStoresNothing) {
  const auto before = disk.get("/daten/Verbrauch2025.kwd");
  const std::pair<std::string, std::string> tables[] = {
      {"Datum;Gas\n31.12.2025;1\n31.12.2024;5\n", "Zeile 2: Gas: Niedriger als der Stand davor"},
      {"Datum;Gas\n31.12.2025;viel\n", "Zeile 2: „viel“ ist keine Zahl."},
      {"Tag;Wert\n", "Gesucht werden die Spalten Datum"}};
  for (const auto& [table, reason] : tables) {
    disk.put("/daten/a.csv", base::asBytes(table));
    EXPECT_EQ(run({"--einlesen", "/daten/a.csv", "/daten/Verbrauch2025.kwd"}), 1);
    EXPECT_THAT(err.str(), HasSubstr(reason));
    EXPECT_EQ(out.str(), "");
  }
  EXPECT_EQ(run({"--einlesen", "/daten/fehlt.csv", "/daten/Verbrauch2025.kwd"}), 1);
  EXPECT_EQ(disk.get("/daten/Verbrauch2025.kwd"), before);
  EXPECT_FALSE(disk.exists("/daten/Verbrauch2025_Ablesungen.dat"));
}

}  // namespace
