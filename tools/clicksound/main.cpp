// Writes the soft click that the program plays: clicksound OUT.wav
#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <string>

#include "base/Bytes.h"

namespace {

// RIFF header of a sound without compression.
struct WaveHeader {
  std::array<char, 4> riff = {'R', 'I', 'F', 'F'};
  base::le32 rest;  // bytes behind this field
  std::array<char, 8> wave = {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '};
  base::le32 formatSize = 16U;
  base::le16 linear = std::uint16_t{1};
  base::le16 channels = std::uint16_t{1};
  base::le32 samplesPerSecond;
  base::le32 bytesPerSecond;
  base::le16 bytesPerSample = std::uint16_t{2};
  base::le16 bitsPerSample = std::uint16_t{16};
  std::array<char, 4> data = {'d', 'a', 't', 'a'};
  base::le32 dataSize;
};
static_assert(sizeof(WaveHeader) == 44);

constexpr unsigned kRate = 44100;
constexpr unsigned kSamples = kRate * 60 / 1000;

// A short tap: two tones that die away quickly, with a soft start.
double sampleAt(double seconds) {
  const double turn = 2 * std::numbers::pi * seconds;
  const double tap = std::sin(turn * 1250) * std::exp(-seconds * 170);
  const double body = 0.6 * std::sin(turn * 480) * std::exp(-seconds * 110);
  const double rise = std::min(1.0, seconds / 0.0015);
  return 0.22 * rise * (tap + body);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 1;
  std::ofstream out(argv[1], std::ios::binary);
  WaveHeader header;
  header.samplesPerSecond = kRate;
  header.bytesPerSecond = kRate * 2;
  header.dataSize = kSamples * std::size_t{2};
  header.rest = static_cast<std::uint32_t>(sizeof header - 8 + kSamples * 2);
  out.write(reinterpret_cast<const char*>(&header), sizeof header);
  for (unsigned i = 0; i < kSamples; ++i) {
    const base::le16s sample =
        static_cast<std::int16_t>(std::lround(32767 * sampleAt(static_cast<double>(i) / kRate)));
    out.write(reinterpret_cast<const char*>(&sample), sizeof sample);
  }
  return out.flush() ? 0 : 1;
}
