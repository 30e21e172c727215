#include "FuzzInput.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "BaseFiles.h"

namespace fuzz {

base::ByteSpan Input::take(std::size_t count) {
  const base::ByteSpan part = rest_.first(std::min(count, rest_.size()));
  rest_ = rest_.subspan(part.size());
  return part;
}

std::uint8_t Input::byte() {
  const base::ByteSpan part = take(1);
  return part.empty() ? std::uint8_t{0} : part[0];
}

std::uint16_t Input::number() {
  const std::uint8_t low = byte();
  return static_cast<std::uint16_t>(low | byte() << 8);
}

std::uint64_t Input::longNumber() {
  std::uint64_t result = 0;
  for (int i = 0; i < 8; ++i) result = result << 8 | byte();
  return result;
}

base::Bytes databaseFrom(Input& input) {
  constexpr std::array<std::uint8_t, 8> kStart = {0, 1, 0, 0, 'S', 't', 'a', 'n'};
  constexpr std::size_t kPage = 4096;
  const base::ByteSpan all = input.rest();
  if (all.size() > kStart.size() && std::equal(kStart.begin(), kStart.end(), all.begin())) {
    input.take(all.size());
    return {all.begin(), all.end()};
  }
  const auto& files = baseFiles();
  base::Bytes file = files[input.byte() % files.size()];
  for (int changes = input.byte() % 32; changes > 0 && !input.empty(); --changes) {
    const std::size_t page = input.byte() % (file.size() / kPage);
    const std::size_t offset = page * kPage + input.number() % kPage;
    const base::ByteSpan bytes = input.take(1U + input.byte() % 4);
    for (std::size_t i = 0; i < bytes.size() && offset + i < file.size(); ++i)
      file[offset + i] = bytes[i];
  }
  return file;
}

void require(bool promise, const std::string& what) {
  if (promise) return;
  std::fprintf(stderr, "broken promise: %s\n", what.c_str());
  std::abort();
}

}  // namespace fuzz
