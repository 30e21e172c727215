#pragma once

#include "dialogs/Services.h"
#include "dialogs/YearKeeper.h"

namespace app {

// Puts the open year, and its side files as they lie on the disk, among the safety copies.
class OpenYearKeeper final : public dialogs::YearKeeper {
 public:
  void begin(const dialogs::Services& services) { services_ = &services; }
  bool keepBefore(dialogs::Harm harm, QWidget* owner, const std::string& yearPath,
                  const base::Result<base::Bytes>& database) override;

 private:
  const dialogs::Services* services_ = nullptr;
};

}  // namespace app
