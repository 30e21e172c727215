// How the start window keeps up with its folder and its user: what the years hold, the year last
// worked in, files that come and go, the keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include "SampleYear.h"
#include "StartFixture.h"
#include "app/ui/RecentYears.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "support/EmptyYear.h"

using dialogs::Button;
using namespace Qt::Literals::StringLiterals;

namespace {

class StartFolder : public StartFixture {
 protected:
  frmVerbrStart& open() {
    window_ = std::make_unique<frmVerbrStart>(services, facts, opener);
    window_->setAttribute(Qt::WA_DeleteOnClose, false);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    return *window_;
  }
  void remember(const std::string& path) { app::rememberYear(QString::fromStdString(path)); }
  QString told(const QString& name) const {
    auto* item = window_->filFiles->findItems(name, Qt::MatchExactly).value(0);
    return item ? item->data(Qt::AccessibleDescriptionRole).toString() : QString();
  }

  std::unique_ptr<frmVerbrStart> window_;
};

TEST_F(StartFolder, EachYearSaysHowItStandsWithoutBeingLocked) {
  ASSERT_TRUE(sample::makeBoth(*files, dataFolder(), support::emptyYear()));
  EXPECT_TRUE(files->replaceFile(dataFolder() + "Leer.kwd", support::emptyYear()));
  put("Brief.kwd", "kein Jahr");
  const auto held = files->open(dataFolder() + "Verbrauch2024.kwd", base::OpenMode::ReadWrite);
  auto& window = open();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !told(u"Verbrauch2025.kwd"_s).isEmpty(); }));
  EXPECT_TRUE(
      told(u"Verbrauch2025.kwd"_s).startsWith(u"vollständig, Nachzahlung 105,37 Euro, geändert "_s))
      << told(u"Verbrauch2025.kwd"_s).toStdString();
  EXPECT_TRUE(told(u"Leer.kwd"_s).startsWith(u"leer, "_s)) << told(u"Leer.kwd"_s).toStdString();
  EXPECT_TRUE(told(u"Brief.kwd"_s).startsWith(u"lässt sich nicht lesen"_s));
  EXPECT_TRUE(told(u"Verbrauch2024.kwd"_s).startsWith(u"ist geöffnet"_s));
  EXPECT_TRUE(files->open(dataFolder() + "Verbrauch2025.kwd", base::OpenMode::ReadWrite));
  EXPECT_EQ(window.filFiles->toolTip(), u"Mit Doppelklick Dia übernehmen"_s);
}

TEST_F(StartFolder, AnEmptyYearThatWasOnlyOpenedIsNotWhatOneWorkedIn) {
  ASSERT_TRUE(sample::makeBoth(*files, dataFolder(), support::emptyYear()));
  for (const char* name : {"Verbrauch.kwd", "Leer.kwd"})
    EXPECT_TRUE(files->replaceFile(dataFolder() + name, support::emptyYear()));
  for (const char* name : {"Verbrauch2025.kwd", "Leer.kwd", "Verbrauch.kwd"})
    remember(dataFolder() + name);
  EXPECT_EQ(open().cmdWeiter->accessibleName(), u"Weiter mit Verbrauch2025"_s);
  window_.reset();
  ASSERT_TRUE(files->remove(dataFolder() + "Verbrauch2025.kwd"));
  EXPECT_EQ(open().cmdWeiter->accessibleName(), u"Weiter mit Verbrauch"_s) << "none has entries";
}

TEST_F(StartFolder, GoesOnWithTheYearThatWasOpenLastInThisFolder) {
  for (const char* name : {"Verbrauch.kwd", "Haus & Hof.kwd"}) put(name);
  auto& first = open();
  EXPECT_FALSE(first.cmdWeiter->isVisible());
  EXPECT_TRUE(first.cmdHausrat->isDefault());
  remember(dataFolder() + "Haus & Hof.kwd");
  remember(dataFolder() + "gelöscht.kwd");
  remember(home / "woanders/Verbrauch.kwd");
  auto& window = open();
  EXPECT_TRUE(window.cmdWeiter->isVisible() && window.cmdWeiter->isDefault());
  EXPECT_EQ(window.cmdWeiter->text(), u"Wei&ter mit Haus && Hof"_s);
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch.kwd"_s) << "the preselection stays";
  ASSERT_EQ(window.focusWidget(), window.cmdWeiter);
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(opener.opened, 1);
  EXPECT_EQ(paths.YearDatabaseName, "Haus & Hof.kwd");
}

TEST_F(StartFolder, ANewYearIsOneClickAway) {
  for (const char* name : {"Verbrauch.kwd", "Alt.kwd"}) put(name);
  remember(dataFolder() + "Alt.kwd");
  auto& window = open();
  prompts.acceptTellings();
  prompts.answer(Button::Yes);
  QTimer::singleShot(0, [] {
    auto* make = qobject_cast<frmNeuVerbrauch*>(QApplication::activeModalWidget());
    ASSERT_TRUE(make);
    make->txtBenutzer->setText(u"Haushalt 2026"_s);
    make->Command1->click();
  });
  window.Option1(0)->click();
  EXPECT_EQ(window.cmdWeiter->text(), u"Wei&ter mit Haushalt 2026"_s);
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch.kwd"_s);
  EXPECT_FALSE(window.Option1(0)->isChecked());
  ASSERT_EQ(window.focusWidget(), window.cmdWeiter) << "Enter opens the new year, not the old one";
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(paths.YearDatabaseName, "Haushalt 2026.kwd");
}

TEST_F(StartFolder, TheListFollowsTheFolderAndKeepsTheChoice) {
  for (const char* name : {"Verbrauch.kwd", "Haus.kwd"}) put(name);
  auto& window = open();
  window.filFiles->setCurrentRow(0);
  ASSERT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
  put("Garten.kwd");
  put("Garten_WechselGas.dat");
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.filFiles->names().size() == 3; }));
  EXPECT_EQ(window.filFiles->selectedName(), u"Haus.kwd"_s);
  EXPECT_EQ(window.FilesWechsel->names(), QStringList{u"Garten_WechselGas.dat"_s});
  EXPECT_TRUE(files->remove(dataFolder() + "Garten.kwd"));
  QTest::keyClick(&window, Qt::Key_F5);
  EXPECT_EQ(window.filFiles->names().size(), 2) << "at once, without waiting for the folder";
}

TEST_F(StartFolder, EveryButtonIsReachedByTabAndByArrows) {
  put("Verbrauch.kwd");
  remember(dataFolder() + "Verbrauch.kwd");
  auto& window = open();
  const QList<QWidget*> order = {window.filFiles,   window.cmdWeiter,  window.cmdHausrat,
                                 window.Option1(0), window.Option1(1), window.Option1(2)};
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down}) {
    const int begin = key == Qt::Key_Tab ? 0 : 1;  // arrows in the list choose a year
    order[begin]->setFocus();
    for (int i = begin; i < order.size(); ++i) {
      EXPECT_EQ(window.focusWidget(), order[i]) << order[i]->objectName().toStdString();
      QTest::keyClick(window.focusWidget(), key);
    }
  }
  window.Option1(1)->setFocus();
  prompts.answer(Button::Cancel);
  QTest::keyClick(window.Option1(1), Qt::Key_Return);
  EXPECT_EQ(prompts.last().title, u" Achtung !!!"_s);
  window.cmdHausrat->setFocus();
  QTest::keyClick(window.cmdHausrat, Qt::Key_Return);
  EXPECT_EQ(opener.opened, 1);
}

TEST_F(StartFolder, AltVOpensAndNothingElseEachTime) {
  put("Verbrauch.kwd");
  auto& window = open();
  for (int press = 1; press <= 3; ++press) {
    QTest::keyClick(&window, Qt::Key_V, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opener.opened == press; }));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
}

TEST_F(StartFolder, RecentYearsStandInTheMenuWithTheirFolder) {
  put("Verbrauch.kwd");
  EXPECT_TRUE(files->replaceFile(home / "Alt.kwd", base::asBytes("x")));
  remember(home / "Alt.kwd");
  remember(home / "weg.kwd");
  remember(dataFolder() + "Verbrauch.kwd");
  auto& window = open();
  Q_EMIT window.mnuDatei->aboutToShow();
  const auto entries = window.mnuZuletzt->actions();
  ASSERT_EQ(entries.size(), 2) << "what is gone is not offered";
  EXPECT_EQ(entries[0]->text(), u"&1 Verbrauch"_s);
  EXPECT_EQ(entries[1]->text(), u"&2 Alt  –  "_s + QString::fromStdString(home.path()));
  entries[1]->trigger();
  EXPECT_EQ(opener.openedFiles, std::vector<std::string>{home / "Alt.kwd"});
  for (int i = 0; i < 20; ++i) remember(dataFolder() + std::to_string(i) + ".kwd");
  remember(dataFolder() + "19.kwd");
  EXPECT_EQ(app::recentYears().size(), 9);
}

#ifndef _WIN32
TEST_F(StartFolder, ANameThatIsNoUtf8IsSaidToBeThat) {
  put("Verbrauch.kwd");
  put("M\xE4rz.kwd");
  auto& window = open();
  const QString shown = u"M\uFFFDrz.kwd"_s;
  ASSERT_TRUE(QTest::qWaitFor([&] { return !told(shown).isEmpty(); }));
  EXPECT_TRUE(told(shown).startsWith(u"Name nicht in UTF-8"_s));
  prompts.acceptTellings();
  Q_EMIT window.filFiles->opened(shown);
  EXPECT_TRUE(prompts.take().text.contains(u"umbenannt"_s));
  EXPECT_EQ(opener.opened + opener.openedOver, 0);
}
#endif

}  // namespace
