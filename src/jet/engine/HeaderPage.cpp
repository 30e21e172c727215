#include "jet/engine/HeaderPage.h"

#include <algorithm>
#include <cmath>

#include "jet/engine/Damage.h"
#include "jet/engine/Rc4.h"

namespace jet {
namespace {

bool hasSignature(base::ByteSpan start, std::string_view signature) {
  const base::ByteSpan expected = base::asBytes(signature);
  return start.size() >= 4 + expected.size() &&
         std::equal(format::kMagic.begin(), format::kMagic.end(), start.begin()) &&
         std::equal(expected.begin(), expected.end(), start.begin() + 4);
}

// A password is masked with the day of the creation date, again and again.
void maskPassword(const format::HeaderFormat& layout, std::span<std::uint8_t> header) {
  if (layout.dateOffset == 0) return;
  base::lef64 date;
  std::memcpy(&date, header.data() + layout.dateOffset, sizeof date);
  const double days = date;
  const bool inRange = days >= 0 && days < 4294967296.0;
  const base::le32 mask = inRange ? static_cast<std::uint32_t>(days) : 0;
  const auto raw = std::bit_cast<std::array<std::uint8_t, 4>>(mask);
  for (std::size_t i = 0; i < layout.passwordLength; ++i)
    header[layout.passwordOffset + i] ^= raw[i % raw.size()];
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
    return at(0, refuse(ErrorCode::Truncated, "the header page is incomplete"));
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
  // Files without a password hold zeros there, masked or not.
  maskPassword(layout, bytes);
  const auto password = std::span(bytes).subspan(layout.passwordOffset, layout.passwordLength);
  header.hasPassword =
      std::any_of(password.begin(), password.end(), [](std::uint8_t b) { return b != 0; });
  return header;
}

void HeaderPage::writeNew(const format::Version& version, std::span<std::uint8_t> page) {
  const format::HeaderFormat& layout = version.header;
  format::HeaderPage4 start{};  // the same in all versions up to the system tables
  start.magic = format::kMagic;
  std::copy(std::begin(format::kSignature), std::end(format::kSignature), start.signature.begin());
  start.version = version.number;
  start.unknown18 = 0x100U;
  start.unknown1C = 0x101U;
  for (std::uint32_t i = 0; i < 4; ++i) start.systemTables[i] = 2 + i;
  std::memcpy(page.data(), &start, offsetof(format::HeaderPage4, unused30));
  layout.sortOrder.set(page, format::kSortOrderGeneral);
  layout.codePage.set(page, 1252);
  layout.engineBuild.set(page, layout.newBuild);
  const base::le64 date = layout.newDate;
  if (layout.dateOffset != 0) std::memcpy(page.data() + layout.dateOffset, &date, sizeof date);
  maskPassword(layout, page);
  for (std::size_t i = format::kMaskStart; i < layout.size; ++i) page[i] ^= headerMask()[i];
  std::copy(layout.newTail.begin(), layout.newTail.end(),
            page.begin() + static_cast<std::ptrdiff_t>(layout.size));
  for (std::size_t i = 0; i < 256; ++i) page[layout.commitBytes + 2 * i + 1] = 1;
  page[layout.commitBytes] = 1;
}

}  // namespace jet
