#pragma once

#include <optional>

#include "base/GermanDate.h"
#include "widgets/EntryField.h"

namespace widgets {

// Entry of a date as text; what is typed stays as it is. Accepts digits, points and commas.
class DateField final : public EntryField {
  Q_OBJECT
 public:
  explicit DateField(QWidget* parent = nullptr);
  // nullopt when empty or no date of the calendar.
  std::optional<base::Date> date() const;
};

}  // namespace widgets
