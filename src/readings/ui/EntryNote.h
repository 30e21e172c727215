#pragma once

#include <vector>

#include "readings/ui/MarkedLabel.h"
#include "widgets/EntryField.h"
#include "yearbook/YearSession.h"

namespace readings {

// The line at the foot of an entry window about what was typed: not taken over yet, refused, or not
// possible at present. Keeps its place while it says nothing.
class EntryNote final : public MarkedLabel {
  Q_OBJECT
 public:
  explicit EntryNote(QWidget* window);

  void showOpen(bool open);
  // After a take over that could not be stored: marks the field that it was about until it is typed
  // in, and puts the cursor there. nullptr: it was about none of them.
  void markFault(widgets::EntryField* field);
  // Where nothing can be stored at present the window's fields take nothing, and what else changes
  // the year is off.
  void lock(const yearbook::YearSession& session, const std::vector<QWidget*>& changing);

 private:
  bool locked_ = false;
};

}  // namespace readings
