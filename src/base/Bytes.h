#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/Result.h"

// Bytes from files: little-endian integers without alignment, and a view whose reads are checked.
namespace base {

using Bytes = std::vector<std::uint8_t>;
using ByteSpan = std::span<const std::uint8_t>;

// An integer or IEEE number as it lies in a file: byte array, byte order in the type, alignment 1,
// so that a struct of them has the size and the offsets of the structure on disk.
template <class T, std::endian order>
class Stored {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  Stored() = default;
  Stored(T value) { set(value); }  // NOLINT(google-explicit-constructor): reads like a field
  Stored& operator=(T value) {
    set(value);
    return *this;
  }
  operator T() const { return get(); }  // NOLINT(google-explicit-constructor)
  T get() const {
    std::array<std::uint8_t, sizeof(T)> raw = bytes_;
    if constexpr (order != std::endian::native) reverse(raw);
    return std::bit_cast<T>(raw);
  }
  void set(T value) {
    auto raw = std::bit_cast<std::array<std::uint8_t, sizeof(T)>>(value);
    if constexpr (order != std::endian::native) reverse(raw);
    bytes_ = raw;
  }

 private:
  static void reverse(std::array<std::uint8_t, sizeof(T)>& raw) {
    for (std::size_t i = 0; i < raw.size() / 2; ++i) std::swap(raw[i], raw[raw.size() - 1 - i]);
  }
  std::array<std::uint8_t, sizeof(T)> bytes_{};
};

using le16 = Stored<std::uint16_t, std::endian::little>;
using le32 = Stored<std::uint32_t, std::endian::little>;
using le64 = Stored<std::uint64_t, std::endian::little>;
using le16s = Stored<std::int16_t, std::endian::little>;
using le32s = Stored<std::int32_t, std::endian::little>;
using le64s = Stored<std::int64_t, std::endian::little>;
using lef32 = Stored<float, std::endian::little>;
using lef64 = Stored<double, std::endian::little>;

// A read-only window on bytes. Every access is checked against its end; a miss is
// ErrorCode::Damaged without a page (the caller, who knows it, adds file and page).
class ByteView {
 public:
  ByteView() = default;
  explicit ByteView(ByteSpan bytes) : bytes_(bytes) {}

  std::size_t size() const { return bytes_.size(); }
  ByteSpan span() const { return bytes_; }

  // The bytes [offset, offset + length).
  Result<ByteSpan> slice(std::size_t offset, std::size_t length) const {
    if (offset > bytes_.size() || length > bytes_.size() - offset)
      return fail(ErrorCode::Damaged, "Angabe zeigt hinter das Ende der Seite");
    return bytes_.subspan(offset, length);
  }

  // A structure or number of the file; T is trivially copyable with alignment 1 or a Stored type.
  template <class T>
  Result<T> read(std::size_t offset) const {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) == 1);
    auto part = slice(offset, sizeof(T));
    if (!part) return Failure(part.error());
    T value;
    std::memcpy(&value, part->data(), sizeof(T));
    return value;
  }

 private:
  ByteSpan bytes_;
};

inline ByteSpan asBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
inline std::string_view asText(ByteSpan bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace base
