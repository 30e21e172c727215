#pragma once

#include <QString>
#include <memory>

namespace dialogs {

// Plays a WAV file without waiting for its end; does nothing where there is no sound device.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;
  virtual void play(const QString& path) = 0;
};

// Of the system: SoundPlayerWindows.cpp, else SoundPlayerQt.cpp.
std::unique_ptr<SoundPlayer> makeSoundPlayer();

}  // namespace dialogs
