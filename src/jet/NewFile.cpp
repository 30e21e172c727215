#include "jet/NewFile.h"

#include <algorithm>

#include "jet/DataPage.h"
#include "jet/Rc4.h"
#include "jet/format/Version.h"

namespace jet {
namespace {

using base::Bytes;
using format::kJet4;

constexpr std::uint32_t kGlobalMapPage = 1;
constexpr std::uint32_t kBitmapHead = sizeof(format::BitmapPage);
constexpr std::uint32_t kPagesInBitmap = (kJet4.pageSize - kBitmapHead) * 8;
constexpr std::size_t kCommitBytes = 0xE00;
constexpr std::size_t kEngineName = 0x98;
// Creation date and engine build belong together with the mask of the owner fields in the catalog
// (CatalogRows.h): how the mask follows from them is not known, so a known pair is used for every
// file.
constexpr std::uint64_t kCreationDate = 0x40E4AB3E3BD3853E;
constexpr std::uint32_t kEngineBuild = 0x261C;

void setMapBit(std::span<std::uint8_t> row, std::uint32_t page) {
  row[sizeof(format::InlineMapHead) + page / 8] |= static_cast<std::uint8_t>(1U << (page % 8));
}

std::uint32_t pagesInMap(std::size_t rowLength) {
  return static_cast<std::uint32_t>(8 * (rowLength - sizeof(format::InlineMapHead)));
}

}  // namespace

NewFile::NewFile(MapKind kind, std::size_t mapLength)
    : kind_(kind), globalMapLength_(mapLength), mapLength_(kUsualMapLength) {
  append();
  append();
  writeHeader();
  auto map = DataPageEditor::format(kJet4, page(kGlobalMapPage), kGlobalMapPage);
  map.insert(emptyMap(globalMapLength_), SlotState::Row);
  map.insert(Bytes(kUsualMapLength), SlotState::Row);
}

void NewFile::writeHeader() {
  format::HeaderPage4 header{};
  header.magic = format::kMagic;
  std::copy(std::begin(format::kSignature), std::end(format::kSignature), header.signature.begin());
  header.version = kJet4.number;
  header.unknown18 = 0x100U;
  header.unknown1C = 0x101U;
  for (std::uint32_t i = 0; i < 4; ++i) header.systemTables[i] = 2 + i;
  header.codePage = std::uint16_t{1252};
  header.engineBuild = kEngineBuild;
  header.sortOrder = std::uint32_t{format::kSortOrderGeneral};
  header.creationDate = std::bit_cast<double>(kCreationDate);
  // No password: zeros, masked with the day of the creation date.
  const base::le32 day = static_cast<std::uint32_t>(header.creationDate.get());
  const auto mask = std::bit_cast<std::array<std::uint8_t, 4>>(day);
  for (std::size_t i = 0; i < header.password.size(); ++i) header.password[i] = mask[i % 4];

  const auto bytes = page(0);
  std::memcpy(bytes.data(), &header, sizeof(header));
  applyRc4(format::kMaskKey,
           bytes.subspan(format::kMaskStart, sizeof(header) - format::kMaskStart));
  constexpr std::array<std::uint8_t, 7> kName = {0x54, 0x06, 0, 0, '4', '.', '0'};
  std::copy(kName.begin(), kName.end(), bytes.begin() + kEngineName);
  for (std::size_t i = 0; i < 256; ++i) bytes[kCommitBytes + 2 * i + 1] = 1;
  bytes[kCommitBytes] = 1;
}

std::uint32_t NewFile::append() {
  pages_.emplace_back(kJet4.pageSize);
  return pageCount() - 1;
}

void NewFile::startMapPage(std::size_t rowLength) {
  mapLength_ = rowLength;
  mapPage_ = append();
  DataPageEditor::format(kJet4, page(mapPage_), 0);
}

RowPointer NewFile::addMap() {
  auto editor = DataPageEditor::open(kJet4, mapPage_, page(mapPage_));
  if (!editor->hasRoomFor(mapLength_)) {
    startMapPage(mapLength_);
    editor = DataPageEditor::open(kJet4, mapPage_, page(mapPage_));
  }
  const std::size_t slot = editor->insert(emptyMap(mapLength_), SlotState::Row);
  return {mapPage_, static_cast<std::uint8_t>(slot)};
}

Bytes NewFile::emptyMap(std::size_t length) const {
  Bytes row(length);
  if (kind_ == MapKind::Reference)
    row[0] = static_cast<std::uint8_t>(format::UsageMapForm::Reference);
  return row;
}

std::span<std::uint8_t> NewFile::mapRow(RowPointer map) {
  return DataPageEditor::open(kJet4, map.page, page(map.page))->bytes(map.slot);
}

// The bitmap page of a reference map that holds the bit of a page; 0 when the row has no room for
// it. Made when it is first needed.
std::uint32_t NewFile::bitmapPage(RowPointer map, std::uint32_t number) {
  const std::size_t entry = sizeof(std::uint8_t) + 4 * std::size_t{number / kPagesInBitmap};
  if (entry + 4 > mapRow(map).size()) return 0;
  base::le32 bitmap;
  std::memcpy(&bitmap, mapRow(map).data() + entry, sizeof(bitmap));
  if (bitmap == 0) {
    bitmap = append();
    page(bitmap)[0] = static_cast<std::uint8_t>(format::PageKind::Bitmap);
    page(bitmap)[1] = 1;
    std::memcpy(mapRow(map).data() + entry, &bitmap, sizeof(bitmap));
  }
  return bitmap;
}

void NewFile::setInMap(RowPointer map, std::uint32_t number) {
  if (kind_ == MapKind::Reference) {
    const std::uint32_t bitmap = bitmapPage(map, number);
    const std::uint32_t bit = number % kPagesInBitmap;
    if (bitmap != 0)
      page(bitmap)[kBitmapHead + bit / 8] |= static_cast<std::uint8_t>(1U << (bit % 8));
    else
      mapsTooShort_ = true;
  } else if (number < pagesInMap(mapRow(map).size())) {
    setMapBit(mapRow(map), number);
  } else {
    mapsTooShort_ = true;
  }
}

// Free are the pages beyond the end of the file, as far as the map reaches.
void NewFile::fillGlobalMap() {
  const RowPointer global{kGlobalMapPage, 0};
  std::uint32_t end = pagesInMap(mapRow(global).size());
  if (kind_ == MapKind::Reference) {
    for (std::uint32_t i = 0; i < pageCount(); i += kPagesInBitmap) bitmapPage(global, i);
    end = (pageCount() + kPagesInBitmap - 1) / kPagesInBitmap * kPagesInBitmap;
  }
  for (std::uint32_t i = pageCount(); i < end; ++i) setInMap(global, i);
}

base::Bytes NewFile::finish() {
  fillGlobalMap();
  Bytes file;
  file.reserve(pages_.size() * kJet4.pageSize);
  for (const Bytes& content : pages_) file.insert(file.end(), content.begin(), content.end());
  return file;
}

}  // namespace jet
