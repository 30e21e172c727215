#pragma once

#include <string>

#include "charts/Scene.h"

namespace sample {

// The scene as text, one item per line, coordinates with one decimal.
std::string toText(const charts::Scene& scene);

}  // namespace sample
