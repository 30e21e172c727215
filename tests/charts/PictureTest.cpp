#include "charts/Picture.h"

#include <gtest/gtest.h>

#include "SampleChart.h"
#include "charts/SvgWriter.h"

namespace {

using charts::PrintFit;

TEST(Picture, TellsItsSizeInPixelsAndCentimetres) {
  EXPECT_EQ(charts::dimensionText({9000, 6000}, 15, 15),
            "               Abmessungen  600 x 400 Pixel     [15,9 cm x 10,6 cm]");
  EXPECT_EQ(charts::dimensionText({37, 52}, 14.8, 15),
            "               Abmessungen  2 x 3 Pixel     [0,1 cm x 0,1 cm]")
      << "2.5 pixels are rounded to the even number";
}

TEST(Picture, FitsThePageInFiveWays) {
  const charts::Size page{8, 11}, natural{6, 4};
  const auto size = [&](PrintFit fit) {
    const auto target = charts::placeOnPage(fit, page, natural).target;
    EXPECT_EQ(target.x, 0);
    EXPECT_EQ(target.y, 0);
    return std::pair(target.width, target.height);
  };
  using Pair = std::pair<double, double>;
  EXPECT_EQ(size(PrintFit::OneToOne), Pair(6, 4));
  EXPECT_NEAR(size(PrintFit::Width).second, 4 * 8 / 6.0, 1e-9);
  EXPECT_EQ(size(PrintFit::Height), Pair(8, 11)) << "as wide as the page allows";
  EXPECT_EQ(size(PrintFit::Page), size(PrintFit::Width));
  EXPECT_EQ(size(PrintFit::Maximum), Pair(8, 11));
  const auto big = charts::placeOnPage(PrintFit::OneToOne, page, {20, 4});
  EXPECT_EQ(big.target.width, 8);
  EXPECT_EQ(big.layout.width, 8) << "laid out for the page, not cut off";
}

TEST(Picture, AsSvgEscapesAndTurnsTexts) {
  charts::Scene scene;
  scene.width = 20.5;
  scene.height = 10;
  scene.items.emplace_back(charts::Text{{3, 4.25}, "a<b & \"c\"", {12, true}, {}, {}, 90});
  const std::string svg = charts::toSvg(scene, "T", "D");
  EXPECT_NE(svg.find("viewBox=\"0 0 20.5 10\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("transform=\"rotate(-90 3 4.25)\">a&lt;b &amp; &quot;c&quot;</text>"),
            std::string::npos)
      << svg;
}

}  // namespace
