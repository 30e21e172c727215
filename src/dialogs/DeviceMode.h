#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Bytes.h"

// A printer's document settings as the systems hand them over, and the rules by which they become
// properties. No Qt here.
namespace dialogs {

// Bits of DeviceMode::fields: which of the settings the printer has filled in. Published values.
enum DeviceModeField : std::uint32_t {
  kOrientation = 0x1,
  kPaperSize = 0x2,
  kPaperLength = 0x4,
  kPaperWidth = 0x8,
  kScale = 0x10,
  kCopies = 0x100,
  kDefaultSource = 0x200,
  kPrintQuality = 0x400,
  kColor = 0x800,
  kDuplex = 0x1000,
  kYResolution = 0x2000,
  kTTOption = 0x4000,
  kCollate = 0x8000,
  kFormName = 0x10000,
  kIcmMethod = 0x800000,
  kIcmIntent = 0x1000000,
  kMediaType = 0x2000000,
  kDitherType = 0x4000000,
};

inline constexpr std::int16_t kPortrait = 1;
inline constexpr std::int16_t kLandscape = 2;

// The record with 8-bit texts (UTF-8 here) as printers fill it. Lengths are tenths of a millimetre.
struct DeviceMode {
  std::array<char, 32> deviceName;  // ends at its first NUL, or fills the whole field
  base::le16 specVersion;
  base::le16 driverVersion;
  base::le16 size;
  base::le16 driverExtra;
  base::le32 fields;
  base::le16s orientation;
  base::le16s paperSize;
  base::le16s paperLength;
  base::le16s paperWidth;
  base::le16s scale;
  base::le16s copies;
  base::le16s defaultSource;
  base::le16s printQuality;
  base::le16s color;
  base::le16s duplex;
  base::le16s yResolution;
  base::le16s ttOption;
  base::le16s collate;
  std::array<char, 32> formName;
  base::le16 logPixels;
  base::le32 bitsPerPixel;
  base::le32 pixelsWidth;
  base::le32 pixelsHeight;
  base::le32 displayFlags;
  base::le32 displayFrequency;
  base::le32 icmMethod;
  base::le32 icmIntent;
  base::le32 mediaType;
  base::le32 ditherType;
  std::array<std::uint8_t, 6> rest;  // only the beginning of what systems append is kept
};
static_assert(sizeof(DeviceMode) == 146);

// Texts of the record: as many whole UTF-8 characters as the field holds, and back.
std::array<char, 32> deviceModeText(std::string_view utf8);
std::string textOf(const std::array<char, 32>& field);

// The text up to its first NUL; the whole text where it has none.
std::string_view clipNull(std::string_view text);

// Properties of the document. A setting that the device mode does not mark keeps its value.
struct DocumentSettings {
  std::int16_t Orientation = kPortrait;
  std::int16_t PaperSize = 0;
  std::int16_t PaperLength = 0;
  std::int16_t PaperWidth = 0;
  std::int16_t ScalePercent = 0;
  std::int16_t Copies = 1;
  std::int16_t DefaultSource = 0;
  std::int16_t PrintQuality = 0;
  std::int16_t Color = 0;
  std::int16_t Duplex = 0;
  std::int16_t YResolution = 0;
  std::int16_t TTOption = 0;
  std::int16_t Collate = 0;
  std::string FormName;
  std::uint32_t MediaType = 0;
  std::uint32_t ICMMethod = 0;
  std::uint32_t ICMIntent = 0;
  std::uint32_t DitherType = 0;
};

// The application's current printer, as far as the device mode changes it.
struct PrinterState {
  std::int16_t orientation = kPortrait;
  std::int16_t paperSize = 0;
};

// Copies the marked settings. Orientation and paper size also become the current printer's; paper
// length and width change places when that printer then stands in landscape; copies that are not
// marked are 1.
void applyDeviceMode(const DeviceMode& mode, DocumentSettings& settings, PrinterState& printer);

}  // namespace dialogs
