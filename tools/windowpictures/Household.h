#pragma once

#include "app/DataFolder.h"
#include "app/ui/frmVerbrStart.h"
#include "dialogs/Navigator.h"
#include "dialogs/Prompts.h"
#include "dialogs/Services.h"
#include "dialogs/Shell.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/YearSession.h"

namespace pictures {

// Answers every question with No or Cancel, and chooses the file that it was given.
class SilentPrompts final : public dialogs::Prompts {
 public:
  QString file;

  dialogs::Button message(QWidget*, const QString&, const QString&, dialogs::Icon, dialogs::Buttons,
                          dialogs::Button) override {
    return dialogs::Button::No;
  }
  std::optional<QString> input(QWidget*, const QString&, const QString&, const QString&,
                               const QString&) override {
    return std::nullopt;
  }
  QString openFile(QWidget*, const QString&, const QString&, const QString&) override {
    return file;
  }
  QString saveFile(QWidget*, const QString&, const QString&, const QString&,
                   const QString&) override {
    return {};
  }
  QString chooseFolder(QWidget*, const QString&, const QString&) override { return {}; }
  int chooseColor(QWidget*, int, bool) override { return -1; }
};

// Leads nowhere.
class Standstill final : public dialogs::Navigator, public dialogs::Shell, public app::YearOpener {
 public:
  std::string showNewDatabase() override { return {}; }
  void openInstead(const std::string&) override {}
  void restartAtStartWindow() override {}
  void showHelp() override {}
  void showMeterChangeHelp() override {}
  void showManual(const QString&) override {}
  void showAbout() override {}
  void showSample() override {}
  void endProgram() override {}
  bool startProgram(const QString&) override { return false; }
  bool openDocument(const QString&) override { return false; }
  void playSound(const QString&) override {}
  void openYear() override {}
  void openYearAt(const QString&) override {}
  void openYearOver(QWidget*) override {}
  void openFile(const std::string&) override {}
};

// The sample household on a disk in memory, always the same: the finished years 2024 and 2025, an
// empty one for 2026, a backup, offers of suppliers, a table to read in. It is the last day of
// 2025.
class Household {
 public:
  Household();
  Household(const Household&) = delete;
  Household& operator=(const Household&) = delete;

  static constexpr const char* kHome = "/home/familie/";
  static std::string folder() { return std::string(kHome) + "Larvando/Verbrauchserfassung/"; }

  // "Verbrauch2025": the household keeps it open.
  yearbook::YearSession& open(const std::string& year);
  // Hands the year over to its window.
  std::unique_ptr<yearbook::YearSession> take(const std::string& year);
  // 2025 as it was when October had been read.
  void forgetAfterOctober();

  support::MemoryFileSystem disk;
  base::FixedClock clock;
  base::PathState paths;
  SilentPrompts prompts;
  Standstill standstill;
  app::SystemFacts facts;
  dialogs::Services services;

 private:
  std::unique_ptr<yearbook::YearSession> year_;
};

}  // namespace pictures
