#pragma once

#include <optional>
#include <string>
#include <vector>

#include "yearbook/FieldValues.h"

namespace yearbook {

// A side file of the year as it is or shall be; nullopt: there is none.
struct SideFile {
  std::string path;
  std::optional<std::string> content;
};

struct SideChange {
  std::string path;
  std::optional<std::string> before, after;
};

// One change of the open year as the household sees it, with all that it takes to go back.
struct Step {
  std::string name;  // "Abschlag Strom Juli"
  std::vector<CellChange> cells;
  std::vector<SideChange> sides;
  Modes before, after;
  // The field in which it was typed: what follows in the same field belongs to the same step.
  std::optional<Cell> entry;
  // More went than the eye was on: what the window says beside the way back; else "".
  std::string notice;
};

// The steps since the year was opened: those that can be taken back and those that were.
class StepHistory {
 public:
  // Ends the way forward. A step that changed nothing is none.
  void add(Step step);
  // What follows from the last step was brought up to date: it goes back with it.
  void extend(const std::vector<CellChange>& cells);
  // The field was left: what is typed next is a step of its own.
  void endEntry() { entryOpen_ = false; }
  // The last step is what is being typed in a field that has not been left.
  bool isTyping() const { return entryOpen_ && !done_.empty(); }

  // nullptr when there is none.
  const Step* last() const { return done_.empty() ? nullptr : &done_.back(); }
  const Step* next() const { return undone_.empty() ? nullptr : &undone_.back(); }
  // Steps that can be taken back.
  std::size_t depth() const { return done_.size(); }
  void stepBack();
  void stepForward();

 private:
  std::vector<Step> done_, undone_;
  bool entryOpen_ = false;
};

// The changes of each cell as one, those that come to nothing left out.
std::vector<CellChange> netOf(const std::vector<CellChange>& changes);

}  // namespace yearbook
