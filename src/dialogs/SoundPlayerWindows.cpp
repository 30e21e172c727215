#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, on which it relies.
#include <mmsystem.h>

#include "dialogs/SoundPlayer.h"

namespace dialogs {
namespace {

class WindowsSoundPlayer final : public SoundPlayer {
 public:
  void play(const QString& path) override {
    PlaySoundW(reinterpret_cast<const wchar_t*>(path.utf16()), nullptr,
               SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
  }
};

}  // namespace

std::unique_ptr<SoundPlayer> makeSoundPlayer() {
  return std::make_unique<WindowsSoundPlayer>();
}

}  // namespace dialogs

#endif
