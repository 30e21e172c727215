#include "charts/Theme.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using charts::Color;
using charts::Hue;
using charts::Theme;

using Linear = std::array<double, 3>;
using Matrix = std::array<Linear, 3>;

// What remains of a colour in linear light for eyes without one of the three kinds of cones.
constexpr std::array<Matrix, 4> kEyes = {
    {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
     {{{0.367, 0.861, -0.228}, {0.280, 0.673, 0.047}, {-0.012, 0.043, 0.969}}},
     {{{0.152, 1.053, -0.205}, {0.115, 0.786, 0.099}, {-0.004, -0.048, 1.052}}},
     {{{1.256, -0.077, -0.179}, {-0.078, 0.931, 0.148}, {0.005, 0.691, 0.304}}}}};

double linear(std::uint8_t channel) {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

// Lightness and two colour axes, in which distances are about as large as they are seen.
Linear asSeen(Color color, const Matrix& eye) {
  const Linear light = {linear(color.red), linear(color.green), linear(color.blue)};
  Linear seen{};
  for (std::size_t i = 0; i < 3; ++i)
    seen[i] =
        std::clamp(eye[i][0] * light[0] + eye[i][1] * light[1] + eye[i][2] * light[2], 0.0, 1.0);
  const auto root = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
  const double x = root((0.4124 * seen[0] + 0.3576 * seen[1] + 0.1805 * seen[2]) / 0.95047);
  const double y = root(0.2126 * seen[0] + 0.7152 * seen[1] + 0.0722 * seen[2]);
  const double z = root((0.0193 * seen[0] + 0.1192 * seen[1] + 0.9505 * seen[2]) / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double smallestDistance(Color a, Color b) {
  double smallest = 1000;
  for (const Matrix& eye : kEyes) {
    const Linear p = asSeen(a, eye), q = asSeen(b, eye);
    smallest = std::min(smallest, std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]));
  }
  return smallest;
}

double contrast(Color a, Color b) {
  const double x = charts::luminance(a), y = charts::luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

const Theme kDark = Theme::dark(Color::rgb(0x1e2227), Color::rgb(0xe6e9ed));

TEST(Theme, KeepsSeriesApartForEveryEye) {
  for (const Theme& theme : {Theme::light(), kDark}) {
    const std::array together = {Hue::Electricity, Hue::Gas, Hue::Water, Hue::WasteWater};
    for (std::size_t a = 0; a < together.size(); ++a)
      for (std::size_t b = 0; b < a; ++b)
        EXPECT_GT(smallestDistance(theme.color(together[a]), theme.color(together[b])), 18);
    // Closer, as the other year's line is dashed as well.
    for (int hue = 0; hue < 5; ++hue)
      EXPECT_GT(smallestDistance(theme.color(static_cast<Hue>(hue)), theme.color(Hue::OtherYear)),
                11)
          << hue;
  }
}

TEST(Theme, WritesReadablyOnEveryGround) {
  std::vector<Theme> themes = {Theme::light(), kDark};
  for (const unsigned ground : {0x000000u, 0xffffffu, 0x808080u, 0xff0000u, 0xffff00u, 0x0000ffu,
                                0x767676u, 0x00ff00u, 0x993366u})
    themes.push_back(Theme::light().withOuter(Color::rgb(ground)));
  for (const Theme& theme : themes) {
    EXPECT_GT(contrast(theme.text, theme.outer), 3.9) << static_cast<int>(theme.outer.red);
    EXPECT_GT(contrast(theme.quietText, theme.outer), 2.9) << static_cast<int>(theme.outer.red);
    EXPECT_GT(contrast(theme.labelText, theme.labelFill), 7);
  }
}

}  // namespace
