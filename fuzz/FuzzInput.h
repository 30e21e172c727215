#pragma once

#include <cstdint>
#include <string>

#include "base/Bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

// Takes an input apart; behind its end everything is 0.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}
  bool empty() const { return rest_.empty(); }
  std::uint8_t byte();
  std::uint16_t number();
  std::uint64_t longNumber();
  base::ByteSpan take(std::size_t count);
  base::ByteSpan rest() const { return rest_; }

 private:
  base::ByteSpan rest_;
};

// A database file. Inputs stay small, and damage hits structures, because they are changes to a
// file that our own engine has made: number of the file, count of changes, and per change page,
// offset (2 bytes), length (1 to 4) and bytes. An input that begins as a database does is the file
// itself.
base::Bytes databaseFrom(Input& input);

// Ends the program when a promise is broken, so that the fuzzer keeps the input.
void require(bool promise, const std::string& what);

}  // namespace fuzz
