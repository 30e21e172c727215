#include "charts/Labels.h"

#include <algorithm>

namespace charts {
namespace {

constexpr double kPadding = 1;
constexpr double kGap = 0.5;  // around a label

bool isFree(const Rect& box, const std::vector<Rect>& taken) {
  return std::none_of(taken.begin(), taken.end(),
                      [&box](const Rect& other) { return box.intersects(other); });
}

struct Candidate {
  Point center;
  bool avoidsObstacles = false;
};

Size boxOf(const Canvas& canvas, const LabelRequest& request, const ChartOptions& options) {
  const Size size = canvas.boxOf(request.text, labelFont(options), options.labelRotation);
  return {size.width + 2 * kPadding, size.height};
}

double directionOf(const LabelRequest& request) {
  return request.side == LabelSide::Above ? -1 : 1;
}

// Labels look alike: either all stand at their preferred place or none does.
bool allPreferredFit(const Canvas& canvas, const Rect& bounds,
                     const std::vector<LabelRequest>& requests, const std::vector<Rect>& obstacles,
                     const ChartOptions& options) {
  std::vector<Rect> taken = canvas.textBoxes();
  for (const LabelRequest& request : requests) {
    if (!request.preferred) continue;
    const Size size = boxOf(canvas, request, options);
    const double offset = directionOf(request) * (options.labelDistance + size.height / 2);
    const Rect box = Rect::around(*request.preferred + Point{0, offset}, size);
    if (!bounds.contains(box) || !isFree(box, taken) || !isFree(box, obstacles)) return false;
    taken.push_back(box.grown(kGap));
  }
  return true;
}

// Places in the order in which they are wanted.
std::vector<Candidate> candidates(const LabelRequest& request, Size box, double distance) {
  if (request.side == LabelSide::Inside) {
    if (request.room.height < box.height || request.room.width < box.width) return {};
    return {{request.anchor, false}};
  }
  const double direction = directionOf(request);
  const double first = request.clearance + distance + box.height / 2;
  if (request.alike) return {{request.anchor + Point{0, direction * first}, true}};
  const double raised = first + std::min(box.height, 24.0) + 2 * kGap;
  const Point anchor = request.anchor;
  std::vector<Candidate> places;
  if (request.preferred) places.push_back({*request.preferred + Point{0, direction * first}, true});
  for (const bool avoids : {true, false})
    for (const double offset : {direction * first, -direction * first, direction * raised})
      places.push_back({{anchor.x, anchor.y + offset}, avoids});
  return places;
}

// The label of the last month may reach beyond the sheet by itself.
double within(const Rect& bounds, double center, double width) {
  if (width > bounds.width) return center;
  return std::clamp(center, bounds.x + width / 2, bounds.right() - width / 2);
}

bool hasRoom(const Rect& box, bool avoidsObstacles, const Rect& bounds,
             const std::vector<Rect>& taken, const std::vector<Rect>& obstacles) {
  return bounds.contains(box) && isFree(box, taken) && (!avoidsObstacles || isFree(box, obstacles));
}

// Labels of a series look alike: where one of them has no room, all of them go. A series of larger
// values comes first.
void dropSeriesWithoutRoom(const Canvas& canvas, const Rect& bounds,
                           std::vector<LabelRequest>& requests, std::vector<Rect> taken,
                           const std::vector<Rect>& obstacles, const ChartOptions& options) {
  std::vector<int> series;
  for (const LabelRequest& request : requests)
    if (request.alike && std::find(series.begin(), series.end(), request.series) == series.end())
      series.push_back(request.series);
  for (const int one : series) {
    std::vector<Rect> boxes = taken;
    const bool fits = std::all_of(requests.begin(), requests.end(), [&](const auto& request) {
      if (!request.alike || request.series != one) return true;
      const Size size = boxOf(canvas, request, options);
      const auto places = candidates(request, size, options.labelDistance);
      if (places.empty()) return false;
      Point center = places.front().center;
      center.x = within(bounds, center.x, size.width);
      const Rect box = Rect::around(center, size);
      const bool free = hasRoom(box, places.front().avoidsObstacles, bounds, boxes, obstacles);
      boxes.push_back(box.grown(kGap));
      return free;
    });
    if (fits)
      taken = std::move(boxes);
    else
      std::erase_if(requests, [one](const LabelRequest& request) {
        return request.alike && request.series == one;
      });
  }
}

}  // namespace

Font labelFont(const ChartOptions& options) {
  return {std::max(options.labelSize, options.leastSize) * 96 / 72, false};
}

std::size_t placeLabels(Canvas& canvas, const Rect& bounds, std::vector<LabelRequest> requests,
                        const std::vector<Rect>& obstacles, const ChartOptions& options) {
  std::stable_sort(requests.begin(), requests.end(),
                   [](const auto& a, const auto& b) { return a.weight > b.weight; });
  const Font font = labelFont(options);
  std::vector<Rect> taken = canvas.textBoxes();
  std::size_t missing = requests.size();
  dropSeriesWithoutRoom(canvas, bounds, requests, taken, obstacles, options);
  if (!allPreferredFit(canvas, bounds, requests, obstacles, options))
    for (LabelRequest& request : requests) request.preferred.reset();
  for (const LabelRequest& request : requests) {
    const Size size = boxOf(canvas, request, options);
    auto places = candidates(request, size, options.labelDistance);
    for (Candidate& place : places) place.center.x = within(bounds, place.center.x, size.width);
    const auto chosen = std::find_if(places.begin(), places.end(), [&](const Candidate& place) {
      return hasRoom(Rect::around(place.center, size), place.avoidsObstacles, bounds, taken,
                     obstacles);
    });
    if (chosen == places.end()) continue;
    --missing;
    const Rect box = Rect::around(chosen->center, size);
    taken.push_back(box.grown(kGap));
    canvas.scene().fill(box.corners(), canvas.theme().labelFill);
    canvas.textAround(chosen->center, request.text, font, canvas.theme().labelText,
                      options.labelRotation);
  }
  return missing;
}

}  // namespace charts
