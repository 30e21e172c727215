#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "base/Paths.h"

// Compares bytes with the approved file of that name in tests/golden. A missing one fails; what
// was received stays behind in the build's bin folder. UPDATE_GOLDEN=1 rewrites the approved file.
inline testing::AssertionResult matchesGolden(const std::string& name, const std::string& bytes) {
  const std::string approved = std::string(KALVIRA_GOLDEN) + "/" + name;
  const auto put = [&](const std::string& path) {
    std::ofstream(base::toPath(path), std::ios::binary) << bytes;
  };
  if (const char* update = std::getenv("UPDATE_GOLDEN"); update && *update == '1') put(approved);

  std::ifstream file(base::toPath(approved), std::ios::binary);
  std::ostringstream expected;
  expected << file.rdbuf();
  if (file && expected.str() == bytes) return testing::AssertionSuccess();
  const std::string received = std::string(KALVIRA_BIN) + "/received-" + name;
  put(received);
  return testing::AssertionFailure()
         << (file ? "differs from " : "is missing: ") << approved << "; received: " << received;
}
