#pragma once

#include <string>

#include "charts/Scene.h"

namespace charts {

// The scene as an SVG document (UTF-8); the values are named for screen readers where names are
// given. By hand, because Qt's generator comes with a module that the Windows build cannot have,
// and with a painter, which the layers below the windows have not.
std::string toSvg(const Scene& scene, const std::string& title, const std::string& description);

}  // namespace charts
