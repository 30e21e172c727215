#pragma once

#include <string>

#include "reports/Grid.h"

// A grid in the plain forms that other programs take. Hidden rows and columns are left out.
namespace reports {

// Aligned columns for a terminal, UTF-8, "\n"; rules above and below the banded rows.
std::string toPlainText(const Grid& grid);

// For spreadsheets that read German numbers: UTF-8 with byte order mark, ";", decimal comma, no
// thousands separators, CR LF; all decimals, in each column as many. A merged text stands in its
// first cell only.
std::string toCsv(const Grid& grid);

// For the clipboard: what the cells show, tabs between them, CR LF after each row.
std::string toTabSeparated(const Grid& grid);
// The same as an HTML table (UTF-8), with spans, bold type and alignment.
std::string toClipboardHtml(const Grid& grid);

}  // namespace reports
