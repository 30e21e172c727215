#include <algorithm>
#include <cmath>

#include "base/TextCodec.h"
#include "charts/Metafile.h"

namespace charts {
namespace {

enum Record : std::uint32_t {
  kHeader = 1,
  kSetWindowExt = 9,
  kSetWindowOrg = 10,
  kSetViewportExt = 11,
  kSetViewportOrg = 12,
  kEof = 14,
  kSetMapMode = 17,
  kSetBkMode = 18,
  kSetPolyFillMode = 19,
  kSetTextAlign = 22,
  kSetTextColor = 24,
  kSelectObject = 37,
  kCreatePen = 38,
  kCreateBrush = 39,
  kDeleteObject = 40,
  kExtCreateFont = 82,
  kExtTextOut = 84,
  kPolygon16 = 86,
  kPolyline16 = 87,
};

constexpr std::uint32_t kStockNullBrush = 0x80000005;
constexpr std::uint32_t kStockNullPen = 0x80000008;
constexpr std::uint32_t kStockSystemFont = 0x8000000d;
constexpr std::uint32_t kAnisotropic = 8, kTransparent = 1, kAlternate = 1;
constexpr std::uint32_t kAlignBaseline = 24, kAlignRight = 2, kAlignCenter = 6;

// The sheet that the picture refers to: 20 by 11.25 inches at 96 pixels per inch.
constexpr std::int32_t kDeviceWidth = 1920, kDeviceHeight = 1080;
constexpr std::int32_t kDeviceWidthMm = 508, kDeviceHeightMm = 286;
constexpr double kHundredthsMmPerPixel = 2540.0 / 96;

// One object of each kind at a time; handle 0 is the file itself.
enum Handle : std::uint32_t { kPenHandle = 1, kBrushHandle = 2, kFontHandle = 3, kHandleCount = 4 };

class EmfSink final : public MetafileSink {
 public:
  EmfSink(const Scene& scene, double scale, const TextMeasure& measure)
      : scene_(scene), scale_(scale), measure_(measure) {
    const auto pixels = [](double value) { return static_cast<std::int32_t>(std::lround(value)); };
    record(kSetMapMode, RecordBytes().u32(kAnisotropic));
    record(kSetWindowOrg, RecordBytes().i32(0).i32(0));
    record(kSetWindowExt,
           RecordBytes().i32(pixels(scene.width * scale)).i32(pixels(scene.height * scale)));
    record(kSetViewportOrg, RecordBytes().i32(0).i32(0));
    record(kSetViewportExt, RecordBytes().i32(pixels(scene.width)).i32(pixels(scene.height)));
    record(kSetBkMode, RecordBytes().u32(kTransparent));
    record(kSetPolyFillMode, RecordBytes().u32(kAlternate));
  }

  void setPen(const std::optional<Stroke>& pen) override {
    drop(hasPen_, kPenHandle, kStockNullPen);
    hasPen_ = pen.has_value();
    if (!pen) return;
    const auto width = std::max(1L, std::lround(pen->width * scale_));
    record(kCreatePen, RecordBytes()
                           .u32(kPenHandle)
                           .u32(pen->dashed ? 1 : 0)
                           .i32(static_cast<std::int32_t>(width))
                           .i32(0)
                           .color(pen->color));
    select(kPenHandle);
  }
  void setBrush(const std::optional<Color>& brush) override {
    drop(hasBrush_, kBrushHandle, kStockNullBrush);
    hasBrush_ = brush.has_value();
    if (!brush) return;
    record(kCreateBrush, RecordBytes().u32(kBrushHandle).u32(0).color(*brush).u32(0));
    select(kBrushHandle);
  }
  void setFont(const Font& font, int rotation) override {
    drop(hasFont_, kFontHandle, kStockSystemFont);
    hasFont_ = true;
    RecordBytes data;
    data.u32(kFontHandle);
    data.i32(-static_cast<std::int32_t>(std::lround(font.size * scale_))).i32(0);
    data.i32(rotation * 10).i32(rotation * 10).i32(font.bold ? 700 : 400);
    data.u32(0);                      // italic, underlined, struck out, character set
    data.u8(0).u8(0).u8(4).u8(0x22);  // precisions, antialiased, variable-pitch sans serif
    const std::u16string face = u"Arial";
    for (const char16_t c : face) data.u16(c);
    data.zeros(2 * (32 - face.size()));
    data.zeros(320 - 92);  // full name, style and design values that nobody reads
    record(kExtCreateFont, data);
    select(kFontHandle);
  }
  void setTextColor(Color color) override { record(kSetTextColor, RecordBytes().color(color)); }
  void setAlign(Align align) override {
    const std::uint32_t sideways = align == Align::End      ? kAlignRight
                                   : align == Align::Middle ? kAlignCenter
                                                            : 0;
    record(kSetTextAlign, RecordBytes().u32(kAlignBaseline | sideways));
  }
  void polygon(const std::vector<MetafilePoint>& points) override { points16(kPolygon16, points); }
  void polyline(const std::vector<MetafilePoint>& points) override {
    points16(kPolyline16, points);
  }

  void text(MetafilePoint at, const Text& item) override {
    const std::u16string text = base::toUtf16(item.text);
    RecordBytes data;
    bounds(data);
    data.u32(1);  // compatible graphics mode, with the size of a unit in hundredths of a millimetre
    data.f32(static_cast<float>(kHundredthsMmPerPixel / scale_));
    data.f32(static_cast<float>(kHundredthsMmPerPixel / scale_));
    const auto length = static_cast<std::uint32_t>(text.size());
    constexpr std::uint32_t kTextAt = 76;  // from the beginning of the record
    data.i32(at.x).i32(at.y).u32(length).u32(kTextAt).u32(0).zeros(16);
    data.u32(kTextAt + (2 * length + 3) / 4 * 4);
    for (const char16_t c : text) data.u16(c);
    if (length % 2 != 0) data.u16(0);
    advances(data, text, item.font);
    record(kExtTextOut, data);
  }

  base::Bytes finish() {
    record(kEof, RecordBytes().u32(0).u32(20 - 4).u32(20));
    RecordBytes file;
    header(file);
    file.bytes(records_.data());
    return file.data();
  }

 private:
  void record(std::uint32_t type, const RecordBytes& data) {
    records_.u32(type).u32(static_cast<std::uint32_t>(data.data().size() + 8)).bytes(data.data());
    ++count_;
  }
  void select(std::uint32_t handle) { record(kSelectObject, RecordBytes().u32(handle)); }
  void drop(bool exists, std::uint32_t handle, std::uint32_t stock) {
    select(stock);
    if (exists) record(kDeleteObject, RecordBytes().u32(handle));
  }
  void bounds(RecordBytes& data) const {
    data.i32(0).i32(0);
    data.i32(static_cast<std::int32_t>(std::lround(scene_.width)) - 1);
    data.i32(static_cast<std::int32_t>(std::lround(scene_.height)) - 1);
  }
  void points16(std::uint32_t type, const std::vector<MetafilePoint>& points) {
    RecordBytes data;
    bounds(data);
    data.u32(static_cast<std::uint32_t>(points.size()));
    for (const MetafilePoint& point : points) data.i16(point.x).i16(point.y);
    record(type, data);
  }
  // Distances from one character to the next.
  void advances(RecordBytes& data, const std::u16string& text, const Font& font) const {
    double before = 0;
    for (std::size_t i = 1; i <= text.size(); ++i) {
      const double width =
          measure_.measure(base::fromUtf16(std::u16string_view(text).substr(0, i)), font).width;
      data.u32(static_cast<std::uint32_t>(std::lround(std::max(width - before, 0.0) * scale_)));
      before = width;
    }
  }
  void header(RecordBytes& file) const {
    constexpr std::uint32_t kHeaderSize = 108;
    file.u32(kHeader).u32(kHeaderSize);
    bounds(file);
    const auto hundredths = [](double pixels) {
      return static_cast<std::int32_t>(std::lround(pixels * kHundredthsMmPerPixel));
    };
    file.i32(0).i32(0).i32(hundredths(scene_.width)).i32(hundredths(scene_.height));
    file.u32(0x464d4520).u32(0x10000);  // " EMF", version
    file.u32(static_cast<std::uint32_t>(kHeaderSize + records_.data().size()));
    file.u32(count_ + 1).u16(kHandleCount).u16(0);
    file.u32(0).u32(0).u32(0);  // no description, no palette
    file.i32(kDeviceWidth).i32(kDeviceHeight).i32(kDeviceWidthMm).i32(kDeviceHeightMm);
    file.u32(0).u32(0).u32(0);  // no pixel format, no OpenGL
    file.i32(kDeviceWidthMm * 1000).i32(285750);
  }

  const Scene& scene_;
  double scale_;
  const TextMeasure& measure_;
  RecordBytes records_;
  std::uint32_t count_ = 0;
  bool hasPen_ = false, hasBrush_ = false, hasFont_ = false;
};

}  // namespace

base::Bytes toEmf(const Scene& scene, const TextMeasure& measure) {
  const double scale = metafileScale(scene);
  EmfSink sink(scene, scale, measure);
  drawScene(scene, scale, sink);
  return sink.finish();
}

}  // namespace charts
