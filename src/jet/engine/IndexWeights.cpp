#include "jet/engine/IndexWeights.h"

#include <string_view>

namespace jet {
namespace {

// One entry per character, sixteen characters per line:
//   -       no weight, left out
//   6B      weight; 6B6B two weights
//   4A/13   weight and accent
//   60+     weight of a letter that accents count; ++ counts as two
//   u80     no weight, but a code of its own at the end of the key
// clang-format off
constexpr std::string_view kGeneral4Table =
    "- u03 u04 u05 u06 u07 u08 u09 u0A 0803 0804 0805 0806 0807 u0B u0C "
    "u0D u0E u0F u10 u11 u12 u13 u14 u15 u16 u17 u18 u19 u1A u1B u1C "
    "07 09 0A 0C 0E 10 12 u80 14 16 18 2C 1A u82 1C 1E "
    "36 38 3A 3C 3E 40 42 44 46 48 20 22 2E 30 32 24 "
    "26 4A 4C 4D 4F 51 53 55 57 59 5B 5C 5E 60 62 64 "
    "66 68 69 6B 6D 6F 71 73 75 76 78 27 29 2A 2B02 2B03 "
    "2B07 4A 4C 4D 4F 51 53 55 57 59 5B 5C 5E 60 62 64 "
    "66 68 69 6B 6D 6F 71 73 75 76 78 2B09 2B0B 2B0D 2B0F u1D "
    "u1E u1F u20 u21 u22 u23 u24 u25 u26 u27 u28 u29 u2A u2B u2C u2D "
    "u2E u2F u30 u31 u32 u33 u34 u35 u36 u37 u38 u39 u3A u3B u3C u3D "
    "0802 2B10 34A6 34A7 34A8 34A9 2B11 34AA 2B12 34AB 4A/03 3305 34AC u83 34AD 2B13 "
    "34AE 3304 3A 3C 2B14 34AF 34B0 34B1 2B15 38 64/03 3307 3712 3716 371A 2B16 "
    "4A/0F 4A/0E 4A/12 4A/19 4A/13 4A/1A 4A51 4D/1C "
    "51/0F 51/0E 51/12 51/13 59/0F 59/0E 59/12 59/13 "
    "4F/68 62/19 64/0F 64/0E 64/12 64/19 64/13 3309 "
    "64/21 6F/0F 6F/0E 6F/12 6F/13 76/0E 6D57 6B6B "
    "4A/0F 4A/0E 4A/12 4A/19 4A/13 4A/1A 4A51 4D/1C "
    "51/0F 51/0E 51/12 51/13 59/0F 59/0E 59/12 59/13 "
    "4F/68 62/19 64/0F 64/0E 64/12 64/19 64/13 330A "
    "64/21 6F/0F 6F/0E 6F/12 6F/13 76/0E 6D57 76/13 ";

constexpr std::string_view kGeneral3Table =
    "10 10 10 10 10 10 10 10 10 11 10 10 10 10 10 10 "
    "10 10 10 10 10 10 10 10 10 10 10 10 10 10 10 10 "
    "11 12 13 14 15 16 17 18 19 1A 1B 1C 1D 1E 1F 20 "
    "56 57 58 59 5A 5B 5C 5D 5E 5F 21 22 23 24 25 26 "
    "27 60+ 61 62+ 64 66+ 67 68 69 6A+ 6B 6C 6D 6F 70+ 72+ "
    "73 74 75 76+ 77 78+ 7A 7B 7C 7D+ 7E 28 29 2A 2B 2C "
    "2D 60+ 61 62+ 64 66+ 67 68 69 6A+ 6B 6C 6D 6F 70+ 72+ "
    "73 74 75 76+ 77 78+ 7A 7B 7C 7D+ 7E 2E 2F 30 31 10 "
    "10 10 18 32 13 33 34 35 36 37 76/A 18 7266 10 10 10 "
    "10 18 18 13 13 38 1E 1E 39 3A 76/A 18 7266 10 10 7D/6 "
    "11 3B 3C 3D 3E 3F 40 41 42 43 44 13 45 1E 46 47 "
    "48 49 58 59 4A 4B 4C 4D 4E 57 4F 13 50 51 52 53 "
    "60/3 60/4 60/5 60/7 60/6 60/8 6066 62/9 66/3 66/4 66/5 66/6 6A/3 6A/4 6A/5 6A/6 "
    "65 70/7 72/3 72/4 72/5 72/7 72/6 54 81 78/3 78/4 78/5 78/6 7D/4 7F 7676++ "
    "60/3 60/4 60/5 60/7 60/6 60/8 6066 62/9 66/3 66/4 66/5 66/6 6A/3 6A/4 6A/5 6A/6 "
    "65 70/7 72/3 72/4 72/5 72/7 72/6 55 81 78/3 78/4 78/5 78/6 7D/4 7F 7D/6 ";
// clang-format on

constexpr std::uint8_t digit(char c) {
  return static_cast<std::uint8_t>(c <= '9' ? c - '0' : c - 'A' + 10);
}

constexpr std::uint8_t number(std::string_view digits) {
  std::uint8_t result = 0;
  for (const char c : digits) result = static_cast<std::uint8_t>(result * 16 + digit(c));
  return result;
}

constexpr CharacterWeight parse(std::string_view entry) {
  CharacterWeight weight;
  if (entry == "-") return weight;
  if (entry.front() == 'u') {
    weight.ignorableCode = number(entry.substr(1));
    return weight;
  }
  for (; entry.ends_with('+'); entry.remove_suffix(1)) ++weight.letters;
  const std::size_t slash = entry.find('/');
  if (slash != std::string_view::npos) weight.accent = number(entry.substr(slash + 1));
  const std::string_view inlined = entry.substr(0, slash);
  weight.count = static_cast<std::uint8_t>(inlined.size() / 2);
  for (std::uint8_t i = 0; i < weight.count; ++i)
    weight.bytes[i] = number(inlined.substr(std::size_t{2} * i, 2));
  return weight;
}

constexpr WeightTable parseTable(std::string_view text) {
  WeightTable table{};
  for (CharacterWeight& weight : table) {
    const std::size_t end = text.find(' ');
    weight = parse(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return table;
}

constexpr WeightTable kGeneral4 = parseTable(kGeneral4Table);
constexpr WeightTable kGeneral3 = parseTable(kGeneral3Table);
static_assert(kGeneral4[0xFF].accent == 0x13 && kGeneral3[0xFF].accent == 6);

}  // namespace

const WeightTable& general4Weights() {
  return kGeneral4;
}
const WeightTable& general3Weights() {
  return kGeneral3;
}

}  // namespace jet
