#pragma once

#include <QStringList>

#include "dialogs/Navigator.h"

// Goes nowhere and keeps the names of the ways that were asked for.
class FakeNavigator final : public dialogs::Navigator {
 public:
  void showNewDatabase() override { calls << QStringLiteral("showNewDatabase"); }
  void restartAtStartWindow() override { calls << QStringLiteral("restartAtStartWindow"); }
  void showHelp() override { calls << QStringLiteral("showHelp"); }
  void showMeterChangeHelp() override { calls << QStringLiteral("showMeterChangeHelp"); }
  void endProgram() override { calls << QStringLiteral("endProgram"); }
  QStringList calls;
};
