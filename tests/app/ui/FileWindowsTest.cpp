#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <filesystem>

#include "StartFixture.h"
#include "app/ui/OpenYearKeeper.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "app/ui/frmRuecksichern.h"
#include "app/ui/frmSichern.h"
#include "jet/Database.h"
#include "support/EmptyYear.h"
#include "yearbook/Schema.h"

using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;
using namespace Qt::Literals::StringLiterals;

namespace {

class NewYear : public StartFixture {
 protected:
  NewYear() {
    window.show();
    QApplication::processEvents();
  }
  void create(const QString& name) {
    window.txtBenutzer->setText(name);
    window.Command1->click();
  }
  frmNeuVerbrauch window{services};
};

TEST_F(NewYear, NameIsAskedAndTheYearIsACopyOfTheTemplate) {
  prompts.acceptTellings();
  prompts.answer(Button::Yes);
  create(u"Haus 2026"_s);
  const QString path = QString::fromStdString(dataFolder() + "Haus 2026.kwd");
  EXPECT_EQ(prompts.take().text, u"Neue Datenbank wurde angelegt unter  \n"_s + path);
  const auto question = prompts.take();
  EXPECT_EQ(question.text,
            u"Sie haben  Haus 2026  eingegeben\n"
            "Soll die Datenbank mit dem Namen   Haus 2026  angelegt werden?"_s);
  EXPECT_EQ(question.title, u" Eingabe prüfen"_s);
  EXPECT_EQ(question.defaultButton, Button::No);
  EXPECT_EQ(files->readText(dataFolder() + "Haus 2026.kwd"), "leer");
  EXPECT_FALSE(window.isVisible());
}

TEST_F(NewYear, EmptyNameIsRefusedAndNoEndsTheAction) {
  prompts.acceptTellings();
  create({});
  EXPECT_EQ(prompts.take().text, u"Sie müssen erst einen neuen Datei-Namen eingeben!"_s);
  prompts.answer(Button::No);
  create(u"Haus"_s);
  EXPECT_TRUE(inDataFolder().empty());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(NewYear, ExistingYearIsReplacedByRetryAndIgnoreAlone) {
  put("Haus.kwd", "alt");
  prompts.acceptTellings();
  prompts.answer(Button::Yes);
  prompts.answer(Button::Abort);
  create(u"Haus"_s);
  const auto box = prompts.take();
  EXPECT_EQ(box.text, u"Die Datei  "_s + QString::fromStdString(dataFolder()) +
                          u"Haus.kwd  existiert bereits!"_s);
  EXPECT_EQ(box.title, u"Fehler"_s);
  EXPECT_EQ(box.icon, Icon::Question);
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "alt");
  put("Haus_WechselGas.dat");
  prompts.answer(Button::Yes);
  prompts.answer(Button::Retry);
  create(u"Haus"_s);
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "leer");
  EXPECT_EQ(inDataFolder(), (std::vector<std::string>{"Haus.kwd", "Sicherungen"}));
  const std::string copy = dataFolder() + "Sicherungen/2024-03-01 00.00.00 vor dem Ersetzen/";
  EXPECT_EQ(files->readText(copy + "Haus.kwd"), "alt");
  EXPECT_TRUE(files->exists(copy + "Haus_WechselGas.dat"));
}

TEST_F(NewYear, WithoutACopyNothingIsReplacedUnlessWanted) {
  put("Haus.kwd", "alt");
  put("Sicherungen", "kein Ordner");
  prompts.acceptTellings();
  prompts.answer(Button::Yes);
  prompts.answer(Button::Retry);
  prompts.answer(Button::No);
  create(u"Haus"_s);
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "alt");
  EXPECT_TRUE(window.isVisible());
}

TEST_F(NewYear, ANameThatBeginsLikeAnotherYearGetsAHint) {
  put("Haus.kwd");
  QTest::keyClicks(window.txtBenutzer, u"Haus2"_s);
  EXPECT_TRUE(window.lblNamensHinweis->text().contains(u"Haus.kwd"_s));
  window.txtBenutzer->setText(u"Garten"_s);
  EXPECT_EQ(window.lblNamensHinweis->text(), QString());
}

TEST_F(NewYear, MissingTemplateIsToldAndKeepsTheOldYear) {
  put("Haus.kwd", "alt");
  EXPECT_TRUE(files->remove(program / "Vorlverbr8.kwx"));
  prompts.acceptTellings();
  prompts.answer(Button::Yes);
  prompts.answer(Button::Ignore);
  create(u"Haus"_s);
  EXPECT_TRUE(prompts.last().text.startsWith(u"Fehler # 53 wurde ausgelöst von "_s));
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "alt");
  EXPECT_TRUE(window.isVisible());
}

TEST_F(NewYear, BlanksAroundANameAreNotPartOfIt) {
  prompts.acceptTellings();
  create(u"   \u00A0"_s);
  EXPECT_EQ(prompts.take().text, u"Sie müssen erst einen neuen Datei-Namen eingeben!"_s);
  prompts.answer(Button::Yes);
  create(u"  Haus 2026 "_s);
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Haus 2026.kwd"});
  EXPECT_EQ(window.made(), dataFolder() + "Haus 2026.kwd");
}

// Letters of two bytes each: the year itself would fit, its longest side file would not.
TEST_F(NewYear, ANameThatIsTooLongIsSaidToBeThat) {
  prompts.acceptTellings();
  create(QString(120, u'ä'));
  EXPECT_TRUE(prompts.take().text.startsWith(u"Der Name ist zu lang"_s));
  EXPECT_TRUE(inDataFolder().empty());
  prompts.answer(Button::Yes);
  create(QString(100, u'ä'));
  EXPECT_EQ(inDataFolder().size(), 1U);
}

TEST_F(NewYear, TypedDotsAndSlashesAreSwallowed) {
  QTest::keyClicks(window.txtBenutzer, u"Haus.20/26\"x"_s);
  EXPECT_EQ(window.txtBenutzer->text(), u"Haus2026\"x"_s);
}

// A stick with folders, beside the data folder.
class CopyWindows : public StartFixture {
 protected:
  CopyWindows() {
    EXPECT_TRUE(files->makeFolder(home / "Stick"));
    prompts.acceptTellings();
    qputenv("HOME", QByteArray::fromStdString(home.path()));
  }
  ~CopyWindows() override { qputenv("HOME", oldHome_); }
  std::string stick(const std::string& name = {}) const { return home / ("Stick/" + name); }
  void save(const std::string& name, const std::string& content) {
    EXPECT_TRUE(files->replaceFile(stick(name), base::asBytes(content)));
  }
  template <class Window>
  void show(Window& window) {
    window.show();
#ifdef _WIN32
    // There the windows start at the drive, not at the home folder.
    constexpr std::size_t kRootLength = 3;
    window.Dir1->setPath(QString::fromStdString(home.path().substr(0, kRootLength)),
                         QString::fromStdString(home.path()));
#endif
    QApplication::processEvents();
  }
  // Clicks the folder in the tree below the start folder.
  static void choose(widgets::FolderList* folders, const QString& name) {
    const auto found = folders->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(found.isEmpty()) << name.toStdString();
    folders->scrollToItem(found.last());
    QTest::mouseClick(folders->viewport(), Qt::LeftButton, {},
                      folders->visualItemRect(found.last()).center());
  }

 private:
  QByteArray oldHome_ = qgetenv("HOME");
};

TEST_F(CopyWindows, BackupCopiesAllYearsAndSideFilesIntoTheChosenFolder) {
  for (const char* name : {"A.kwd", "B.KWD", "A_WechselGas.dat", "pauschale.dat", "Notiz.txt"})
    put(name, name);
  frmSichern window(services);
  show(window);
  EXPECT_EQ(window.Command1->text(), u"Wählen Sie zuerst links ein Verzeichnis aus"_s);
  EXPECT_EQ(window.FileVerbrauch->names(), (QStringList{u"A.kwd"_s, u"B.KWD"_s}));
  choose(window.Dir1, u"Stick"_s);
  EXPECT_EQ(window.Command1->text(), u"In links ausgewähltes Verzeichnis Sichern"_s);
  window.Command1->click();
  const auto box = prompts.take();
  EXPECT_EQ(box.text,
            u"Die Daten wurden nach "_s + QString::fromStdString(stick()) + u" kopiert."_s);
  EXPECT_EQ(box.title, u"Datensicherung"_s);
  EXPECT_EQ(box.icon, Icon::Information);
  EXPECT_EQ(files->list(stick()).value(),
            (std::vector<std::string>{"A.kwd", "A_WechselGas.dat", "B.KWD", "pauschale.dat"}));
}

TEST_F(CopyWindows, BackupComesUpWhereItWentLastTime) {
  put("A.kwd");
  {
    frmSichern window(services);
    show(window);
    choose(window.Dir1, u"Stick"_s);
    prompts.answerInput(u" Neu/er "_s);
    window.cmdNeuerOrdner->click();
    EXPECT_EQ(window.Dir1->path().toStdString(), stick("Neuer/"));
    EXPECT_EQ(window.Command1->text(), u"In links ausgewähltes Verzeichnis Sichern"_s);
    prompts.answerInput(u"Neuer"_s);
    window.Dir1->setPath(window.Dir1->root(), QString::fromStdString(stick()));
    window.cmdNeuerOrdner->click();
    EXPECT_EQ(prompts.last().title, u"Neuer Ordner"_s);
    EXPECT_TRUE(prompts.last().text.startsWith(u"Fehler # 58"_s));
    choose(window.Dir1, u"Neuer"_s);
    window.Command1->click();
  }
  EXPECT_TRUE(files->exists(stick("Neuer/A.kwd")));
  {
    frmSichern window(services);
    window.show();
    EXPECT_EQ(window.Dir1->path().toStdString(), stick("Neuer/"));
    EXPECT_EQ(window.Command1->text(), u"Wählen Sie zuerst links ein Verzeichnis aus"_s);
  }
  std::filesystem::remove_all(stick());
  frmSichern window(services);
  window.show();
  EXPECT_FALSE(window.Dir1->path().contains(u"Stick"_s)) << "the stick is not there";
}

TEST_F(CopyWindows, BackupStopsAtTheFirstFileThatFails) {
  for (const char* name : {"A.kwd", "B.kwd", "C.kwd"}) put(name, name);
  EXPECT_TRUE(files->makeFolder(stick("B.kwd")));
  frmSichern window(services);
  show(window);
  choose(window.Dir1, u"Stick"_s);
  window.Command1->click();
  EXPECT_EQ(prompts.last().title, u"Fehler"_s);
  EXPECT_TRUE(prompts.last().text.startsWith(u"Fehler # "_s));
  EXPECT_TRUE(prompts.last().text.contains(u"B.kwd"_s));
  EXPECT_TRUE(files->exists(stick("A.kwd")));
  EXPECT_FALSE(files->exists(stick("C.kwd")));
}

TEST_F(CopyWindows, RestoreAsksAndBringsTheYearWithItsOwnSideFiles) {
  save("Haus.kwd", "gesichert");
  save("Haus_WechselGas.dat", "g");
  save("Haus2_WechselGas.dat", "h");
  save("pauschale.dat", "p");
  put("Haus.kwd", "heute");
  frmRuecksichern window(services);
  show(window);
  EXPECT_EQ(window.Command1->text(), u"Wählen Sie zuerst eine Datei aus"_s);
  choose(window.Dir1, u"Stick"_s);
  ASSERT_EQ(window.File3->names(), QStringList(u"Haus.kwd"_s));
  window.File3->setCurrentRow(0);
  EXPECT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
  EXPECT_EQ(window.Command1->text(), u"Ausgewählte Datei wiederherstellen"_s);
  prompts.answer(Button::Cancel);
  window.Command1->click();
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "heute");
  const auto question = prompts.take();
  EXPECT_EQ(question.text,
            u"Achtung! eventuell vorhandene Dateien gleichen Namens werden durch die "
            "Ausgewählten überschrieben."_s);
  EXPECT_EQ(question.title, u"Datensicherung wiederherstellen"_s);
  prompts.answer(Button::Ok);
  window.Command1->click();
  EXPECT_EQ(prompts.last().text,
            u"Die oben ausgewählten, markierten Daten wurden wiederhergestellt."_s);
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "gesichert");
  EXPECT_EQ(inDataFolder(),
            (std::vector<std::string>{"Haus.kwd", "Haus_WechselGas.dat", "Sicherungen"}));
  const std::string copy =
      dataFolder() + "Sicherungen/2024-03-01 00.00.00 vor dem Wiederherstellen/Haus.kwd";
  EXPECT_EQ(files->readText(copy), "heute");
}

TEST_F(CopyWindows, SeveralYearsComeBackAtOnceAndNoneIsNotSaidToHaveCome) {
  for (const char* name : {"A.kwd", "A_WechselGas.dat", "B.kwd", "C.kwd", "C_WechselGas.dat"})
    save(name, "gesichert");
  put("C.kwd", "heute");
  frmRuecksichern window(services);
  show(window);
  choose(window.Dir1, u"Stick"_s);
  prompts.answer(Button::Ok);
  window.Command1->click();
  EXPECT_EQ(prompts.last().text, u"Es ist keine Datei ausgewählt. Es wurde nichts kopiert."_s);
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"C.kwd"});
  const auto clickYear = [&](int row, Qt::KeyboardModifiers keys) {
    QTest::mouseClick(window.File3->viewport(), Qt::LeftButton, keys,
                      window.File3->visualItemRect(window.File3->item(row)).center());
  };
  clickYear(0, {});
  clickYear(2, Qt::ControlModifier);
  EXPECT_EQ(window.lblFilename->text(), u"A.kwd, C.kwd"_s);
  prompts.answer(Button::Ok);
  window.Command1->click();
  EXPECT_EQ(prompts.last().text,
            u"Die oben ausgewählten, markierten Daten wurden wiederhergestellt."_s);
  EXPECT_EQ(inDataFolder(), (std::vector<std::string>{"A.kwd", "A_WechselGas.dat", "C.kwd",
                                                      "C_WechselGas.dat", "Sicherungen"}));
  EXPECT_EQ(files->readText(dataFolder() + "C.kwd"), "gesichert");
}

TEST_F(CopyWindows, EachCopySaysWhatIsInIt) {
  const base::Bytes& empty = support::emptyYear();
  EXPECT_TRUE(files->replaceFile(stick("Leer.kwd"), empty));
  EXPECT_TRUE(files->replaceFile(stick("Haus.kwd"), empty));
  {
    auto year = jet::Database::open(*files, stick("Haus.kwd"));
    ASSERT_TRUE(year && year->begin());
    const auto set = [&](const yearbook::Table& name, const yearbook::Field& field,
                         std::size_t row) {
      auto table = year->openTable(name.name);
      ASSERT_TRUE(table && table->set(row, *table->columnIndex(field.name), 7.0));
    };
    for (std::size_t row = 0; row < 12; ++row)
      set(yearbook::kStrom, yearbook::strom::dayReading, row);
    set(yearbook::kGas, yearbook::gas::reading, 3);
    ASSERT_TRUE(year->commit());
  }
  save("Brief.kwd", "kein Jahr");
  frmRuecksichern window(services);
  show(window);
  choose(window.Dir1, u"Stick"_s);
  const auto described = [&](const QString& name) {
    return window.File3->findItems(name, Qt::MatchExactly).value(0)->toolTip();
  };
  ASSERT_TRUE(QTest::qWaitFor([&] { return !described(u"Leer.kwd"_s).isEmpty(); }));
  EXPECT_TRUE(described(u"Haus.kwd"_s).startsWith(u"12 Monate Strom, 1 Gas, Stand "_s))
      << described(u"Haus.kwd"_s).toStdString();
  EXPECT_TRUE(described(u"Leer.kwd"_s).startsWith(u"leer, Stand "_s));
  EXPECT_TRUE(described(u"Brief.kwd"_s).startsWith(u"lässt sich nicht lesen"_s));
  EXPECT_EQ(window.File3->item(0)->text(), u"Brief.kwd"_s) << "the name stays the entry's text";
}

TEST_F(CopyWindows, AnOpenYearIsKeptWithItsSideFilesBeforeItChangesAsAWhole) {
  put("Haus.kwd", "offen");
  put("Haus_WechselGas.dat", "g");
  const auto held = files->open(dataFolder() + "Haus.kwd", base::OpenMode::ReadWrite);
  app::OpenYearKeeper keeper;
  keeper.begin(services);
  const base::Bytes image(5, 'o');
  EXPECT_TRUE(keeper.keepBefore(dialogs::Harm::DeletingReadings, nullptr, dataFolder() + "Haus.kwd",
                                image));
  const std::string copy =
      dataFolder() + "Sicherungen/2024-03-01 00.00.00 vor dem Löschen der Zählerstände/";
  EXPECT_EQ(files->readText(copy + "Haus.kwd"), "ooooo");
  EXPECT_EQ(files->readText(copy + "Haus_WechselGas.dat"), "g");
  prompts.answer(Button::No);
  EXPECT_FALSE(keeper.keepBefore(dialogs::Harm::Clearing, nullptr, dataFolder() + "Haus.kwd",
                                 base::fail(base::ErrorCode::IoError, {}, "Haus.kwd")));
}

TEST_F(CopyWindows, WithNothingSelectedOnlyTheNamedYearsSideFilesComeFromTheFolderShown) {
  EXPECT_TRUE(files->makeFolder(stick("Alt")));
  save("Haus.kwd", "gesichert");
  save("Alt/Haus_WechselGas.dat", "alt");
  save("Alt/Haus.kwd", "alt");
  frmRuecksichern window(services);
  show(window);
  choose(window.Dir1, u"Stick"_s);
  window.File3->setCurrentRow(0);
  window.Dir1->currentItem()->setExpanded(true);
  choose(window.Dir1, u"Alt"_s);
  prompts.answer(Button::Ok);
  window.Command1->click();
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Haus_WechselGas.dat"});
}

TEST_F(CopyWindows, SafetyCopiesAreShownByTheirNewestDay) {
  put("Haus.kwd", "heute");
  EXPECT_TRUE(files->makeFolder(dataFolder() + "Sicherungen"));
  for (const char* day : {"2024-02-01", "2024-02-09"}) {
    EXPECT_TRUE(files->makeFolder(dataFolder() + "Sicherungen/" + day));
    put(std::string("Sicherungen/") + day + "/Haus.kwd", day);
  }
  frmRuecksichern window(services);
  show(window);
  window.cmdSicherungen->click();
  window.File3->setCurrentRow(0);
  prompts.answer(Button::Ok);
  window.Command1->click();
  EXPECT_EQ(files->readText(dataFolder() + "Haus.kwd"), "2024-02-09");
}

TEST_F(CopyWindows, TabGoesFromTheFolderToTheYearToTheAction) {
  EXPECT_TRUE(files->makeFolder(dataFolder() + "Sicherungen"));  // else its button is hidden
  frmRuecksichern window(services);
  show(window);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const QWidget* next : std::initializer_list<QWidget*>{
           window.Dir1, window.cmdSicherungen, window.File3, window.Command1, window.Command2}) {
    EXPECT_EQ(window.focusWidget(), next) << next->objectName().toStdString();
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(CopyWindows, UnreadableDriveIsToldAndTheListReturns) {
  frmSichern window(services);
  show(window);
  const QString before = window.Drive1->drive();
  window.Drive1->addItem(QString::fromStdString(home / "nicht da/"));
  window.Drive1->setCurrentIndex(window.Drive1->count() - 1);
  Q_EMIT window.Drive1->chosen(window.Drive1->drive());
  EXPECT_EQ(prompts.last().text, u"Laufwerksfehler!"_s);
  EXPECT_EQ(prompts.last().title, u"Error"_s);
  EXPECT_EQ(window.Drive1->drive(), before);
  EXPECT_EQ(window.Command1->text(), u"Wählen Sie zuerst links ein Verzeichnis aus"_s);
}

TEST_F(CopyWindows, AChosenDriveIsAChosenFolder) {
  put("A.kwd");
  frmSichern window(services);
  show(window);
  window.Drive1->addItem(QString::fromStdString(stick()));
  window.Drive1->setCurrentIndex(window.Drive1->count() - 1);
  Q_EMIT window.Drive1->chosen(window.Drive1->drive());
  EXPECT_EQ(window.Command1->text(), u"In links ausgewähltes Verzeichnis Sichern"_s);
  window.Command1->click();
  EXPECT_TRUE(files->exists(stick("A.kwd")));
}

}  // namespace
