#include "charts/SvgWriter.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace charts {
namespace {

std::string number(double value) {
  const auto hundredths = static_cast<long long>(std::llround(std::fabs(value) * 100));
  std::string text = std::to_string(hundredths / 100);
  if (hundredths % 100 != 0) {
    std::string fraction = std::to_string(hundredths % 100);
    if (fraction.size() == 1) fraction.insert(fraction.begin(), '0');
    if (fraction.back() == '0') fraction.pop_back();
    text += "." + fraction;
  }
  return value < 0 && hundredths != 0 ? "-" + text : text;
}

std::string hex(Color color) {
  std::array<char, 8> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "#%02x%02x%02x", color.red, color.green, color.blue);
  return buffer.data();
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '&')
      result += "&amp;";
    else if (c == '<')
      result += "&lt;";
    else if (c == '>')
      result += "&gt;";
    else if (c == '"')
      result += "&quot;";
    else if (static_cast<unsigned char>(c) >= 0x20)
      result += c;
  }
  return result;
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}

std::string element(const Shape& shape) {
  std::string points;
  for (const Point& point : shape.points) {
    if (!points.empty()) points += ' ';
    points += number(point.x) + "," + number(point.y);
  }
  std::string text = shape.closed ? "<polygon" : "<polyline";
  text += attribute("points", points);
  text += attribute("fill", shape.fill && shape.closed ? hex(*shape.fill) : "none");
  if (shape.stroke) {
    text += attribute("stroke", hex(shape.stroke->color));
    text += attribute("stroke-width", number(shape.stroke->width));
    if (shape.stroke->dashed) text += attribute("stroke-dasharray", "5 4");
  }
  return text + "/>\n";
}

std::string element(const Text& item) {
  constexpr std::array<const char*, 3> kAnchors = {"start", "middle", "end"};
  std::string text =
      "<text" + attribute("x", number(item.at.x)) + attribute("y", number(item.at.y)) +
      attribute("font-size", number(item.font.size)) + attribute("fill", hex(item.color)) +
      attribute("text-anchor", kAnchors.at(static_cast<std::size_t>(item.align)));
  if (item.font.bold) text += attribute("font-weight", "bold");
  if (item.rotation != 0)
    text += attribute("transform", "rotate(" + std::to_string(-item.rotation) + " " +
                                       number(item.at.x) + " " + number(item.at.y) + ")");
  if (item.text.find("  ") != std::string::npos) text += attribute("xml:space", "preserve");
  return text + ">" + escaped(item.text) + "</text>\n";
}

}  // namespace

std::string toSvg(const Scene& scene, const std::string& title, const std::string& description) {
  const std::string width = number(scene.width), height = number(scene.height);
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" +
                     attribute("xmlns", "http://www.w3.org/2000/svg") + attribute("width", width) +
                     attribute("height", height) +
                     attribute("viewBox", "0 0 " + width + " " + height) +
                     attribute("font-family", "Arial, 'Liberation Sans', Helvetica, sans-serif") +
                     attribute("stroke-linejoin", "round") + attribute("stroke-linecap", "round") +
                     attribute("fill-rule", "evenodd") + attribute("role", "img") + ">\n";
  text += "<title>" + escaped(title) + "</title>\n<desc>" + escaped(description) + "</desc>\n";
  text += "<rect" + attribute("width", width) + attribute("height", height) +
          attribute("fill", hex(scene.background)) + "/>\n";
  for (const auto& item : scene.items)
    text += std::visit([](const auto& one) { return element(one); }, item);
  return text + "</svg>\n";
}

}  // namespace charts
