#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "app/OpeningCopy.h"
#include "app/ui/frmVerbrStart.h"
#include "dialogs/HelpWindows.h"
#include "dialogs/Navigator.h"
#include "manual/frmHandbuch.h"

namespace app {

// A main window that shows an open year.
struct YearWindow {
  QWidget* window = nullptr;  // nullptr: the year could not be opened, and the user knows why
  std::function<void(const QString&)> hint;  // shows a line that does not ask for an answer
};
// Opens PathState::YearDatabasePath in a new main window, not shown yet.
using YearWindowFactory = std::function<YearWindow(QWidget* parent)>;

// The ways between the windows: which one is open, which one takes over.
//
// Made before the services that refer to it; begin() must follow before anything else.
class WindowNavigator final : public dialogs::Navigator, public YearOpener {
 public:
  ~WindowNavigator() override;
  void begin(dialogs::Services& services, const SystemFacts& facts, YearWindowFactory factory);
  // Deletes the windows that are left, while the services that they use are still there.
  void end();

  // The start window afresh.
  void showStartWindow();
  // Later start windows look into this folder.
  void stayInFolder(const std::string& folder) { facts_.chosenDataFolder = folder; }

  void openYear() override;
  void openYearAt(const QString& action) override;
  void openYearOver(QWidget* below) override;
  // From wherever it comes: dropped, recently opened, handed over by another start of the program.
  // Its folder is the data folder then. A year that is open comes to the front; while a window asks
  // or takes entries it waits.
  void openFile(const std::string& path) override;

  std::string showNewDatabase() override;
  void openInstead(const std::string& path) override { openFile(path); }
  void restartAtStartWindow() override;
  void showHelp() override;
  void showMeterChangeHelp() override;
  void showManual(const QString& window) override;
  void showAbout() override;
  void showSample() override;
  void endProgram() override;

 private:
  QWidget* makeMainWindow(QWidget* parent);
  void openAt(const std::string& path);
  void bringToFront();
  void takeDrops(QWidget* window);
  void leaveYear(std::function<void()> next);
  void offerWaitingChange(QWidget* owner, const std::string& folder, const std::string& name);
  void followSafetyCopy(const std::shared_ptr<OpeningCopy>& copy, const YearWindow& year);

  dialogs::Services* services_ = nullptr;
  SystemFacts facts_;
  YearWindowFactory factory_;
  QPointer<frmVerbrStart> start_;
  QPointer<QWidget> main_;
  bool yearOverStart_ = false;  // openYearOver() has not returned
  std::function<void()> afterYear_;
  std::string waiting_;  // the file that is opened as soon as no other window is in the way
  QPointer<frmHilfe> help_;
  QPointer<frmHilfeZaehlerWechs> meterChangeHelp_;
  QPointer<frmHandbuch> manual_;
};

}  // namespace app
