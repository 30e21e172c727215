#pragma once

#include <cstdint>
#include <span>

#include "base/Bytes.h"

namespace jet {

// Encrypts or decrypts in place (RC4 is its own inverse). The key is not empty.
void applyRc4(base::ByteSpan key, std::span<std::uint8_t> data);

}  // namespace jet
