#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Household.h"

// Every window of the program as a household meets it, for whoever looks at all of them: pictures
// of the manual, contact sheets, checks that hold for each.
namespace pictures {

struct View {
  // The window's name, and behind a hyphen what it shows: "frmVerbrauch-gas".
  QString name;
  // Makes the window on that household, which outlives it; not shown yet.
  std::function<std::unique_ptr<QWidget>(Household&)> make;
  // What is done once it is shown.
  std::function<void(QWidget&)> then = {};
};

const std::vector<View>& allViews();

// From now on all windows are "light" or "dark" as the program itself can be, or in "contrast":
// white and yellow on black. False for any other word.
bool showIn(const QString& colors);

// Lets a window that was shown do what it does then.
void settle();

}  // namespace pictures
