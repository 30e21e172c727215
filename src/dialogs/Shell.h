#pragma once

#include <QString>
#include <QStringList>

namespace dialogs {

// What lies outside the program: other programs, documents, the sound.
class Shell {
 public:
  virtual ~Shell() = default;
  // Starts without waiting; false when it could not be started.
  virtual bool startProgram(const QString& path) = 0;
  // Opens with the program that the system associates; false when there is none.
  virtual bool openDocument(const QString& path) = 0;
  // Returns at once; a missing file or sound device is passed over.
  virtual void playSound(const QString& path) = 0;
};

}  // namespace dialogs
