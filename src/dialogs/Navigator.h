#pragma once

#include <QString>
#include <string>

namespace dialogs {

// The ways between the windows that would point up the layers: from the main window back to the
// start window. app_ui implements it.
class Navigator {
 public:
  virtual ~Navigator() = default;
  // The new-database window over the main window, as the start window's action opens it. Gives the
  // path of the year that was made; "" when none was.
  virtual std::string showNewDatabase() = 0;
  // The year at that path takes the place of the one that is open.
  virtual void openInstead(const std::string& path) = 0;
  // Closes start and main window, shows the start window afresh.
  virtual void restartAtStartWindow() = 0;
  // The picture windows.
  virtual void showHelp() = 0;
  virtual void showMeterChangeHelp() = 0;
  // The manual at the page of that window, or of that page of the main window.
  virtual void showManual(const QString& window) = 0;
  // What this program is and where its data lie.
  virtual void showAbout() = 0;
  // A copy of the sample year, over the window that one is in; returns when it has closed.
  virtual void showSample() = 0;
  // Ends the whole program in an orderly way.
  virtual void endProgram() = 0;
};

}  // namespace dialogs
