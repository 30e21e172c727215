#include <algorithm>
#include <cmath>

#include "base/TextCodec.h"
#include "charts/Metafile.h"

namespace charts {
namespace {

enum Function : std::uint32_t {
  kEof = 0x0000,
  kSetBkMode = 0x0102,
  kSetMapMode = 0x0103,
  kSetPolyFillMode = 0x0106,
  kSelectObject = 0x012d,
  kSetTextAlign = 0x012e,
  kDeleteObject = 0x01f0,
  kSetTextColor = 0x0209,
  kSetWindowOrg = 0x020b,
  kSetWindowExt = 0x020c,
  kCreatePen = 0x02fa,
  kCreateFont = 0x02fb,
  kCreateBrush = 0x02fc,
  kPolygon = 0x0324,
  kPolyline = 0x0325,
  kTextOut = 0x0521,
};

constexpr std::uint32_t kAnisotropic = 8, kTransparent = 1, kAlternate = 1;
constexpr std::uint32_t kPenDash = 1, kPenNull = 5, kBrushNull = 1;
constexpr std::uint32_t kAlignBaseline = 24, kAlignRight = 2, kAlignCenter = 6;

class WmfSink final : public MetafileSink {
 public:
  WmfSink(const Scene& scene, double scale) : scene_(scene), scale_(scale) {
    record(kSetMapMode, RecordBytes().u16(kAnisotropic));
    record(kSetWindowOrg, RecordBytes().i16(0).i16(0));
    record(kSetWindowExt, RecordBytes().i16(units(scene.height)).i16(units(scene.width)));
    record(kSetBkMode, RecordBytes().u16(kTransparent));
    record(kSetPolyFillMode, RecordBytes().u16(kAlternate));
  }

  void setPen(const std::optional<Stroke>& pen) override {
    RecordBytes data;
    if (pen)
      data.u16(pen->dashed ? kPenDash : 0)
          .i16(std::max(1, units(pen->width)))
          .i16(0)
          .color(pen->color);
    else
      data.u16(kPenNull).i16(0).i16(0).u32(0);
    create(kCreatePen, data, pen_);
  }
  void setBrush(const std::optional<Color>& brush) override {
    RecordBytes data;
    if (brush)
      data.u16(0).color(*brush).u16(0);
    else
      data.u16(kBrushNull).u32(0).u16(0);
    create(kCreateBrush, data, brush_);
  }
  void setFont(const Font& font, int rotation) override {
    RecordBytes data;
    data.i16(-units(font.size)).i16(0).i16(rotation * 10).i16(rotation * 10);
    data.i16(font.bold ? 700 : 400);
    data.u32(0);                      // italic, underlined, struck out, western characters
    data.u8(0).u8(0).u8(4).u8(0x22);  // precisions, antialiased, variable-pitch sans serif
    data.bytes(base::asBytes("Arial")).zeros(1);
    create(kCreateFont, data, font_);
  }
  void setTextColor(Color color) override { record(kSetTextColor, RecordBytes().color(color)); }
  void setAlign(Align align) override {
    const std::uint32_t sideways = align == Align::End      ? kAlignRight
                                   : align == Align::Middle ? kAlignCenter
                                                            : 0;
    record(kSetTextAlign, RecordBytes().u16(kAlignBaseline | sideways));
  }
  void polygon(const std::vector<MetafilePoint>& points) override { drawPoints(kPolygon, points); }
  void polyline(const std::vector<MetafilePoint>& points) override {
    drawPoints(kPolyline, points);
  }
  void text(MetafilePoint at, const Text& item) override {
    const std::string text = base::toWindows1252(item.text);
    RecordBytes data;
    data.u16(static_cast<std::uint32_t>(text.size())).bytes(base::asBytes(text));
    if (text.size() % 2 != 0) data.u8(0);
    record(kTextOut, data.i16(at.y).i16(at.x));
  }

  base::Bytes finish() {
    record(kEof, RecordBytes());
    RecordBytes file;
    placeableHeader(file);
    constexpr std::uint32_t kHeaderWords = 9;
    const auto words = static_cast<std::uint32_t>(records_.data().size() / 2);
    file.u16(1).u16(kHeaderWords).u16(0x0300).u32(kHeaderWords + words);
    file.u16(static_cast<std::uint32_t>(slots_.size())).u32(largest_).u16(0);
    file.bytes(records_.data());
    return file.data();
  }

 private:
  static constexpr std::size_t kNone = SIZE_MAX;

  int units(double pixels) const { return static_cast<int>(std::lround(pixels * scale_)); }

  void record(std::uint32_t function, const RecordBytes& data) {
    const auto words = static_cast<std::uint32_t>(3 + data.data().size() / 2);
    records_.u32(words).u16(function).bytes(data.data());
    largest_ = std::max(largest_, words);
  }

  // A new object takes the lowest free slot of the player's table; the one that it replaces is
  // given back once it is no longer selected.
  void create(std::uint32_t function, const RecordBytes& data, std::size_t& slot) {
    record(function, data);
    const auto free = std::find(slots_.begin(), slots_.end(), false);
    const auto made = static_cast<std::size_t>(free - slots_.begin());
    if (free == slots_.end())
      slots_.push_back(true);
    else
      *free = true;
    record(kSelectObject, RecordBytes().u16(static_cast<std::uint32_t>(made)));
    if (slot != kNone) {
      record(kDeleteObject, RecordBytes().u16(static_cast<std::uint32_t>(slot)));
      slots_[slot] = false;
    }
    slot = made;
  }

  void drawPoints(std::uint32_t function, const std::vector<MetafilePoint>& points) {
    RecordBytes data;
    data.u16(static_cast<std::uint32_t>(points.size()));
    for (const MetafilePoint& point : points) data.i16(point.x).i16(point.y);
    record(function, data);
  }

  void placeableHeader(RecordBytes& file) const {
    RecordBytes head;
    head.u32(0x9ac6cdd7).u16(0).i16(0).i16(0);
    head.i16(units(scene_.width)).i16(units(scene_.height));
    head.u16(static_cast<std::uint32_t>(units(96))).u32(0);
    std::uint32_t checksum = 0;
    for (std::size_t i = 0; i < head.data().size(); i += 2)
      checksum ^= static_cast<std::uint32_t>(head.data()[i] | head.data()[i + 1] << 8);
    file.bytes(head.data()).u16(checksum);
  }

  const Scene& scene_;
  double scale_;
  RecordBytes records_;
  std::vector<bool> slots_;
  std::size_t pen_ = kNone, brush_ = kNone, font_ = kNone;
  std::uint32_t largest_ = 0;
};

}  // namespace

base::Bytes toWmf(const Scene& scene) {
  const double scale = metafileScale(scene);
  WmfSink sink(scene, scale);
  drawScene(scene, scale, sink);
  return sink.finish();
}

}  // namespace charts
