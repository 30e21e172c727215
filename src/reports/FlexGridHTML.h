#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/File.h"
#include "reports/Grid.h"

namespace reports {

// What the writer asks of the screen.
struct HtmlScreen {
  double twipsPerPixelX = 15;
  // 0x00BBGGRR of a system colour; an index that does not exist gives 0.
  std::function<CellColor(int index)> systemColor;
};

// The colours of a plain light desktop, for output without a screen. The scroll bar's grey is one
// that can be read as text: headings are written in it.
CellColor plainSystemColor(int index);
HtmlScreen plainScreen();

// Writes any grid as one HTML page in the dialect that the exports have always had: windows-1252,
// CR LF, upper-case tags, attributes partly without quotes.
class FlexGridHTML {
 public:
  // The page as the bytes of the file.
  static std::string page(const Grid& grid, const HtmlScreen& screen);
  // True when the file could be opened; a failure while writing leaves what was written so far.
  // `written` receives the outcome of the writing itself.
  static bool write(const Grid& grid, const std::string& path, base::FileSystem& files,
                    const HtmlScreen& screen, base::Result<void>* written = nullptr);

  // The attribute value with its quotes: "#RRGGBB".
  static std::string colorToHtml(CellColor color, const HtmlScreen& screen);
  static std::string escape(std::string_view text);
  // Digits, commas and at most one point. "-5" is no number here, "" is one.
  static bool isNumber(std::string_view text);
  // After a find the search goes on one character behind its start, so that finds may reach into
  // what a replacement left; what lies wholly inside a replacement is not replaced again.
  static void replaceAll(std::string& text, std::string_view find, std::string_view replacement);
};

}  // namespace reports
