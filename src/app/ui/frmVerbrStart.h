#pragma once

#include <QAction>
#include <QFileSystemWatcher>
#include <QFrame>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <optional>
#include <string>

#include "app/DataFolder.h"
#include "dialogs/HelpEntries.h"
#include "dialogs/HelpWindows.h"
#include "dialogs/Services.h"
#include "widgets/ActionOption.h"
#include "widgets/FileList.h"
#include "widgets/control.h"

namespace mainwindow {
class LinkBar;
}
class QBoxLayout;

namespace app {

// What the start window needs to open a year; WindowNavigator is the real one.
class YearOpener {
 public:
  virtual ~YearOpener() = default;
  // The main window takes over and the start window closes; it stays when the year cannot be
  // opened.
  virtual void openYear() = 0;
  // The same, and then the window behind that action of the main window.
  virtual void openYearAt(const QString& action) = 0;
  // The main window over the start window; returns when it has closed.
  virtual void openYearOver(QWidget* start) = 0;
  // The same as openYear() for a year that may lie in another folder, which is the data folder
  // then.
  virtual void openFile(const std::string& path) = 0;
};

// Plays the click that goes with opening.
void PlayClick(dialogs::Services& services);
// The new-database window, modal over the owner. Gives the path of the year that was made, "" when
// none was.
std::string showNewDatabaseWindow(dialogs::Services& services, QWidget* owner);

}  // namespace app

// The first window: settles where the data lie, shows the year databases, opens, makes, deletes and
// saves them.
//
// It looks at the folder again ("activation") after it was shown and after another window that it
// opened has closed, never after a message box. In between the list follows the folder by itself,
// without touching the choice.
class frmVerbrStart final : public QMainWindow {
  Q_OBJECT

  dialogs::Services& services_;
  const app::SystemFacts facts_;
  app::YearOpener& opener_;

 public:
  frmVerbrStart(dialogs::Services& services, const app::SystemFacts& facts,
                app::YearOpener& opener);

  QLabel* const Label1 = widgets::control<QLabel>(this, "Label1");
  widgets::FileList* const filFiles = widgets::control<widgets::FileList>(this, "filFiles");
  // The side files of all years; not shown.
  widgets::FileList* const FilesWechsel = widgets::control<widgets::FileList>(this, "FilesWechsel");
  // The year last worked in, or the one made just now; hidden while the folder has neither.
  QPushButton* const cmdWeiter = widgets::control<QPushButton>(this, "cmdWeiter");
  QLabel* const lblAuswahl = widgets::control<QLabel>(this, "lblAuswahl");
  QLabel* const lblFilename = widgets::control<QLabel>(this, "lblFilename");
  QPushButton* const cmdHausrat = widgets::control<QPushButton>(this, "cmdHausrat");
  // 0 new, 1 delete, 2 save; 3 names the import, which the menu starts; 5 takes the selection.
  const widgets::ControlArray<widgets::ActionOption, 6> Option1{this, "Option1"};
  // What a deletion has taken along, and where the copy is.
  QLabel* const lblGeloescht = widgets::control<QLabel>(this, "lblGeloescht");
  QLabel* const lblDatenordner = widgets::control<QLabel>(this, "lblDatenordner");

  QMenu* const mnuDatei = menu("mnuDatei");
  QAction* const mnuOpen = entry("mnuOpen");
  QAction* const mnuAnlegen = entry("mnuAnlegen");
  QAction* const mnuDatDel = entry("mnuDatDel");
  QMenu* const mnuZuletzt = menu("mnuZuletzt");
  QAction* const mnuClose = entry("mnuClose");
  QMenu* const mnuVerbrDat = menu("mnuVerbrDat");
  QAction* const mnuSichern = entry("mnuSichern");
  QAction* const mnuWiederherstellen = entry("mnuWiederherstellen");
  QAction* const mnuImport = entry("mnuImport");
  QAction* const mnuPfadLRV = entry("mnuPfadLRV");
  QAction* const mnuPfadDel = entry("mnuPfadDel");
  QMenu* const mnuAuswertung = menu("mnuAuswertung");
  QAction* const mnuAlleJahre = entry("mnuAlleJahre");
  QAction* const mnuPrognose = entry("mnuPrognose");
  QAction* const mnuTarife = entry("mnuTarife");
  QMenu* const mnuHandbuchMenue = menu("mnuHandbuchMenue");
  const dialogs::HelpEntries helpEntries{this, services_.navigator,
                                         [this] { return objectName(); }};
  QAction* const mnuHilfe = entry("mnuHilfe");

  void activate();

 protected:
  void showEvent(QShowEvent* event) override;
  // Enter presses the button that has the focus, F5 looks at the folder again.
  void keyPressEvent(QKeyEvent* event) override;
  // Two captions ask for Alt+V: it presses the button.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMenu* menu(const char* name);
  QAction* entry(const char* name);
  void setTexts();
  void buildMenus();
  void buildAnalysisMenu();
  template <class Window>
  void showAnalysis();
  void buildLayout();
  QWidget* makeReminder();
  void showReminder();
  void followReminder();
  void buildOptions();
  void arrangeButtons(QBoxLayout* actions);
  void connectControls();

  void load();
  void refillLists();
  void followFolder();
  void lookAgain();
  void offerLastYear();
  void cmdWeiterClick();
  void fillRecentYears();
  void filFilesClick(const QString& name);
  void filFilesDblClick(const QString& name);
  void cmdHausratClick();
  void mnuOpenClick();
  void Option1Click(int index);
  void mnuAnlegenClick();
  void mnuDatDelClick();
  void mnuSichernClick();
  void mnuWiederherstellenClick();
  void mnuImportClick();
  void mnuPfadLRVClick();
  void mnuPfadDelClick();
  void mnuBeispieljahrClick();
  void mnuHilfeClick();

  bool hasSelection();
  void deleteYear(const std::string& name);
  void tellLater(const base::Error& error);

  std::optional<base::Error> loadProblem_;
  QString toldProblem_;
  QPointer<frmHilfe> help_;
  mainwindow::LinkBar* fraAblesen_ = nullptr;
  QString dueYear_;  // of the reminder
  QFileSystemWatcher folderWatch_;
  QTimer folderChanged_;
  QFrame* const belowWeiter_ = new QFrame(this);
  QString lastYear_;  // what cmdWeiter opens
  QString newYear_;   // made in this window
};
