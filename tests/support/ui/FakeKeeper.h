#pragma once

#include <vector>

#include "dialogs/YearKeeper.h"

// Keeps the year's image instead of a copy, and agrees or not as it is told.
class FakeKeeper final : public dialogs::YearKeeper {
 public:
  bool keepBefore(dialogs::Harm harm, QWidget*, const std::string&,
                  const base::Result<base::Bytes>& database) override {
    harms.push_back(harm);
    image = database.value_or(base::Bytes());
    return goesOn;
  }

  std::vector<dialogs::Harm> harms;
  base::Bytes image;
  bool goesOn = true;
};
