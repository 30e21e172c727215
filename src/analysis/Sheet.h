#pragma once

#include "charts/Axis.h"
#include "charts/Canvas.h"

namespace analysis {

// What a small chart is drawn for.
struct Frame {
  charts::Size size;
  const charts::Theme& theme;
  const charts::TextMeasure& measure;
  double textSize = 12;  // pixels
};

struct KeyEntry {
  enum class Mark { Filled, Hatched, Line } mark = Mark::Filled;
  charts::Color color;
  std::string text;
};

// The frame of a small chart: title and key in one line, the unit above the axis, the grid, names
// below. Places are given as a slot (or a share of the width) and a value.
class Sheet {
 public:
  // labelRoom: at the right of the plot, for the names of lines. linesBelow: 2 where numbers() is
  // called.
  Sheet(const Frame& frame, const std::string& title, double labelRoom = 8, int linesBelow = 1);

  // Before values(): it takes lines of its own where it has no room beside the title.
  void key(const std::vector<KeyEntry>& entries);
  void values(double smallest, double largest, const std::string& unit);
  // Names of the slots below the plot, as many as there is room for; the one in front bold.
  void names(const std::vector<std::string>& names, int front = -1);
  // Numbers along the width, from 0 to largest, and what they count.
  void numbers(double largest, const std::string& unit);

  double y(double value) const;
  double slotCenter(int slot, int count) const;
  double across(double share) const { return plot_.x + share * plot_.width; }
  const charts::Rect& plot() const { return plot_; }

  void bar(double center, double width, double value, charts::Color color);
  // Expected: outline and strokes at 45 degrees.
  void hatchedBar(double center, double width, double value, charts::Color color);
  void whisker(double center, double width, double low, double high);
  void line(std::vector<charts::Point> points, charts::Color color, double width,
            bool dashed = false);
  void point(charts::Point at, charts::Color color);
  void text(charts::Point at, const std::string& text, charts::Color color, bool bold,
            charts::Align align);
  double textWidth(const std::string& text, bool bold = false) const;
  double textHeight() const;
  // A text at the right end of a line or close to it, unless others are there.
  void endLabel(charts::Point end, const std::string& text, charts::Color color, bool bold);

  charts::Canvas& canvas() { return canvas_; }
  charts::Color quiet() const { return theme_.quietText; }
  charts::Color ink() const { return theme_.text; }
  charts::Color ground() const { return theme_.outer; }
  charts::Scene take() { return std::move(scene_); }

 private:
  charts::Font font(bool bold = false) const { return {textSize_, bold}; }
  void grid(const std::string& unit);
  void addKey(charts::Point at, const KeyEntry& entry);

  charts::Scene scene_;
  const charts::Theme& theme_;
  charts::Canvas canvas_;
  double textSize_;
  charts::Rect plot_;
  charts::Axis axis_;
  double labelRoom_;
  double titleWidth_ = 0;
  std::vector<charts::Rect> endLabels_;
};

}  // namespace analysis
