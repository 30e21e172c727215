#pragma once

#include <array>
#include <cstdint>

#include "base/Bytes.h"

// Page 0: what kind of file this is. The bytes from 0x18 on are masked with a constant key stream;
// the structs show them unmasked.
namespace jet::format {

struct HeaderPage3 {
  std::array<std::uint8_t, 4> magic;  // 00 01 00 00
  std::array<char, 16> signature;     // "Standard Jet DB", 0
  base::le32 version;                 // 0
  base::le32 unknown18;               // 0x100
  base::le32 unknown1C;               // 0x101
  std::array<base::le32, 4> systemTables;
  std::array<std::uint8_t, 8> unused30;
  base::le16 unknown38;
  base::le16 sortOrder;  // language id
  base::le16 codePage;
  base::le32 pageKey;                     // 0 = pages are plain
  std::array<std::uint8_t, 20> password;  // ANSI, padded with 0
  base::le16 engineBuild;
  std::array<std::uint8_t, 0x3E> unused58;
};
static_assert(sizeof(HeaderPage3) == 0x96);

struct HeaderPage4 {
  std::array<std::uint8_t, 4> magic;
  std::array<char, 16> signature;
  base::le32 version;  // 1; from 2 on another, newer format
  base::le32 unknown18;
  base::le32 unknown1C;
  std::array<base::le32, 4> systemTables;
  std::array<std::uint8_t, 8> unused30;
  base::le16 unknown38;
  base::le16 unknown3A;
  base::le16 codePage;
  base::le32 pageKey;
  std::array<std::uint8_t, 40> password;  // UTF-16, padded with 0, masked with the creation date
  base::le32 engineBuild;
  base::le32 sortOrder;
  base::lef64 creationDate;  // days since 1899-12-30
  std::array<std::uint8_t, 0x1E> unused7A;
};
static_assert(sizeof(HeaderPage4) == 0x98);

inline constexpr std::size_t kMaskStart =
    0x18;  // magic, signature and version lie before it, plain
// The mask is the RC4 key stream of this key.
inline constexpr std::array<std::uint8_t, 4> kMaskKey = {0xC7, 0xDA, 0x39, 0x6B};
inline constexpr std::array<std::uint8_t, 4> kMagic = {0x00, 0x01, 0x00, 0x00};
inline constexpr char kSignature[] = "Standard Jet DB";
inline constexpr char kNewerSignature[] = "Standard ACE DB";

}  // namespace jet::format
