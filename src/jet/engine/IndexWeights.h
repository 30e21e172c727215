#pragma once

#include <array>
#include <cstdint>

// How the two sort orders named "General" weigh characters in index keys.
namespace jet {

struct CharacterWeight {
  std::array<std::uint8_t, 2> bytes{};  // count of them are used
  std::uint8_t count = 0;
  std::uint8_t accent = 0;         // 0 = none; a byte in Jet 4, a nibble in Jet 3
  std::uint8_t letters = 0;        // Jet 3: for how many letters it counts before an accent
  std::uint8_t ignorableCode = 0;  // Jet 4: not 0 for characters that only order equal texts
};

using WeightTable = std::array<CharacterWeight, 256>;

// Jet 4: by Unicode character U+0000 to U+00FF.
const WeightTable& general4Weights();
// Jet 3: by byte of code page 1252.
const WeightTable& general3Weights();

}  // namespace jet
