#pragma once

#include <cstdint>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/format/Version.h"

namespace jet {

// What page 0 says about the file.
struct HeaderPage {
  const format::Version* version = nullptr;
  std::uint32_t pageKey = 0;  // 0 = pages are not encrypted
  bool hasPassword = false;

  // From the first bytes of a file; fewer than kBytes only when the file is shorter. NotADatabase,
  // NewerVersion, or Truncated when the file ends inside.
  static base::Result<HeaderPage> parse(base::ByteSpan start);
  static constexpr std::size_t kBytes = sizeof(format::HeaderPage4);
};

}  // namespace jet
