#pragma once

#include <cstdint>

#include "yearbook/Meter.h"

// One colour per meter wherever it is drawn: mark, bar, line, stripe. 0xRRGGBB, told apart by
// colour-blind eyes too, at least 3:1 on a light and on a dark ground. Never the only sign.
namespace yearbook {

struct GroundColors {
  std::uint32_t light, dark;
};

inline constexpr PerMeter<GroundColors> kMeterColors = {{{
    {0xBD7B00, 0xF0B73A},
    {0x4B3A8F, 0x9F74D8},
    {0x1A7FD0, 0x55B8FA},
    {0x0A6B57, 0x4F9686},
    {0xA8321A, 0xE85036},
}}};
// What is compared with a meter: another year, an offer.
inline constexpr GroundColors kOtherColors = {0x727A84, 0x98A2AD};

}  // namespace yearbook
