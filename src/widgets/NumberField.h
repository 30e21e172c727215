#pragma once

#include <optional>

#include "widgets/EntryField.h"

namespace widgets {

// Entry of a number as a German household types it: comma or point as base::parseNumber() takes
// them, "1.234,5" when it rests. While the field has the focus it keeps what is typed, letter for
// letter; it is put into shape when it is left. A number that is changed in place first loses its
// points, which would stand in the wrong places then. The mouse wheel does nothing.
class NumberField : public EntryField {
  Q_OBJECT
 public:
  explicit NumberField(QWidget* parent = nullptr);

  // How a value is shown: at least and at most that many decimals. The value itself is never
  // rounded. Without a call: none to six, as many as the value has.
  void setDecimals(int least, int most);

  // Never emits. A value that the field holds already leaves a text in the making as it is.
  void setValue(std::optional<double> value);
  // As if it had been typed: emits textEdited() and valueChanged().
  void enterValue(std::optional<double> value);
  // nullopt when empty. While something is typed that is no number, the last number before it.
  std::optional<double> value() const;
  double valueOrZero() const { return value().value_or(0.0); }

 Q_SIGNALS:
  // The user has changed the value (while typing, by pasting, by undoing); never by setValue().
  // Not emitted while the text is no number.
  void valueChanged();

 protected:
  void settle() override;
  void aboutToEdit() override;

 private:
  struct Reading {
    bool readable = false;
    std::optional<double> value;
  };
  Reading read(const QString& text) const;
  QString shape(std::optional<double> value) const;
  void takeEdit();

  int leastDecimals_ = 0;
  int mostDecimals_ = 6;
  // A value and the text that stands for it; the value may have more decimals than are shown.
  struct Shown {
    std::optional<double> value;
    QString text;
  };
  Shown resting_;  // since the last setValue() or since the field was left
  Shown current_;  // the last text that was a number, or empty
};

}  // namespace widgets
