#include "jet/HeaderPage.h"

#include <algorithm>
#include <cmath>

#include "jet/Damage.h"
#include "jet/Rc4.h"

namespace jet {
namespace {

using base::ErrorCode;

bool hasSignature(base::ByteSpan start, std::string_view signature) {
  const base::ByteSpan expected = base::asBytes(signature);
  return start.size() >= 4 + expected.size() &&
         std::equal(format::kMagic.begin(), format::kMagic.end(), start.begin()) &&
         std::equal(expected.begin(), expected.end(), start.begin() + 4);
}

// Files without a password hold zeros, or in Jet 4 the repeated date that masks it.
bool passwordIsSet(const format::HeaderFormat& header, const base::Bytes& bytes) {
  base::Bytes password(
      bytes.begin() + static_cast<std::ptrdiff_t>(header.passwordOffset),
      bytes.begin() + static_cast<std::ptrdiff_t>(header.passwordOffset + header.passwordLength));
  if (header.dateOffset != 0) {
    base::lef64 date;
    std::memcpy(&date, bytes.data() + header.dateOffset, sizeof date);
    const double days = date;
    const bool inRange = days >= 0 && days < 4294967296.0;
    const base::le32 mask = inRange ? static_cast<std::uint32_t>(days) : 0;
    const auto raw = std::bit_cast<std::array<std::uint8_t, 4>>(mask);
    for (std::size_t i = 0; i < password.size(); ++i) password[i] ^= raw[i % raw.size()];
  }
  return std::any_of(password.begin(), password.end(), [](std::uint8_t b) { return b != 0; });
}

// The key stream that masks page 0, the same for every file.
const std::array<std::uint8_t, HeaderPage::kBytes>& headerMask() {
  static const auto kMask = [] {
    std::array<std::uint8_t, HeaderPage::kBytes> mask{};
    applyRc4(format::kMaskKey, std::span(mask).subspan(format::kMaskStart));
    return mask;
  }();
  return kMask;
}

}  // namespace

base::Result<HeaderPage> HeaderPage::parse(base::ByteSpan start) {
  if (hasSignature(start, format::kNewerSignature)) return base::fail(ErrorCode::NewerVersion, "");
  if (!hasSignature(start, format::kSignature)) return base::fail(ErrorCode::NotADatabase, "");
  if (start.size() < kBytes) {
    base::Failure cut = base::fail(ErrorCode::Truncated, "Kopfseite unvollständig");
    return at(0, cut.value());
  }
  base::le32 number;
  std::memcpy(&number, start.data() + offsetof(format::HeaderPage4, version), sizeof number);
  HeaderPage header;
  for (const format::Version* version : {&format::kJet3, &format::kJet4})
    if (version->number == number) header.version = version;
  if (header.version == nullptr) return base::fail(ErrorCode::NewerVersion, "");

  const format::HeaderFormat& layout = header.version->header;
  base::Bytes bytes(start.begin(), start.begin() + static_cast<std::ptrdiff_t>(layout.size));
  const auto& mask = headerMask();
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] ^= mask[i];
  header.pageKey = layout.pageKey.get(bytes);
  header.hasPassword = passwordIsSet(layout, bytes);
  return header;
}

}  // namespace jet
