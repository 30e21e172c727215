#pragma once

#include <string>

#include "charts/Scene.h"
#include "charts/TextMeasure.h"
#include "charts/Theme.h"

namespace charts {

// A scene in the making, with the colours and text sizes that belong to it.
class Canvas {
 public:
  // leastSize: pixels below which no text is made smaller.
  Canvas(Scene& scene, const Theme& theme, const TextMeasure& measure, double leastSize = 8)
      : scene_(scene), theme_(theme), measure_(measure), leastSize_(leastSize) {}

  Scene& scene() const { return scene_; }
  const Theme& theme() const { return theme_; }
  TextExtent measure(const std::string& text, const Font& font) const {
    return measure_.measure(text, font);
  }
  // The room that a text takes when it is turned.
  Size boxOf(const std::string& text, const Font& font, int rotation) const;

  // The room of every text so far.
  std::vector<Rect> textBoxes() const;

  // The text with the middle of its box there.
  void textAround(Point center, const std::string& text, const Font& font, Color color,
                  int rotation = 0);
  // The text beginning (ending) at x, vertically around y.
  void textFrom(Point place, const std::string& text, const Font& font, Color color);
  void textUpTo(Point place, const std::string& text, const Font& font, Color color);

  // Strokes over an area that has been filled. The other year's are in the colour of the ground,
  // which tells it apart on a grey print as well; the rest has none.
  void pattern(const std::vector<Point>& outline, Hue hue);
  void hatch(const std::vector<Point>& outline, Color color, double width = 1);

  // The font made smaller, down to the least size, until the text is no wider; then the text cut
  // short with an ellipsis. May end as "".
  std::string fit(std::string text, Font& font, double width) const;

 private:
  void add(Point place, const std::string& text, const Font& font, Color color, Align align);

  Scene& scene_;
  const Theme& theme_;
  const TextMeasure& measure_;
  double leastSize_;
};

// A circle as a polygon.
std::vector<Point> circle(Point center, double radius, int corners = 20);

}  // namespace charts
