#pragma once

#include <QStringList>

#include "dialogs/Navigator.h"

// Goes nowhere and keeps the names of the ways that were asked for.
class FakeNavigator final : public dialogs::Navigator {
 public:
  std::string showNewDatabase() override {
    calls << QStringLiteral("showNewDatabase");
    return made;
  }
  void openInstead(const std::string& path) override {
    calls << QStringLiteral("openInstead ") + QString::fromStdString(path);
  }
  void restartAtStartWindow() override { calls << QStringLiteral("restartAtStartWindow"); }
  void showHelp() override { calls << QStringLiteral("showHelp"); }
  void showMeterChangeHelp() override { calls << QStringLiteral("showMeterChangeHelp"); }
  void showManual(const QString& window) override {
    calls << QStringLiteral("showManual ") + window;
  }
  void showAbout() override { calls << QStringLiteral("showAbout"); }
  void showSample() override { calls << QStringLiteral("showSample"); }
  void endProgram() override { calls << QStringLiteral("endProgram"); }
  QStringList calls;
  std::string made;  // by the new-database window
};
