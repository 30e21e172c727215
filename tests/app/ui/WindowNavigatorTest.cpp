#include "app/ui/WindowNavigator.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QMainWindow>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include "../MidChange.h"
#include "StartFixture.h"
#include "app/StrayJournal.h"
#include "app/ui/RecentYears.h"

using dialogs::Button;
using namespace Qt::Literals::StringLiterals;

namespace {

// The real ways between the windows, with a plain window in the main window's place.
class Navigation : public StartFixture {
 protected:
  Navigation() {
    put("Verbrauch.kwd", "Jahr");
    navigator.begin(real, facts, [this](QWidget* parent) {
      auto* window = opens ? new QMainWindow(parent) : nullptr;
      if (opens) {
        auto* action = new QAction(window);
        action->setObjectName(u"mnuMonatErfassen"_s);
        QObject::connect(action, &QAction::triggered, &watcher, [this] { ++triggered; });
      }
      return app::YearWindow{window, [this](const QString& text) { hints += text; }};
    });
    connectLast();
    navigator.showStartWindow();
    settle();
  }
  ~Navigation() override {
    for (QWidget* window : QApplication::topLevelWidgets()) window->close();
    settle();
  }
  void connectLast() {
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &watcher, [this] { ++lastClosed; });
  }
  static void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  template <class Window>
  static Window* visible() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (auto* found = qobject_cast<Window*>(window);
          found != nullptr && found->isVisible() &&
          found->metaObject() == &Window::staticMetaObject)
        return found;
    return nullptr;
  }

  app::WindowNavigator navigator;
  dialogs::Services real{paths, *files, clock, prompts, shell, navigator};
  bool opens = true;
  QStringList hints;
  QObject watcher;
  int lastClosed = 0;
  int triggered = 0;
};

TEST_F(Navigation, MainWindowTakesOverWithoutAMomentWithoutWindows) {
  visible<frmVerbrStart>()->cmdHausrat->click();
  settle();
  EXPECT_EQ(visible<frmVerbrStart>(), nullptr);
  ASSERT_NE(visible<QMainWindow>(), nullptr);
  EXPECT_FALSE(visible<QMainWindow>()->isModal());
  EXPECT_EQ(lastClosed, 0);
}

TEST_F(Navigation, ReminderOpensTheYearAtTheWindowThatItNames) {
  navigator.openYearAt(u"mnuMonatErfassen"_s);
  ASSERT_NE(visible<QMainWindow>(), nullptr);
  settle();
  EXPECT_EQ(triggered, 1);
}

TEST_F(Navigation, YearThatCannotBeOpenedLeavesTheStartWindow) {
  opens = false;
  visible<frmVerbrStart>()->cmdHausrat->click();
  settle();
  EXPECT_NE(visible<frmVerbrStart>(), nullptr);
}

TEST_F(Navigation, DoubleClickComesBackToTheStartWindow) {
  bool modal = false;
  QTimer::singleShot(0, [&] {
    modal = visible<QMainWindow>()->isModal();
    visible<QMainWindow>()->close();
  });
  Q_EMIT visible<frmVerbrStart>()->filFiles->opened(u"Verbrauch.kwd"_s);
  EXPECT_TRUE(modal);
  EXPECT_NE(visible<frmVerbrStart>(), nullptr);
  EXPECT_EQ(visible<QMainWindow>(), nullptr);
}

TEST_F(Navigation, AnotherYearStartsAtAFreshStartWindow) {
  const QPointer<frmVerbrStart> first = visible<frmVerbrStart>();
  QTimer::singleShot(0, [&] { navigator.restartAtStartWindow(); });
  Q_EMIT first->filFiles->opened(u"Verbrauch.kwd"_s);
  settle();
  EXPECT_TRUE(first.isNull());
  EXPECT_NE(visible<frmVerbrStart>(), nullptr);
  EXPECT_EQ(visible<QMainWindow>(), nullptr);
  EXPECT_EQ(lastClosed, 0);
}

// The click comes from a posted event, as the system's do: what is deleted later then goes as soon
// as an inner loop looks for events.
TEST_F(Navigation, StartWindowOutlivesTheHandlerOfItsList) {
  for (const auto leave :
       {&dialogs::Navigator::restartAtStartWindow, &dialogs::Navigator::endProgram}) {
    const QPointer<frmVerbrStart> first = visible<frmVerbrStart>();
    bool opened = false;
    bool alive = false;
    const auto doubleClick = [&] {
      QTimer::singleShot(0, [&] {
        opened = visible<QMainWindow>() != nullptr;
        (navigator.*leave)();
        settle();
      });
      const QListWidget* list = first->filFiles;
      const QPoint name = list->visualItemRect(list->item(0)).center();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, name);
      QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, name);
      alive = !first.isNull();
    };
    QEventLoop loop;
    QMetaObject::invokeMethod(&loop, doubleClick, Qt::QueuedConnection);
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    settle();
    EXPECT_TRUE(opened);
    EXPECT_TRUE(alive);
    EXPECT_TRUE(first.isNull());
  }
  EXPECT_EQ(visible<frmVerbrStart>(), nullptr);
}

TEST_F(Navigation, HelpIsOneWindow) {
  navigator.showHelp();
  navigator.showHelp();
  settle();
  int count = 0;
  for (QWidget* window : QApplication::topLevelWidgets())
    count += window->isVisible() && window->objectName() == u"frmHilfe"_s;
  EXPECT_EQ(count, 1);
}

TEST_F(Navigation, TheManualOpensAtThePageOfTheWindow) {
  for (const char* window : {"Frame4", "frmTarife"}) {
    navigator.showManual(QString::fromLatin1(window));
    const auto* book = visible<frmHandbuch>();
    ASSERT_NE(book, nullptr);
    EXPECT_EQ(manual::placeAt(book->txtSeite->source()),
              manual::placeOf(QString::fromLatin1(window)));
  }
}

class SampleYear : public Navigation {
 protected:
  SampleYear() {
    EXPECT_TRUE(files->makeFolder(program / "beispiel"));
    for (const char* name : {"beispiel/Verbrauch2024.kwd", "beispiel/Verbrauch2025.kwd"})
      EXPECT_TRUE(files->replaceFile(program / name, base::asBytes("Muster")));
  }
  void whileOpen(const std::function<void()>& then) {
    QTimer::singleShot(0, qApp, then);
    navigator.showSample();
    settle();
  }
};

TEST_F(SampleYear, IsMarkedAndLiesApartWhileItIsOpen) {
  const std::string own = paths.YearDatabasePath;
  whileOpen([this] {
    EXPECT_EQ(paths.YearDatabasePath, dataFolder() + "Beispiel/Beispiel 2025.kwd");
    EXPECT_EQ(paths.DataFolder, dataFolder() + "Beispiel/");
    EXPECT_TRUE(hints.join(u' ').contains(u"Kopie zum Ausprobieren"_s));
    EXPECT_TRUE(app::recentYears().isEmpty()) << "it is no year of the household";
    prompts.answer(Button::Ok);
    navigator.showSample();
    EXPECT_EQ(prompts.take().text, u"Das Beispieljahr ist schon geöffnet."_s);
    visible<QMainWindow>()->close();
  });
  EXPECT_EQ(paths.DataFolder, dataFolder());
  EXPECT_EQ(paths.YearDatabasePath, own);
  EXPECT_EQ(std::filesystem::current_path(), std::filesystem::path(dataFolder()).parent_path());
  EXPECT_NE(visible<frmVerbrStart>(), nullptr);
}

TEST_F(SampleYear, OverAYearComesBackToThatYear) {
  visible<frmVerbrStart>()->cmdHausrat->click();
  settle();
  const QPointer<QMainWindow> year = visible<QMainWindow>();
  whileOpen([&] {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window != year && qobject_cast<QMainWindow*>(window)) window->close();
  });
  ASSERT_FALSE(year.isNull());
  EXPECT_TRUE(year->isVisible());
  EXPECT_EQ(paths.DataFolder, dataFolder());
}

// Whoever leaves for the start window from the sample leaves the year below it too.
TEST_F(SampleYear, LeavingItForTheStartWindowLeavesNoWindowBehind) {
  visible<frmVerbrStart>()->cmdHausrat->click();
  settle();
  whileOpen([this] { navigator.restartAtStartWindow(); });
  settle();
  EXPECT_EQ(visible<QMainWindow>(), nullptr);
  ASSERT_NE(visible<frmVerbrStart>(), nullptr);
  EXPECT_EQ(paths.DataFolder, dataFolder());
}

TEST_F(SampleYear, AMissingSampleIsSaid) {
  EXPECT_TRUE(files->remove(program / "beispiel/Verbrauch2025.kwd"));
  prompts.answer(Button::Ok);
  navigator.showSample();
  EXPECT_TRUE(prompts.take().text.contains(u"Verbrauch2025.kwd"_s));
  EXPECT_EQ(paths.DataFolder, dataFolder());
}

TEST_F(Navigation, OpeningLeavesASafetyCopyAndAFailureOnlyAHint) {
  visible<frmVerbrStart>()->cmdHausrat->click();
  visible<QMainWindow>()->close();
  settle();
  EXPECT_EQ(files->readText(dataFolder() + "Sicherungen/2024-03-01/Verbrauch.kwd"), "Jahr");

  put("Verbrauch.kwd", "eingegeben");
  clock.set(base::Date{std::chrono::year{2024} / 3 / 2});
  put("Verbrauch.kwd", "geändert");
  put("Sicherungen/2024-03-02", "kein Ordner");
  navigator.openYear();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !hints.isEmpty(); }));
  ASSERT_EQ(hints.size(), 1);
  EXPECT_TRUE(hints[0].contains(u"2024-03-02"_s)) << hints[0].toStdString();
}

// It was killed in mid-change and renamed by hand.
TEST_F(Navigation, ARenamedYearIsOfferedTheChangeThatWasInterrupted) {
  const std::string old = dataFolder() + "Haushalt.kwd";
  const MidChange change(old);
  std::string former;
  for (std::size_t moment = 0; former.empty(); ++moment) {
    const auto left = change.leftAt(moment);
    for (const auto& [path, content] : left)
      ASSERT_TRUE(files->replaceFile(path == old ? dataFolder() + "Haus.kwd" : path, content));
    former = app::formerNameOf(*files, dataFolder(), "Haus.kwd");
  }
  paths.YearDatabasePath = dataFolder() + "Haus.kwd";
  for (const Button answer : {Button::No, Button::Yes}) {
    prompts.answer(answer);
    navigator.openYear();
    const auto asked = prompts.take();
    EXPECT_EQ(asked.defaultButton, Button::Yes);
    EXPECT_TRUE(asked.text.contains(u"Haus.kwd hieß offenbar Haushalt.kwd"_s));
    EXPECT_EQ(files->exists(old + "-journal"), answer == Button::No);
    EXPECT_EQ(files->exists(dataFolder() + "Haus.kwd-journal"), answer == Button::Yes);
    settle();
  }
  navigator.openYear();
  EXPECT_TRUE(prompts.shown.empty());
}

// From another folder, over a year that is open; when it cannot be opened all is as before.
TEST_F(Navigation, AFileFromElsewhereTakesOver) {
  EXPECT_TRUE(files->makeFolder(home / "Stick"));
  const std::string year = home / "Stick/Haus.kwd";
  EXPECT_TRUE(files->replaceFile(year, base::asBytes("Jahr")));
  opens = false;
  navigator.openFile(year);
  settle();
  EXPECT_EQ(paths.DataFolder, dataFolder());
  EXPECT_NE(visible<frmVerbrStart>(), nullptr);

  opens = true;
  visible<frmVerbrStart>()->cmdHausrat->click();
  settle();
  const QPointer<QMainWindow> first = visible<QMainWindow>();
  navigator.openFile(year);
  settle();
  EXPECT_TRUE(first.isNull());
  const QPointer<QMainWindow> second = visible<QMainWindow>();
  ASSERT_FALSE(second.isNull());
  EXPECT_EQ(paths.YearDatabasePath, year);
  EXPECT_EQ(paths.DataFolder, home / "Stick/");
  EXPECT_EQ(app::recentYears().value(0), QString::fromStdString(year));
  navigator.openFile(year);
  settle();
  EXPECT_FALSE(second.isNull()) << "it is open already";
}

TEST_F(Navigation, AFileWaitsForTheWindowThatTakesEntries) {
  put("Haus.kwd");
  QDialog entry;
  entry.setModal(true);
  entry.show();
  settle();
  navigator.openFile(dataFolder() + "Verbrauch.kwd");
  navigator.openFile(dataFolder() + "Haus.kwd");
  QTest::qWait(400);
  EXPECT_EQ(visible<QMainWindow>(), nullptr);
  entry.close();
  ASSERT_TRUE(QTest::qWaitFor([] { return visible<QMainWindow>() != nullptr; }));
  EXPECT_EQ(paths.YearDatabasePath, dataFolder() + "Haus.kwd") << "the last one counts";
}

TEST_F(Navigation, AYearThatIsDroppedOpensAndAnotherFileDoesNot) {
  put("Haus.kwd");
  auto* list = visible<frmVerbrStart>()->filFiles->viewport();
  const auto drop = [&](const std::vector<std::string>& names) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& name : names)
      urls += QUrl::fromLocalFile(QString::fromStdString(dataFolder() + name));
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list, &enter);
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list, &event);
    settle();
  };
  drop({"Haus_WechselGas.dat"});
  drop({"Haus.kwd", "Verbrauch.kwd"});
  EXPECT_EQ(visible<QMainWindow>(), nullptr);
  drop({"Haus.kwd"});
  ASSERT_NE(visible<QMainWindow>(), nullptr);
  EXPECT_EQ(paths.YearDatabasePath, dataFolder() + "Haus.kwd");
}

}  // namespace
