#pragma once

#include <cstdint>
#include <span>

#include "base/Bytes.h"

namespace jet {

// Encrypts or decrypts in place (RC4 is its own inverse). The key is not empty. By hand because a
// crypto library would be a dependency at run time for a dozen lines, and the current ones keep RC4
// switched off.
void applyRc4(base::ByteSpan key, std::span<std::uint8_t> data);

}  // namespace jet
