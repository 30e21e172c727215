#pragma once

#include <QString>
#include <string_view>

namespace widgets {

// The layers below the windows speak UTF-8.
inline QString utf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace widgets
