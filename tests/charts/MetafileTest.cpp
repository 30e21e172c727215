#include "charts/Metafile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "SampleChart.h"
#include "support/Command.h"
#include "support/TemporaryFolder.h"

namespace {

using base::Bytes;
using charts::Scene;

Scene barScene() {
  charts::ChartOptions options;
  options.type = charts::ChartType::Bar;
  options.threeD = true;
  options.labelRotation = 90;
  return charts::layoutChart(sample::twoYears(), options, charts::Theme::light(), {900, 560},
                             sample::PlainMeasure());
}

std::size_t count(const Scene& scene, bool closed) {
  std::size_t found = 0;
  for (const auto& item : scene.items)
    if (const auto* shape = std::get_if<charts::Shape>(&item)) found += shape->closed == closed;
  return found;
}

std::uint32_t u32(const Bytes& bytes, std::size_t at) {
  return base::ByteView(bytes).read<base::le32>(at)->get();
}
std::uint16_t u16(const Bytes& bytes, std::size_t at) {
  return base::ByteView(bytes).read<base::le16>(at)->get();
}

TEST(Emf, RecordsFillTheFileAndAgreeWithItsHeader) {
  const Scene scene = barScene();
  const Bytes file = charts::toEmf(scene, sample::PlainMeasure());
  EXPECT_EQ(u32(file, 0), 1u);
  EXPECT_EQ(u32(file, 40), 0x464d4520u);
  EXPECT_EQ(u32(file, 48), file.size());
  std::map<std::uint32_t, std::size_t> kinds;
  std::size_t at = 0, records = 0;
  while (at < file.size()) {
    ++kinds[u32(file, at)];
    ++records;
    ASSERT_EQ(u32(file, at + 4) % 4, 0u);
    ASSERT_GE(u32(file, at + 4), 8u);
    at += u32(file, at + 4);
  }
  EXPECT_EQ(at, file.size());
  EXPECT_EQ(u32(file, 52), records);
  EXPECT_EQ(kinds[86], count(scene, true) + 1) << "polygons and the background";
  EXPECT_EQ(kinds[87], count(scene, false));
  EXPECT_EQ(kinds[14], 1u) << "end";
  // The frame in hundredths of a millimetre is the sheet at 96 pixels per inch.
  EXPECT_EQ(u32(file, 32), 23813u);
}

TEST(Wmf, RecordsFillTheFileAndAgreeWithBothHeaders) {
  const Scene scene = barScene();
  const Bytes file = charts::toWmf(scene);
  EXPECT_EQ(u32(file, 0), 0x9ac6cdd7u);
  std::uint16_t checksum = 0;
  for (std::size_t i = 0; i < 20; i += 2) checksum ^= u16(file, i);
  EXPECT_EQ(u16(file, 20), checksum);
  EXPECT_EQ(u16(file, 10), 18000) << "900 pixels, 20 units each";
  EXPECT_EQ(u16(file, 14), 1920) << "units per inch";
  constexpr std::size_t kHeader = 22;
  EXPECT_EQ(std::size_t{u32(file, kHeader + 6)} * 2, file.size() - kHeader);
  std::map<std::uint16_t, std::size_t> kinds;
  std::size_t at = kHeader + 18;
  std::uint32_t largest = 0;
  while (at < file.size()) {
    ++kinds[u16(file, at + 4)];
    largest = std::max(largest, u32(file, at));
    ASSERT_GE(u32(file, at), 3u);
    at += std::size_t{u32(file, at)} * 2;
  }
  EXPECT_EQ(at, file.size());
  EXPECT_EQ(u32(file, kHeader + 12), largest);
  EXPECT_EQ(kinds[0x0324], count(scene, true) + 1);
  EXPECT_EQ(kinds[0x0325], count(scene, false));
  EXPECT_EQ(kinds[0x02fa] + kinds[0x02fb] + kinds[0x02fc] - kinds[0x01f0], 3u)
      << "one pen, one brush and one font are left";
  EXPECT_LE(u16(file, kHeader + 10), 4) << "slots in use at a time";
}

TEST(Metafile, OfAnEndlessSheetStaysWithinSixteenBits) {
  Scene scene;
  scene.width = 1e6;
  scene.height = 10;
  scene.line({{-5e6, 0}, {1e6, 10}}, {});
  EXPECT_NEAR(charts::metafileScale(scene), 0.032, 1e-9);
  EXPECT_GT(charts::toWmf(scene).size(), 40u);
  EXPECT_GT(charts::toEmf(scene, sample::PlainMeasure()).size(), 108u);
}

std::string read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::size_t occurrences(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++found;
  return found;
}

class IndependentReader : public testing::Test {
 protected:
  void write(const std::string& name, const Bytes& bytes) {
    std::ofstream(folder_ / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  std::string quoted(const std::string& name) { return '"' + (folder_ / name) + '"'; }
  void run(const std::string& command) {
    const support::CommandResult result = support::run(command);
    ASSERT_EQ(result.exitCode, 0) << result.output;
  }
  support::TemporaryFolder folder_;
};

TEST_F(IndependentReader, LibwmfFindsEveryShapeAndText) {
  if (!support::isInstalled("wmf2svg")) GTEST_SKIP() << "wmf2svg is missing (Debian: libwmf-bin)";
  const Scene scene = barScene();
  write("a.wmf", charts::toWmf(scene));
  run("wmf2svg -o " + quoted("a.svg") + " " + quoted("a.wmf"));
  const std::string svg = read(folder_ / "a.svg");
  EXPECT_EQ(occurrences(svg, "<polygon"), count(scene, true) + 1);
  EXPECT_EQ(occurrences(svg, "<polyline"), count(scene, false));
  for (const char* text : {">Verbrauch Strom<", ">Monat Januar bis Dezember<", ">Dez<", ">313<"})
    EXPECT_NE(svg.find(text), std::string::npos) << text;
}

// Reads both formats and must find the same shapes in them.
TEST_F(IndependentReader, InkscapeFindsEveryShapeAndText) {
  if (!support::isInstalled("inkscape")) GTEST_SKIP() << "inkscape is missing (Debian: inkscape)";
  const Scene scene = barScene();
  write("a.wmf", charts::toWmf(scene));
  write("a.emf", charts::toEmf(scene, sample::PlainMeasure()));
  for (const std::string name : {"a.wmf", "a.emf"}) {
    run("inkscape --export-plain-svg --export-filename=" + quoted("out.svg") + " " + quoted(name));
    const std::string svg = read(folder_ / "out.svg");
    EXPECT_EQ(occurrences(svg, "<path"), count(scene, true) + count(scene, false) + 1) << name;
    for (const char* text : {">Verbrauch Strom<", ">Monat Januar bis Dezember<", ">Mär<", ">313<"})
      EXPECT_NE(svg.find(text), std::string::npos) << text << " in " << name;
    EXPECT_NE(svg.find("#bd7b00"), std::string::npos) << "colour of the open year in " << name;
  }
}

}  // namespace
