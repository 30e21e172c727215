#include "analysis/Sheet.h"

#include <algorithm>
#include <cmath>

namespace analysis {
namespace {

using charts::Align;
using charts::Color;
using charts::Point;
using charts::Rect;

constexpr double kMargin = 12;
constexpr double kGap = 6;
constexpr double kKeyMark = 10;

}  // namespace

Sheet::Sheet(const Frame& frame, const std::string& title, double labelRoom, int linesBelow)
    : theme_(frame.theme),
      canvas_(scene_, theme_, frame.measure),
      textSize_(frame.textSize),
      labelRoom_(labelRoom) {
  scene_.width = frame.size.width;
  scene_.height = frame.size.height;
  scene_.background = theme_.outer;
  const double line = textHeight();
  titleWidth_ = textWidth(title, true);
  text({kMargin, kMargin + line * 0.8}, title, ink(), true, Align::Start);
  plot_ = {kMargin, kMargin + 2 * line + kGap, scene_.width - 2 * kMargin,
           scene_.height - 2 * kMargin - (2 + linesBelow) * line - 2 * kGap};
}

double Sheet::textWidth(const std::string& text, bool bold) const {
  return canvas_.measure(text, font(bold)).width;
}

double Sheet::textHeight() const {
  return canvas_.measure("Äg", font(true)).height();
}

void Sheet::text(Point at, const std::string& text, Color color, bool bold, Align align) {
  scene_.items.emplace_back(charts::Text{at, text, font(bold), color, align, 0});
}

void Sheet::key(const std::vector<KeyEntry>& entries) {
  constexpr double kApart = 2 * kMargin;
  const double room = scene_.width - 2 * kMargin;
  const auto widthOf = [&](const KeyEntry& entry) {
    return kKeyMark + kGap + textWidth(entry.text) + kApart;
  };
  double width = 0;
  for (const KeyEntry& entry : entries) width += widthOf(entry);
  double base = kMargin + textHeight() * 0.8;
  double x = scene_.width - kMargin - (width - kApart);
  // Beside the title, or in lines of their own below it where that is too long.
  const bool beside = titleWidth_ + width <= room;
  if (!beside) x = scene_.width;
  for (const KeyEntry& entry : entries) {
    if (!beside && x + widthOf(entry) - kApart > scene_.width - kMargin) {
      x = kMargin;
      base += textHeight();
      plot_.y += textHeight();
      plot_.height -= textHeight();
    }
    addKey({x, base}, entry);
    x += widthOf(entry);
  }
}

void Sheet::addKey(Point at, const KeyEntry& entry) {
  const Rect mark{at.x, at.y - kKeyMark, kKeyMark, kKeyMark};
  if (entry.mark == KeyEntry::Mark::Line)
    line({{at.x, mark.center().y}, {mark.right(), mark.center().y}}, entry.color, 2.4);
  else if (entry.mark == KeyEntry::Mark::Filled)
    scene_.fill(mark.corners(), entry.color);
  else {
    scene_.fill(mark.corners(), charts::mix(ground(), entry.color, 0.15),
                charts::Stroke{entry.color, 1});
    canvas_.hatch(mark.corners(), entry.color);
  }
  charts::Font written = font();
  const std::string words =
      canvas_.fit(entry.text, written, scene_.width - kMargin - mark.right() - kGap);
  scene_.items.emplace_back(
      charts::Text{{mark.right() + kGap, at.y}, words, written, ink(), Align::Start, 0});
}

void Sheet::values(double smallest, double largest, const std::string& unit) {
  const int most = std::max(2, static_cast<int>(plot_.height / (2.2 * textHeight())));
  axis_ = charts::makeAxis(smallest, largest, std::min(most, 6));
  grid(unit);
}

void Sheet::grid(const std::string& unit) {
  const std::string scaled = (axis_.scaleName.empty() ? "" : axis_.scaleName + ' ') + unit;
  double widest = textWidth(scaled);
  for (const double tick : axis_.ticks()) widest = std::max(widest, textWidth(axis_.label(tick)));
  plot_.x += widest + kGap;
  plot_.width -= widest + kGap + labelRoom_;
  text({plot_.x - kGap, plot_.y - textHeight() * 0.75}, scaled, quiet(), false, Align::End);
  for (const double tick : axis_.ticks()) {
    const bool zero = tick == 0;
    line({{plot_.x, y(tick)}, {plot_.right(), y(tick)}}, zero ? theme_.axis : theme_.grid, 1);
    text({plot_.x - kGap, y(tick) + textSize_ * 0.35}, axis_.label(tick), quiet(), false,
         Align::End);
  }
}

void Sheet::names(const std::vector<std::string>& names, int front) {
  const int count = static_cast<int>(names.size());
  if (count == 0) return;
  double widest = 0;
  for (const std::string& name : names) widest = std::max(widest, textWidth(name, true));
  const double slot = plot_.width / count;
  const int step = std::max(1, static_cast<int>(std::ceil((widest + kGap) / slot)));
  // Counted from the end: the latest one always has its name.
  for (int i = count - 1; i >= 0; i -= step) {
    const bool bold = i == front;
    text({slotCenter(i, count), plot_.bottom() + kGap + textHeight() * 0.8},
         names[static_cast<std::size_t>(i)], bold ? ink() : quiet(), bold, Align::Middle);
  }
}

void Sheet::numbers(double largest, const std::string& unit) {
  const int most = std::max(2, static_cast<int>(plot_.width / (1.6 * textWidth("100.000"))));
  const charts::Axis axis = charts::makeAxis(0, largest, most);
  const double base = plot_.bottom() + kGap + textHeight() * 0.8;
  for (const double tick : axis.ticks())
    if (tick <= largest)
      text({across(tick / largest), base}, axis.label(tick), quiet(), false, Align::Middle);
  text({plot_.center().x, base + textHeight()},
       (axis.scaleName.empty() ? "" : axis.scaleName + ' ') + unit, quiet(), false, Align::Middle);
}

double Sheet::y(double value) const {
  return plot_.bottom() - axis_.share(value) * plot_.height;
}

double Sheet::slotCenter(int slot, int count) const {
  return plot_.x + (slot + 0.5) * plot_.width / count;
}

void Sheet::bar(double center, double width, double value, Color color) {
  scene_.fill(Rect{center - width / 2, std::min(y(value), y(0)), width, std::fabs(y(value) - y(0))}
                  .corners(),
              color);
}

void Sheet::hatchedBar(double center, double width, double value, Color color) {
  const Rect bar{center - width / 2, std::min(y(value), y(0)), width, std::fabs(y(value) - y(0))};
  if (bar.height <= 0) return;
  scene_.fill(bar.corners(), charts::mix(ground(), color, 0.12), charts::Stroke{color, 1.2});
  canvas_.hatch(bar.corners(), color);
}

void Sheet::whisker(double center, double width, double low, double high) {
  line({{center, y(low)}, {center, y(high)}}, ink(), 1.2);
  for (const double end : {low, high})
    line({{center - width / 2, y(end)}, {center + width / 2, y(end)}}, ink(), 1.2);
}

void Sheet::line(std::vector<Point> points, Color color, double width, bool dashed) {
  scene_.line(std::move(points), {color, width, dashed});
}

void Sheet::point(Point at, Color color) {
  scene_.fill(charts::circle(at, 4), color, charts::Stroke{ground(), 1.4});
}

void Sheet::endLabel(Point end, const std::string& text, Color color, bool bold) {
  // Where the end is taken, a line above or below it, but not among the names below the plot.
  for (const double lines : {0.0, -1.0, 1.0, -2.0, 2.0}) {
    const double shift = lines * textHeight();
    const Rect box{end.x + kGap, end.y + shift - textHeight() / 2, textWidth(text, bold),
                   textHeight()};
    if (shift > 0 && box.bottom() > plot_.bottom() + kGap) continue;
    const auto taken = [&](const Rect& other) { return other.intersects(box); };
    if (std::any_of(endLabels_.begin(), endLabels_.end(), taken)) continue;
    endLabels_.push_back(box);
    this->text({box.x, end.y + shift + textSize_ * 0.35}, text, color, bold, Align::Start);
    return;
  }
}

}  // namespace analysis
