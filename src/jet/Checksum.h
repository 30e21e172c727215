#pragma once

#include <cstdint>

#include "base/Bytes.h"

namespace jet {

// A running 64-bit checksum. Every step is a bijection of its state for a given word, so that a
// change of a single 8-byte word never goes unnoticed, and other damage with odds of 1 in 2^64. Not
// meant against forgery. Different seeds give independent sums.
class Checksum {
 public:
  explicit Checksum(std::uint64_t seed) : state_(seed ^ kIncrement) {}

  Checksum& add(base::ByteSpan bytes) {
    std::size_t done = 0;
    for (; done + 8 <= bytes.size(); done += 8) mix(word(bytes.data() + done, 8));
    mix(word(bytes.data() + done, bytes.size() - done));
    return add(bytes.size());  // so that zeros at the end count
  }
  Checksum& add(std::uint64_t number) {
    mix(number);
    return *this;
  }
  std::uint64_t value() const {
    std::uint64_t result = state_;
    result = (result ^ (result >> 29)) * kMultiplier;
    result = (result ^ (result >> 32)) * kIncrement;
    return result ^ (result >> 31);
  }

 private:
  // Odd numbers with well-mixed bits; multiplying by one is a bijection.
  static constexpr std::uint64_t kMultiplier = 0xD6E8FEB86659FD93U;
  static constexpr std::uint64_t kIncrement = 0x9E3779B97F4A7C15U;

  static std::uint64_t word(const std::uint8_t* bytes, std::size_t count) {
    std::uint64_t result = 0;
    if (count > 0) std::memcpy(&result, bytes, count);
    if constexpr (std::endian::native == std::endian::little) return result;
    std::uint64_t swapped = 0;
    for (int i = 0; i < 8; ++i) swapped = (swapped << 8) | ((result >> (8 * i)) & 0xFF);
    return swapped;
  }
  void mix(std::uint64_t number) {
    state_ = (state_ ^ number) * kMultiplier;
    state_ ^= state_ >> 32;
  }
  std::uint64_t state_;
};

}  // namespace jet
