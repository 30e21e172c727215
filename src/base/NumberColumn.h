#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"

// Columns of numbers as they come from a spreadsheet, written the German or the English way.
namespace base {

// An empty cell is nullopt. Whether comma or point is the decimal sign is told by the column as a
// whole ("10.354" beside "10.354,5" is ten thousand, beside "9.75" it is ten); one that can be both
// is German. InvalidValue when a cell is no number: detail tells which ("„abc“ ist keine Zahl"),
// subject holds its place in the column, from 0.
Result<std::vector<std::optional<double>>> parseNumberColumn(const std::vector<std::string>& cells);

// One column from the clipboard, a number a line; line ends after the last number do not count. At
// most that many lines. The whole is refused for one line that is no number; detail is a sentence
// that names the line ("Zeile 3: „abc“ ist keine Zahl.").
Result<std::vector<std::optional<double>>> parsePastedColumn(std::string_view text,
                                                             std::size_t most);

}  // namespace base
