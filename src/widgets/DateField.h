#pragma once

#include <optional>

#include "base/GermanDate.h"
#include "widgets/EntryField.h"

namespace widgets {

// Entry of a date as text. Accepts digits, points and commas. What is typed with points stays as it
// is; with commas or without anything between, it gets points when the field is left.
class DateField final : public EntryField {
  Q_OBJECT
 public:
  explicit DateField(QWidget* parent = nullptr);
  // nullopt when empty or no date of the calendar.
  std::optional<base::Date> date() const;

 protected:
  void settle() override;
};

}  // namespace widgets
