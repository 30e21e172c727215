#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

#include "SampleYear.h"
#include "dialogs/Services.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"
#include "yearbook/YearSession.h"

// An open year on a disk in memory, and everything that a window asks of the program.
class OpenYear : public testing::Test {
 protected:
  void openEmpty() {
    disk.put(kPath, support::emptyYear());
    open();
  }
  void openSample() {
    openEmpty();
    const auto entered = sample::enter(*year, sample::year2025());
    ASSERT_TRUE(entered) << base::germanMessage(entered.error());
  }
  void open() {
    year.reset();
    auto opened = yearbook::YearSession::open(files, kPath, kFolder, clock);
    ASSERT_TRUE(opened) << base::germanMessage(opened.error());
    year = std::move(*opened);
  }

  template <class Window>
  std::unique_ptr<Window> show() {
    auto window = std::make_unique<Window>(services, *year, nullptr);
    window->show();
    window->activateWindow();
    QCoreApplication::processEvents();
    return window;
  }

  std::string bytes(const std::string& name) const {
    const base::Bytes content = disk.get(kFolder + name);
    return {content.begin(), content.end()};
  }
  void put(const std::string& name, const std::string& content) {
    disk.put(kFolder + name, base::asBytes(content));
  }
  // From now on nothing can be written.
  void fillDisk() { files.arm({0, true, base::ErrorCode::NoSpace, false}); }
  void freeDisk() { files.disarm(); }

  static constexpr char kFolder[] = "/daten/";
  static constexpr char kPath[] = "/daten/Verbrauch2025.kwd";

  base::FixedClock clock{
      base::Date{std::chrono::year(2025), std::chrono::month(9), std::chrono::day(3)}};
  support::MemoryFileSystem disk;
  support::FailingFileSystem files{disk};
  base::PathState paths;
  FakePrompts prompts;
  FakeShell shell;
  FakeNavigator navigator;
  dialogs::Services services{paths, files, clock, prompts, shell, navigator};
  std::unique_ptr<yearbook::YearSession> year;
};

// Types over what the field holds.
inline void type(QWidget* field, const QString& text) {
  field->setFocus();
  QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(field, text);
}

inline void click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(widget, button, {}, QPoint(8, widget->height() / 2));
}
