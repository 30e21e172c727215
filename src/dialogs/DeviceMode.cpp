#include "dialogs/DeviceMode.h"

#include <algorithm>

namespace dialogs {

std::array<char, 32> deviceModeText(std::string_view utf8) {
  std::array<char, 32> field{};
  std::size_t length = std::min(utf8.size(), field.size());
  const auto isInsideCharacter = [&](std::size_t at) {
    return at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0) == 0x80;
  };
  while (length > 0 && isInsideCharacter(length)) --length;
  std::copy_n(utf8.begin(), length, field.begin());
  return field;
}

std::string textOf(const std::array<char, 32>& field) {
  return std::string(clipNull({field.data(), field.size()}));
}

std::string_view clipNull(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

void applyDeviceMode(const DeviceMode& mode, DocumentSettings& settings, PrinterState& printer) {
  const std::uint32_t fields = mode.fields;
  const auto copy = [fields](std::uint32_t bit, auto& property, const auto& value) {
    if (fields & bit) property = value.get();
  };
  copy(kOrientation, settings.Orientation, mode.orientation);
  copy(kOrientation, printer.orientation, mode.orientation);
  copy(kPaperSize, settings.PaperSize, mode.paperSize);
  copy(kPaperSize, printer.paperSize, mode.paperSize);
  const bool upright = printer.orientation == kPortrait;
  copy(kPaperLength, upright ? settings.PaperLength : settings.PaperWidth, mode.paperLength);
  copy(kPaperWidth, upright ? settings.PaperWidth : settings.PaperLength, mode.paperWidth);
  copy(kScale, settings.ScalePercent, mode.scale);
  settings.Copies = 1;
  copy(kCopies, settings.Copies, mode.copies);
  copy(kDefaultSource, settings.DefaultSource, mode.defaultSource);
  copy(kPrintQuality, settings.PrintQuality, mode.printQuality);
  copy(kColor, settings.Color, mode.color);
  copy(kDuplex, settings.Duplex, mode.duplex);
  copy(kYResolution, settings.YResolution, mode.yResolution);
  copy(kTTOption, settings.TTOption, mode.ttOption);
  copy(kCollate, settings.Collate, mode.collate);
  if (fields & kFormName) settings.FormName = textOf(mode.formName);
  copy(kMediaType, settings.MediaType, mode.mediaType);
  copy(kIcmMethod, settings.ICMMethod, mode.icmMethod);
  copy(kIcmIntent, settings.ICMIntent, mode.icmIntent);
  copy(kDitherType, settings.DitherType, mode.ditherType);
}

}  // namespace dialogs
