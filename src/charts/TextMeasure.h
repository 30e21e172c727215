#pragma once

#include <string>

#include "charts/Scene.h"

namespace charts {

struct TextExtent {
  double width = 0;
  double ascent = 0;   // above the baseline
  double descent = 0;  // below it
  double height() const { return ascent + descent; }
};

// How much room a text takes; whoever draws the scene knows.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual TextExtent measure(const std::string& text, const Font& font) const = 0;
};

}  // namespace charts
