#pragma once

#include <array>
#include <cstdint>

#include "base/Bytes.h"

namespace jet {

// A running 64-bit checksum. Every step is a bijection of its state for a given word, so that a
// change of a single 8-byte word never goes unnoticed, and other damage with odds of 1 in 2^64. Not
// meant against forgery. Different seeds give independent sums. By hand because the sum is part of
// the journal's format, which must not change with a library's version.
//
// Long spans go through four states side by side, since a step waits for the multiplication of the
// one before it: a commit sums the whole year file, and should cost no more than its syncs.
class Checksum {
 public:
  explicit Checksum(std::uint64_t seed) : state_(seed ^ kIncrement) {}

  Checksum& add(base::ByteSpan bytes) {
    std::size_t done = addLanes(bytes);
    for (; done + 8 <= bytes.size(); done += 8)
      state_ = mixed(state_, word(bytes.data() + done, 8));
    state_ = mixed(state_, word(bytes.data() + done, bytes.size() - done));
    return add(bytes.size());  // so that zeros at the end count
  }
  Checksum& add(std::uint64_t number) {
    state_ = mixed(state_, number);
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
  static std::uint64_t mixed(std::uint64_t state, std::uint64_t number) {
    state = (state ^ number) * kMultiplier;
    return state ^ (state >> 32);
  }
  // The number of bytes taken: all but the last few of a long span.
  std::size_t addLanes(base::ByteSpan bytes) {
    constexpr std::size_t kLanes = 4;
    constexpr std::size_t kBlock = kLanes * 8;
    const std::size_t end = bytes.size() / kBlock * kBlock;
    if (end == 0) return 0;
    std::array<std::uint64_t, kLanes> lanes;
    for (std::size_t i = 0; i < kLanes; ++i) lanes[i] = state_ + i * kIncrement;
    for (std::size_t at = 0; at < end; at += kBlock)
      for (std::size_t i = 0; i < kLanes; ++i)
        lanes[i] = mixed(lanes[i], word(bytes.data() + at + 8 * i, 8));
    for (const std::uint64_t lane : lanes) state_ = mixed(state_, lane);
    return end;
  }

  std::uint64_t state_;
};

}  // namespace jet
