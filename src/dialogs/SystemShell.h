#pragma once

#include <memory>

#include "dialogs/Shell.h"

namespace dialogs {

class SoundPlayer;

// Starts programs, opens documents and plays sounds by means of the system.
class SystemShell final : public Shell {
 public:
  SystemShell();
  ~SystemShell() override;
  bool startProgram(const QString& path) override;
  bool openDocument(const QString& path) override;
  void playSound(const QString& path) override;

 private:
  std::unique_ptr<SoundPlayer> player_;
};

}  // namespace dialogs
