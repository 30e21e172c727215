#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/Bytes.h"

namespace jet::format {

// Where a number lies in a record and how many bytes it has. Made from the layout structs, so the
// code that reads and writes records asks the version's description and never which version it is.
// A field that a version does not have reads as 0, and writing it does nothing.
struct Field {
  std::uint16_t offset = 0;
  std::uint8_t width = 0;  // 1, 2 or 4; 0 = this version has no such field

  constexpr bool present() const { return width != 0; }

  std::uint32_t get(base::ByteSpan record) const {
    assert(std::size_t{offset} + width <= record.size());
    // By width, so that each is a single load.
    const std::uint8_t* bytes = record.data() + offset;
    switch (width) {
      case 1:
        return bytes[0];
      case 2:
        return bytes[0] | std::uint32_t{bytes[1]} << 8;
      case 4:
        return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
               std::uint32_t{bytes[3]} << 24;
      default:
        return 0;
    }
  }
  void set(std::span<std::uint8_t> record, std::uint32_t value) const {
    assert(std::size_t{offset} + width <= record.size());
    for (unsigned i = 0; i < width; ++i, value >>= 8)
      record[offset + i] = static_cast<std::uint8_t>(value);
  }
};

// The field of a layout struct as offset and width.
#define JET_FIELD(Record, member)                    \
  ::jet::format::Field {                             \
    offsetof(Record, member), sizeof(Record::member) \
  }

}  // namespace jet::format
