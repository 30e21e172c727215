#pragma once

#include <optional>

#include "readingbook/ReadingBook.h"

// One line of the reading book's file.
namespace readingbook {

struct BookRecord {
  Meter meter = Meter::Day;
  Entry entry;
};

// A line without its end, windows-1252. Quotes, blanks around values and the last two values may be
// missing.
std::optional<BookRecord> parseRecord(std::string_view line);
// With CR LF.
std::string recordLine(const BookRecord& record);

}  // namespace readingbook
