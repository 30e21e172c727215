#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>

#include "../HomeFolder.h"
#include "app/DataFolder.h"
#include "app/ui/frmVerbrStart.h"
#include "dialogs/Services.h"
#include "support/TemporaryFolder.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"
#include "widgets/UserSettings.h"

class FakeOpener final : public app::YearOpener {
 public:
  void openYear() override { ++opened; }
  void openYearAt(const QString& action) override { openedAt = action; }
  void openYearOver(QWidget*) override {
    ++openedOver;
    if (whileOver) whileOver();
  }
  void openFile(const std::string& path) override { openedFiles.push_back(path); }
  int opened = 0;
  QString openedAt;
  int openedOver = 0;
  std::vector<std::string> openedFiles;
  std::function<void()> whileOver;
};

// A program folder with a template, and a home folder, both empty otherwise.
class StartFixture : public testing::Test {
 protected:
  StartFixture() {
    widgets::userSettings().clear();
    facts.programFolder = program.path();
    facts.environment = environmentAt(home.path());
    EXPECT_TRUE(files->replaceFile(program / "Vorlverbr8.kwx", base::asBytes("leer")));
    EXPECT_TRUE(files->makeFolder(home / "Larvando"));
    EXPECT_TRUE(files->makeFolder(dataFolder()));
    paths.ProgramFolder = program.path();
    paths.DataFolder = dataFolder();
  }
  ~StartFixture() override { std::filesystem::current_path("/"); }

  std::string dataFolder() const { return home / "Larvando/Verbrauchserfassung/"; }
  void put(const std::string& name, const std::string& content = "x") {
    EXPECT_TRUE(files->replaceFile(dataFolder() + name, base::asBytes(content)));
  }
  std::vector<std::string> inDataFolder() const { return files->list(dataFolder()).value(); }

  support::TemporaryFolder program, home;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
  app::SystemFacts facts;
  base::PathState paths;
  base::FixedClock clock{base::Date{std::chrono::year{2024} / 3 / 1}};
  FakePrompts prompts;
  FakeShell shell;
  FakeNavigator navigator;
  FakeOpener opener;
  dialogs::Services services{paths, *files, clock, prompts, shell, navigator};
};
