#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QTabWidget>
#include <QToolBar>
#include <memory>

#include "dialogs/HelpEntries.h"
#include "dialogs/Services.h"
#include "mainwindow/FirstStepsPanel.h"
#include "mainwindow/LinkBar.h"
#include "mainwindow/NewYearBar.h"
#include "mainwindow/NoticeBar.h"
#include "mainwindow/UndoBar.h"
#include "reports/ui/DetailPage.h"
#include "reports/ui/OverviewPage.h"
#include "yearbook/ui/ElectricityPage.h"
#include "yearbook/ui/GasPage.h"
#include "yearbook/ui/RemarksPage.h"
#include "yearbook/ui/WaterPage.h"

// The year book: one open year on six pages. Owns the year for as long as it lives; every other
// window works on it through the session.
//
// When it is shown, and whenever a window that was opened from here has closed, it looks again at
// what the year needs (reactivation). Message and input boxes do not count as windows.
class frmVerbrauch final : public QMainWindow {
  Q_OBJECT

  // Before the pages, which work on it.
  dialogs::Services& services_;
  const std::unique_ptr<yearbook::YearSession> session_;
  yearbook::YearEditor* const editor_;

 public:
  frmVerbrauch(dialogs::Services& services, std::unique_ptr<yearbook::YearSession> session,
               QWidget* parent = nullptr);
  ~frmVerbrauch() override;

  yearbook::YearSession& session() { return *session_; }

  mainwindow::NoticeBar* const fraHinweis = new mainwindow::NoticeBar(this);
  QLabel* const lblHinweis = fraHinweis->lblHinweis;
  mainwindow::UndoBar* const fraGeaendert = new mainwindow::UndoBar(this);
  mainwindow::NewYearBar* const fraNeuesJahr = new mainwindow::NewYearBar(this);
  mainwindow::FirstStepsPanel* const fraErsteSchritte = new mainwindow::FirstStepsPanel(this);
  mainwindow::LinkBar* const fraAblesen = new mainwindow::LinkBar(this);
  QTabWidget* const TabStrip = widgets::control<QTabWidget>(this, "TabStrip");
  yearbook::ElectricityPage* const Frame1 = new yearbook::ElectricityPage(TabStrip, *editor_);
  yearbook::WaterPage* const Frame2 = new yearbook::WaterPage(TabStrip, *editor_);
  yearbook::GasPage* const Frame3 = new yearbook::GasPage(TabStrip, *editor_);
  reports::OverviewPage* const Frame4;
  yearbook::RemarksPage* const Frame5 = new yearbook::RemarksPage(TabStrip, *editor_);
  reports::DetailPage* const fraDrucke;

  QToolBar* const Toolbar1 = widgets::control<QToolBar>(this, "Toolbar1");
  QMenu* const mnuVerbrauch = menu("mnuVerbrauch");
  QAction* const mnuNew = entry("mnuNew");
  QAction* const mnuOpen = entry("mnuOpen");
  QMenu* const mnuStartmonat = menu("mnuStartmonat");
  QAction* const mnuStMoS = entry("mnuStMoS");
  QAction* const mnuStMoW = entry("mnuStMoW");
  QAction* const mnuStMoG = entry("mnuStMoG");
  QMenu* const mnuBearbeiten = menu("mnuBearbeiten");
  QAction* const mnuUndo = entry("mnuUndo");
  QAction* const mnuRedo = entry("mnuRedo");
  QAction* const mnuMonatErfassen = entry("mnuMonatErfassen");
  QAction* const mnuAblesebuch = entry("mnuAblesebuch");
  QAction* const mnuFortfuehren = entry("mnuFortfuehren");
  QMenu* const mnuOpt = menu("mnuOpt");
  QAction* const mnuNachtstrom = entry("mnuNachtstrom");
  QAction* const mnuPauschale = entry("mnuPauschale");
  QAction* const mnuRechnen = entry("mnuRechnen");
  QAction* const mnuDelete = entry("mnuDelete");
  QAction* const mnuHochrechnung = entry("mnuHochrechnung");
  QAction* const mnuRechner = entry("mnuRechner");
  QMenu* const mnuAuswertung = menu("mnuAuswertung");
  QAction* const mnuAlleJahre = entry("mnuAlleJahre");
  QAction* const mnuPrognose = entry("mnuPrognose");
  QAction* const mnuTarife = entry("mnuTarife");
  QAction* const mnuDiagrammAlle = entry("mnuDiagrammAlle");
  QMenu* const mnuHilfe = menu("mnuHilfe");
  QAction* const mnuHelp = entry("mnuHelp");
  QAction* const mnuHelpZW = entry("mnuHelpZW");
  const dialogs::HelpEntries helpEntries{
      this, services_.navigator, [this] { return TabStrip->currentWidget()->objectName(); }};

  // The button of the toolbar with that key.
  QAction* toolButton(const QString& key) const;

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  // Stays when what is being typed has to be refused.
  void closeEvent(QCloseEvent* event) override;
  // Enter presses the button that has the focus, Esc takes back what is being typed.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QMenu* menu(const char* name);
  QAction* entry(const char* name);
  void buildMenus();
  void buildEditMenu();
  void buildOptionsMenu();
  void buildAnalysisMenu();
  void buildToolbar();
  void buildPages();
  void markTabs();
  void connectMenus();
  void connectPages();
  void connectEntryWindows();
  void connectCharts();
  void takeFittingSize();

  template <class Window>
  void opens(QPushButton* button);
  template <class Window>
  void opens(QAction* action);
  void connectBookWindows();
  void showProjection();
  void showCarryOver();
  void followReadings();
  void followFirstSteps(const std::optional<std::string>& before);
  void goToStep(yearbook::FirstStep step);
  void addKeys();
  void print();
  void focusMonthlyJob();
  void showChart(const QString& mode);
  void showComparison(yearbook::Utility utility);

  bool finishEntry();
  void reactivate();
  void offerIndexRepair();
  void askStartReading();
  void followModes();
  void followSteps();
  void step(base::Result<void> (yearbook::YearSession::*way)());
  void takeBack(widgets::EntryField& field);

  void pressToolButton(const QString& key);
  void showPrintPage();
  void setUtilityButtonsEnabled(bool enabled);
  void mnuPauschaleClick(bool checked);
  void mnuNachtstromClick();
  void changeStartMonth(yearbook::Utility utility);
  // The utility of the page in front, if it is one.
  std::optional<yearbook::Utility> selectedUtility() const;
  void clearSelected();

  bool indexRepairDeclined_ = false;
  bool guided_ = false;  // the first steps were shown, and go on when the first month is read
  std::size_t stepsOffered_ = 0;  // the depth of the history that the bar speaks of
};
