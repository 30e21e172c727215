#ifndef _WIN32

#include "dialogs/SoundPlayer.h"

#ifdef KALVIRA_MULTIMEDIA
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#endif

namespace dialogs {
namespace {

#ifdef KALVIRA_MULTIMEDIA
class QtSoundPlayer final : public SoundPlayer {
 public:
  void play(const QString& path) override {
    // Made at the first sound: looking for devices would delay the start.
    if (!effect_) {
      if (QMediaDevices::defaultAudioOutput().isNull()) return;
      effect_ = std::make_unique<QSoundEffect>();
    }
    effect_->setSource(QUrl::fromLocalFile(path));
    effect_->play();
  }

 private:
  std::unique_ptr<QSoundEffect> effect_;
};
#else
class QtSoundPlayer final : public SoundPlayer {
 public:
  // Built without Qt's multimedia module: silent.
  void play(const QString&) override {}
};
#endif

}  // namespace

std::unique_ptr<SoundPlayer> makeSoundPlayer() {
  return std::make_unique<QtSoundPlayer>();
}

}  // namespace dialogs

#endif
