#pragma once

#include <QAbstractButton>
#include <functional>
#include <optional>
#include <vector>

#include "widgets/NumberField.h"

namespace readings {

// Takes back what was typed and ticked in an entry window, step by step: Ctrl+Z, Ctrl+Y or
// Ctrl+Shift+Z. What is typed in one field is one step until the field is left.
class EntryUndo final : public QObject {
  Q_OBJECT
 public:
  // Follows the window's fields that take entries and its boxes and options. shown is called after
  // each step, to let the window follow them.
  EntryUndo(QWidget* window, std::function<void()> shown);
  // What stands in the window now is where the way back ends.
  void begin();
  void undo();
  void redo();

 private:
  struct State {
    std::vector<std::optional<double>> values;
    std::vector<bool> checked;
    bool operator==(const State&) const = default;
  };
  State now() const;
  void note();
  void show(std::size_t step);

  std::function<void()> shown_;
  std::vector<widgets::NumberField*> fields_;
  std::vector<QAbstractButton*> buttons_;
  std::vector<State> steps_;
  std::size_t current_ = 0;
};

}  // namespace readings
