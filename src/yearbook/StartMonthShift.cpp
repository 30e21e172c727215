#include "yearbook/StartMonthShift.h"

#include <cmath>

#include "base/GermanNumber.h"
#include "yearbook/Months.h"

namespace yearbook {

StartMonthAnswer parseStartMonth(std::string_view text) {
  using Kind = StartMonthAnswer::Kind;
  if (text.find_first_not_of(' ') == std::string_view::npos) return {Kind::Cancelled, 0};
  const auto number = base::parseNumber(text);
  if (!number) return {Kind::NotANumber, 0};
  const double whole = std::nearbyint(*number);
  if (!(whole >= 1 && whole <= kMonths)) return {Kind::OutOfRange, 0};
  return {Kind::Month, static_cast<int>(whole)};
}

base::Result<void> shiftRows(RecordSource& rows, int startMonth) {
  const auto fields = rows.table().fields;
  const Field& month = *fields[0];
  std::vector<std::vector<jet::Value>> saved;
  for (int i = 0; i < kMonths; ++i) {
    std::vector<jet::Value>& row = saved.emplace_back();
    for (const Field* field : fields) row.push_back(rows.raw(i, *field));
  }
  const MonthNames names = rotatedMonthNames(startMonth);
  for (int i = 0; i < kMonths; ++i)
    if (auto done = rows.setText(i, month, names[i]); !done) return done;
  for (int position = 0; position < kMonths; ++position) {
    for (const std::vector<jet::Value>& row : saved) {
      if (row[0] != jet::Value(names[position])) continue;
      for (std::size_t i = 1; i < fields.size(); ++i)
        if (auto done = rows.setRaw(position, *fields[i], row[i]); !done) return done;
    }
  }
  return {};
}

}  // namespace yearbook
