#include "charts/ChartSettings.h"

#include <gtest/gtest.h>

#include "support/MemoryFileSystem.h"

namespace {

using charts::ChartSettings;
using charts::ChartType;

std::string stored(const support::MemoryFileSystem& files) {
  const base::Bytes bytes = files.get("/daten/DiagrEinst.txt");
  return {bytes.begin(), bytes.end()};
}

TEST(ChartSettings, AreThreeNumbersInOneRecord) {
  support::MemoryFileSystem files;
  files.put("/daten/DiagrEinst.txt", {});
  const ChartSettings settings{ChartType::StackedArea, 6, true};
  ASSERT_TRUE(charts::writeSettings(files, "/daten/", settings));
  EXPECT_EQ(stored(files), "5,6,1\r\n");
  EXPECT_EQ(charts::readSettings(files, "/daten/"), settings);
  ASSERT_TRUE(charts::writeSettings(files, "/daten/", ChartSettings()));
  EXPECT_EQ(stored(files), "0,0,0\r\n");
}

TEST(ChartSettings, CountAsZeroWhereTheyCannotBeRead) {
  support::MemoryFileSystem files;
  EXPECT_EQ(charts::readSettings(files, "/daten/"), ChartSettings());
  const std::pair<const char*, ChartSettings> cases[] = {
      {"", {}},
      {"4", {ChartType::Pie, 0, false}},
      {"2,3", {ChartType::StackedBar, 3, false}},
      {"1,2,7\r\n", {ChartType::Bar, 2, false}},
      {" 3 , 0 , 1 ", {ChartType::Area, 0, true}},
      {"6,1,1\r\n", {ChartType::Line, 1, true}},
      {"-1,256,1\r\n", {ChartType::Line, 0, true}},
      {"x,\"y\",1\r\n", {ChartType::Line, 0, true}},
      {"99999999999999999999,1e9,nan", {}}};
  for (const auto& [bytes, settings] : cases)
    EXPECT_EQ(charts::parseSettings(bytes), settings) << bytes;
}

}  // namespace
