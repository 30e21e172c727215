#include "reports/FlexGridHTML.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/GermanNumber.h"
#include "base/TextCodec.h"
#include "base/Trim.h"

namespace reports {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string upperHex(CellColor color) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), color, 16).ptr;
  std::string text(digits.data(), end);
  for (char& c : text)
    if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

double numericValue(const Cell& cell) {
  struct Visitor {
    double operator()(std::monostate) const { return 0; }
    double operator()(const std::string& text) const { return base::parseNumber(text).value_or(0); }
    double operator()(base::Money amount) const { return amount.toDouble(); }
    double operator()(double number) const { return number; }
  };
  return std::visit(Visitor{}, cell.value);
}

std::string_view alignmentAttribute(Alignment alignment) {
  switch (alignment) {
    case Alignment::LeftTop:
      return " VALIGN=TOP";
    case Alignment::LeftCenter:
      return "";
    case Alignment::LeftBottom:
      return " VALIGN=BOTTOM";
    case Alignment::CenterTop:
      return " ALIGN=CENTER VALIGN=TOP";
    case Alignment::CenterCenter:
      return " ALIGN=CENTER";
    case Alignment::CenterBottom:
      return " ALIGN=CENTER VALIGN=BOTTOM";
    case Alignment::RightTop:
      return " ALIGN=RIGHT VALIGN=TOP";
    case Alignment::RightCenter:
      return " ALIGN=RIGHT";
    case Alignment::RightBottom:
      return " ALIGN=RIGHT VALIGN=BOTTOM";
    case Alignment::General:
      break;
  }
  return "";
}

class PageWriter {
 public:
  PageWriter(const Grid& grid, const HtmlScreen& screen)
      : grid_(grid),
        screen_(screen),
        tableWidth_(pixels(std::max(grid.totalWidth(), grid.controlWidth))) {}

  std::string write() {
    header();
    tableOpening();
    for (int row = 0; row < grid_.rows(); ++row)
      if (!grid_.row(row).hidden && grid_.row(row).height != 0) tableRow(row);
    line("</TABLE>\r\n\r\n</BODY>\r\n</HTML>\r\n\r\n");
    return std::move(html_);
  }

 private:
  void header() {
    line(
        "<HTML>\r\n"
        "<HEAD>\r\n"
        "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html;charset=windows-1252\">\r\n"
        "<META NAME=\"Generator\" CONTENT=\"VSFlexGrid Pro\">\r\n"
        "<TITLE>VSFlexGrid Pro</TITLE>\r\n"
        "</HEAD>\r\n"
        "<BODY>\r\n\r\n");
  }

  void tableOpening() {
    line("<FONT FACE=\"" + grid_.fontName + "\" SIZE=1>\r\n" +
         "<TABLE BORDER CELLSPACING=0 CELLPADDING=2 VALIGN=CENTER BGCOLOR=" +
         color(grid_.backColor) + " BORDERCOLOR=" + color(grid_.gridColor) +
         " WIDTH=" + std::to_string(tableWidth_) + ">\r\n");
  }

  void tableRow(int row) {
    line("<TR>");
    for (int column = 0; column < grid_.columns(); ++column) {
      const Column& c = grid_.column(column);
      if (c.hidden || c.width == 0) continue;
      const CellRange range = grid_.mergedRange(row, column);
      if (range.top < row || range.left < column) continue;
      tableCell(row, column, range);
    }
    line("</TR>");
  }

  void tableCell(int row, int column, const CellRange& range) {
    const Cell& cell = grid_.cell(row, column);
    const bool fixed = row < grid_.fixedRows || column < grid_.fixedColumns;
    std::string td = "<TD WIDTH=" + widthValue(range);
    if (cell.back != 0)
      td += " BGCOLOR=" + color(cell.back);
    else if (fixed)
      td += " BGCOLOR=" + color(grid_.backColorFixed);
    td += alignment(row, column);
    if (fixed) td += " BORDERCOLOR=" + color(grid_.gridColorFixed);
    td += spanText(row, column, range) + '>';

    const std::string font = fontAttributes(cell, fixed);
    if (!font.empty()) td += "<FONT" + font + '>';
    if (cell.bold) td += "<B>";
    if (cell.italic) td += "<I>";
    if (cell.underline) td += "<U>";
    td += cellText(row, column);
    if (cell.bold) td += "</B>";
    if (cell.italic) td += "</I>";
    if (cell.underline) td += "</U>";
    if (!font.empty()) td += "</FONT>";
    line(td + "</TD>");
  }

  // A cell that spans both ways names its rows only: browsers have shown the pages so for years.
  static std::string spanText(int row, int column, const CellRange& range) {
    if (range.bottom > row) return " ROWSPAN=" + std::to_string(range.bottom - row + 1);
    if (range.right > column) return " COLSPAN=" + std::to_string(range.right - column + 1);
    return {};
  }

  std::string widthValue(const CellRange& range) const {
    int twips = 0;
    for (int column = range.left; column <= range.right; ++column)
      twips += grid_.column(column).width;
    if (tableWidth_ == 0) return "\"%\"";
    const double percent = 100.0 * pixels(twips) / tableWidth_;
    // The number format "#" writes nothing for 0.
    const std::string digits = base::formatShort(percent, 0);
    return '"' + (digits == "0" ? std::string() : digits) + "%\"";
  }

  std::string alignment(int row, int column) const {
    const Column& c = grid_.column(column);
    if (c.alignment != Alignment::General) return std::string(alignmentAttribute(c.alignment));
    if (c.type == DataType::Date) return {};
    if (c.type == DataType::Boolean) return " ALIGN=CENTER";
    return FlexGridHTML::isNumber(grid_.text(row, column)) ? " ALIGN=RIGHT" : "";
  }

  std::string fontAttributes(const Cell& cell, bool fixed) const {
    std::string font;
    if (!cell.fontName.empty() && cell.fontName != grid_.fontName)
      font += " FACE=\"" + cell.fontName + '"';
    if (cell.fore != 0)
      font += " COLOR=" + color(cell.fore);
    else if (fixed)
      font += " COLOR=" + color(grid_.foreColorFixed);
    return font;
  }

  std::string cellText(int row, int column) const {
    std::string text = grid_.text(row, column);
    if (row >= grid_.fixedRows && grid_.column(column).type == DataType::Boolean)
      text = numericValue(grid_.cell(row, column)) == 0 ? "" : "Y";
    text = FlexGridHTML::escape(text);
    if (text.empty()) text = "&nbsp;";
    const Row& r = grid_.row(row);
    if (grid_.outlineBar && grid_.outlineColumn == column && r.subtotal)
      for (int level = 0; level < r.outlineLevel; ++level) text.insert(0, "&nbsp&nbsp&nbsp&nbsp");
    return text;
  }

  int pixels(int twips) const { return static_cast<int>(twips * 1.3 / screen_.twipsPerPixelX); }
  std::string color(CellColor value) const { return FlexGridHTML::colorToHtml(value, screen_); }
  void line(std::string_view text) { html_.append(text).append(kLineEnd); }

  const Grid& grid_;
  const HtmlScreen& screen_;
  const int tableWidth_;
  std::string html_;
};

}  // namespace

CellColor plainSystemColor(int index) {
  static constexpr std::array<CellColor, 25> kColors = {
      0x767676, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000,
      0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D,
      0x000000, 0x000000, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF};
  if (index < 0 || index >= static_cast<int>(kColors.size())) return 0;
  return kColors[static_cast<std::size_t>(index)];
}

HtmlScreen plainScreen() {
  return {15, plainSystemColor};
}

std::string FlexGridHTML::page(const Grid& grid, const HtmlScreen& screen) {
  return base::toWindows1252(PageWriter(grid, screen).write());
}

bool FlexGridHTML::write(const Grid& grid, const std::string& path, base::FileSystem& files,
                         const HtmlScreen& screen, base::Result<void>* written) {
  auto file = files.open(path, base::OpenMode::Create);
  const base::Result<void> outcome = file ? (*file)->writeAt(0, base::asBytes(page(grid, screen)))
                                          : base::Result<void>(base::Failure(file.error()));
  if (written) *written = outcome;
  return file.has_value();
}

std::string FlexGridHTML::colorToHtml(CellColor color, const HtmlScreen& screen) {
  std::string hex = upperHex(color);
  // System colours are told by their first digit alone. A plain colour whose blue part is 80 to
  // 8F, such as navy (800000 in this byte order), is therefore looked up as well: pages have
  // always shown it so, and whoever compares them expects it.
  if (hex[0] == '8') {
    std::uint32_t index = 0;
    std::from_chars(hex.data() + 1, hex.data() + hex.size(), index, 16);
    hex = upperHex(screen.systemColor(index <= 0xFFFF ? static_cast<int>(index) : -1));
  }
  if (hex.size() < 6) hex.insert(0, 6 - hex.size(), '0');
  return "\"#" + hex.substr(hex.size() - 2) + hex.substr(2, 2) + hex.substr(0, 2) + '"';
}

std::string FlexGridHTML::escape(std::string_view text) {
  std::string escaped(text);
  replaceAll(escaped, "&", "&amp;");
  replaceAll(escaped, "<", "&lt;");
  replaceAll(escaped, ">", "&gt;");
  return escaped;
}

bool FlexGridHTML::isNumber(std::string_view text) {
  bool point = false;
  for (const char c : base::trimmed(text, " ")) {
    if (c == '.' && point) return false;
    point = point || c == '.';
    if (std::string_view("0123456789,.").find(c) == std::string_view::npos) return false;
  }
  return true;
}

void FlexGridHTML::replaceAll(std::string& text, std::string_view find,
                              std::string_view replacement) {
  if (find.empty()) return;
  std::size_t replacedEnd = 0;
  for (std::size_t at = text.find(find); at != std::string::npos; at = text.find(find, at + 1)) {
    // Replacing inside a replacement again would never end ("a" by "aa").
    if (at + find.size() <= replacedEnd) continue;
    text.replace(at, find.size(), replacement);
    replacedEnd = at + replacement.size();
  }
}

}  // namespace reports
