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
  // Page 0 of a new file without page key and password; the page is all zeros before.
  static void writeNew(const format::Version& version, std::span<std::uint8_t> page);
  static constexpr std::size_t kBytes = sizeof(format::HeaderPage4);
};

}  // namespace jet
