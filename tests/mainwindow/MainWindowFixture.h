#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include "SampleYear.h"
#include "mainwindow/frmVerbrauch.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"
#include "widgets/UserSettings.h"

// The main window on a year of the sample household or on an empty one, shown and settled.
class MainWindowFixture : public testing::Test {
 protected:
  static constexpr const char* kFolder = "/daten/";
  static constexpr const char* kSample = "/daten/Verbrauch2025.kwd";
  static constexpr const char* kEmpty = "/daten/Verbrauch.kwd";

  MainWindowFixture() {
    paths.DataFolder = kFolder;
    widgets::userSettings().clear();
  }

  void makeSample() { ASSERT_TRUE(sample::makeBoth(disk, kFolder, support::emptyYear())); }

  void openSample() {
    makeSample();
    openWindow(kSample);
  }
  void openEmpty() {
    disk.put(kEmpty, support::emptyYear());
    openWindow(kEmpty);
  }
  void openWindow(const std::string& path) {
    window.reset();
    auto session = yearbook::YearSession::open(files, path, kFolder, clock);
    ASSERT_TRUE(session) << base::germanMessage(session.error());
    window = std::make_unique<frmVerbrauch>(services, std::move(*session));
    window->show();
    settle();
  }
  // Lets what the window does after it was shown happen.
  static void settle() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
  }

  // The year as another start of the program finds it.
  std::unique_ptr<yearbook::YearSession> stored() {
    const std::string path = window->session().path();
    window.reset();
    auto session = yearbook::YearSession::open(disk, path, kFolder, clock);
    EXPECT_TRUE(session) << base::germanMessage(session.error());
    return session ? std::move(*session) : nullptr;
  }

  // Types over what stands in the field; the field keeps the focus.
  static void type(QLineEdit* field, const QString& text) {
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
  }
  static void enter(QLineEdit* field, const QString& text) {
    type(field, text);
    QTest::keyClick(field, Qt::Key_Return);
  }
  static void click(QPushButton* button) { button->click(); }

  // Presses the button while the modal window that it opens is handled.
  template <class Handler>
  static void clickAndHandle(QPushButton* button, Handler handler) {
    QTimer::singleShot(0, button, [handler] {
      auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(modal);
      handler(modal);
      if (modal->isVisible()) modal->close();
    });
    button->click();
  }

  support::MemoryFileSystem disk{{{std::string(kFolder) + "leer", {}}}};
  support::FailingFileSystem files{disk};
  base::FixedClock clock{
      base::Date{std::chrono::year(2025), std::chrono::month(11), std::chrono::day(14)}};
  base::PathState paths;
  FakePrompts prompts;
  FakeShell shell;
  FakeNavigator navigator;
  dialogs::Services services{paths, files, clock, prompts, shell, navigator};
  std::unique_ptr<frmVerbrauch> window;
};
