#include "charts/Scene.h"

#include <algorithm>

namespace charts {

const Mark* Scene::markAt(Point place) const {
  const auto found = std::find_if(marks.rbegin(), marks.rend(), [place](const Mark& mark) {
    return isInside(mark.outline, place);
  });
  return found == marks.rend() ? nullptr : &*found;
}

const Mark* Scene::findMark(int series, int point) const {
  const auto found = std::find_if(marks.begin(), marks.end(), [series, point](const Mark& mark) {
    return mark.series == series && mark.point == point;
  });
  return found == marks.end() ? nullptr : &*found;
}

}  // namespace charts
