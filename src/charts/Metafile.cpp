#include "charts/Metafile.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace charts {
namespace {

constexpr double kLargestCoordinate = 32000;
constexpr double kFinest = 20;

class SceneDrawer {
 public:
  SceneDrawer(double scale, MetafileSink& sink) : scale_(scale), sink_(sink) {}

  void operator()(const Shape& shape) {
    if (shape.points.size() < 2) return;
    setPen(shape.stroke);
    if (!shape.closed) {
      sink_.polyline(points(shape));
      return;
    }
    setBrush(shape.fill);
    sink_.polygon(points(shape));
  }

  void operator()(const Text& item) {
    const bool newFont = !hasFont_ || item.font.size != font_.size ||
                         item.font.bold != font_.bold || item.rotation != rotation_;
    if (newFont) sink_.setFont(item.font, item.rotation);
    font_ = item.font;
    rotation_ = item.rotation;
    hasFont_ = true;
    if (textColor_ != item.color) sink_.setTextColor(item.color);
    textColor_ = item.color;
    if (align_ != item.align) sink_.setAlign(item.align);
    align_ = item.align;
    sink_.text(toUnits(item.at), item);
  }

 private:
  void setPen(const std::optional<Stroke>& pen) {
    const bool same = hasPen_ && pen.has_value() == pen_.has_value() &&
                      (!pen || (pen->color == pen_->color && pen->width == pen_->width &&
                                pen->dashed == pen_->dashed));
    if (!same) sink_.setPen(pen);
    pen_ = pen;
    hasPen_ = true;
  }
  void setBrush(const std::optional<Color>& brush) {
    if (!hasBrush_ || brush != brush_) sink_.setBrush(brush);
    brush_ = brush;
    hasBrush_ = true;
  }
  std::int16_t toUnits(double coordinate) const {
    return static_cast<std::int16_t>(
        std::lround(std::clamp(coordinate * scale_, -kLargestCoordinate, kLargestCoordinate)));
  }
  MetafilePoint toUnits(Point point) const { return {toUnits(point.x), toUnits(point.y)}; }
  std::vector<MetafilePoint> points(const Shape& shape) const {
    std::vector<MetafilePoint> result;
    for (const Point& point : shape.points) result.push_back(toUnits(point));
    return result;
  }

  double scale_;
  MetafileSink& sink_;
  std::optional<Stroke> pen_;
  std::optional<Color> brush_;
  std::optional<Color> textColor_;
  std::optional<Align> align_;
  Font font_;
  int rotation_ = 0;
  bool hasPen_ = false, hasBrush_ = false, hasFont_ = false;
};

}  // namespace

double metafileScale(const Scene& scene) {
  const double largest = std::max({scene.width, scene.height, 1.0});
  return std::min(kFinest, kLargestCoordinate / largest);
}

void drawScene(const Scene& scene, double scale, MetafileSink& sink) {
  SceneDrawer drawer(scale, sink);
  drawer(
      Shape{Rect{0, 0, scene.width, scene.height}.corners(), scene.background, std::nullopt, true});
  for (const auto& item : scene.items) std::visit(drawer, item);
}

RecordBytes& RecordBytes::u8(unsigned value) {
  data_.push_back(static_cast<std::uint8_t>(value & 0xff));
  return *this;
}
RecordBytes& RecordBytes::u16(std::uint32_t value) {
  return u8(value).u8(value >> 8);
}
RecordBytes& RecordBytes::u32(std::uint32_t value) {
  return u16(value).u16(value >> 16);
}
RecordBytes& RecordBytes::f32(float value) {
  return u32(std::bit_cast<std::uint32_t>(value));
}
RecordBytes& RecordBytes::zeros(std::size_t count) {
  data_.resize(data_.size() + count);
  return *this;
}
RecordBytes& RecordBytes::bytes(base::ByteSpan data) {
  data_.insert(data_.end(), data.begin(), data.end());
  return *this;
}
RecordBytes& RecordBytes::color(Color color) {
  return u8(color.red).u8(color.green).u8(color.blue).u8(0);
}

}  // namespace charts
