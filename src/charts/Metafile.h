#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "charts/Scene.h"
#include "charts/TextMeasure.h"

// Metafiles by hand: no kept library writes them on both systems.
namespace charts {

// A point in the 16-bit coordinates of a metafile.
struct MetafilePoint {
  std::int16_t x = 0;
  std::int16_t y = 0;
};

// What both metafile formats can do, one record per call. Drawing with states: each call is made
// only when the state changes.
class MetafileSink {
 public:
  virtual ~MetafileSink() = default;
  virtual void setPen(const std::optional<Stroke>& pen) = 0;
  virtual void setBrush(const std::optional<Color>& brush) = 0;
  virtual void setFont(const Font& font, int rotation) = 0;
  virtual void setTextColor(Color color) = 0;
  virtual void setAlign(Align align) = 0;
  virtual void polygon(const std::vector<MetafilePoint>& points) = 0;
  virtual void polyline(const std::vector<MetafilePoint>& points) = 0;
  virtual void text(MetafilePoint at, const Text& item) = 0;
};

// Units of the metafile per pixel of the scene: as fine as 16 bits allow, at most 20.
double metafileScale(const Scene& scene);

// Background and items of the scene in order.
void drawScene(const Scene& scene, double scale, MetafileSink& sink);

// The picture files, whole. Text is in "Arial".
base::Bytes toEmf(const Scene& scene, const TextMeasure& measure);
// With the placeable header; texts are windows-1252, as the format knows no other.
base::Bytes toWmf(const Scene& scene);

// Bytes as the formats want them: little-endian numbers one after the other.
class RecordBytes {
 public:
  RecordBytes& u8(unsigned value);
  RecordBytes& u16(std::uint32_t value);
  RecordBytes& i16(std::int32_t value) { return u16(static_cast<std::uint32_t>(value)); }
  RecordBytes& u32(std::uint32_t value);
  RecordBytes& i32(std::int32_t value) { return u32(static_cast<std::uint32_t>(value)); }
  RecordBytes& f32(float value);
  RecordBytes& zeros(std::size_t count);
  RecordBytes& bytes(base::ByteSpan data);
  RecordBytes& color(Color color);  // red, green, blue, 0
  const base::Bytes& data() const { return data_; }

 private:
  base::Bytes data_;
};

}  // namespace charts
