#include "dialogs/QtPrompts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include "dialogs/FileFilter.h"

using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;
using namespace Qt::Literals::StringLiterals;

namespace {

// Runs once the next modal window of that kind is shown.
template <class T>
void whenShown(std::function<void(T*)> action) {
  QTimer::singleShot(0, [action = std::move(action)] {
    auto* shown = qobject_cast<T*>(QApplication::activeModalWidget());
    ASSERT_NE(shown, nullptr);
    action(shown);
  });
}

class QtPromptsTest : public testing::Test {
 protected:
  dialogs::QtPrompts prompts;
  QWidget owner;
};

TEST_F(QtPromptsTest, BoxShowsTextTitleIconAndDefault) {
  whenShown<QMessageBox>([](QMessageBox* box) {
    EXPECT_EQ(box->text(), u"Soll <die> Datei & alles\nweg?"_s);
    EXPECT_EQ(box->windowTitle(), u" Achtung !!!"_s);
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Cancel));
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    QTest::keyClick(box, Qt::Key_Enter);
  });
  EXPECT_EQ(prompts.message(&owner, u"Soll <die> Datei & alles\nweg?"_s, u" Achtung !!!"_s,
                            Icon::Critical, Buttons::OkCancel, Button::Cancel),
            Button::Cancel);
}

TEST_F(QtPromptsTest, AShortTextLeavesRoomForALongTitle) {
  const QString title = u"Eingabe Anfangszählerstand"_s;
  const auto isWideEnough = [&](QDialog* box) {
    // The frame shows the icon of the window and up to three buttons beside it.
    EXPECT_GE(box->width(), box->fontMetrics().horizontalAdvance(title) + 4 * 32);
    box->reject();
  };
  whenShown<QMessageBox>(isWideEnough);
  prompts.message(&owner, u"Ja?"_s, title, Icon::Information, Buttons::Ok, Button::Ok);
  whenShown<QMessageBox>(isWideEnough);
  prompts.message(&owner, u"Ja?"_s, title, Icon::None, Buttons::Ok, Button::Ok);
  whenShown<QInputDialog>(isWideEnough);
  prompts.input(&owner, u"Wert?"_s, title, {}, {});
}

TEST_F(QtPromptsTest, ABoxShowsAllOfItsText) {
  for (const int folders : {1, 5, 30}) {
    const QString text = u"Datei gespeichert unter "_s + u"/verbrauch"_s.repeated(folders);
    whenShown<QMessageBox>([](QMessageBox* box) {
      const auto* label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
      ASSERT_NE(label, nullptr);
      EXPECT_GE(label->width(), label->minimumSizeHint().width());
      EXPECT_GE(label->height(), label->heightForWidth(label->width()));
      box->reject();
    });
    prompts.message(&owner, text, {}, Icon::None, Buttons::Ok, Button::Ok);
  }
}

TEST_F(QtPromptsTest, ClosingABoxIsTheCautiousAnswer) {
  const std::pair<Buttons, Button> cases[] = {{Buttons::Ok, Button::Ok},
                                              {Buttons::OkCancel, Button::Cancel},
                                              {Buttons::YesNo, Button::No},
                                              {Buttons::AbortRetryIgnore, Button::Abort}};
  for (const auto& [buttons, answer] : cases) {
    whenShown<QMessageBox>([](QMessageBox* box) {
      EXPECT_EQ(box->windowTitle(), u"Kalvira"_s);
      box->close();
    });
    EXPECT_EQ(prompts.message(&owner, u"?"_s, {}, Icon::None, buttons, Button::Ok), answer);
  }
}

TEST_F(QtPromptsTest, InputBoxGivesTextOrNothing) {
  whenShown<QInputDialog>([](QInputDialog* box) {
    EXPECT_EQ(box->labelText(), u"Wert?"_s);
    // The note stands between the question and the field, and is spoken with the field.
    const auto* line = box->findChild<QLineEdit*>();
    for (const auto* label : box->findChildren<QLabel*>()) EXPECT_LT(label->y(), line->y());
    EXPECT_EQ(box->findChildren<QLabel*>().size(), 2);
    EXPECT_EQ(line->accessibleDescription(), u"Strom\n0, wenn nicht"_s);
    EXPECT_EQ(box->textValue(), u"7"_s);
    box->setTextValue(u"8"_s);
    box->accept();
  });
  EXPECT_EQ(prompts.input(&owner, u"Wert?"_s, u"Eingabe"_s, u"7"_s, u"Strom\n0, wenn nicht"_s),
            u"8"_s);
  whenShown<QInputDialog>([](QInputDialog* box) {
    EXPECT_EQ(box->findChildren<QLabel*>().size(), 1);
    box->reject();
  });
  EXPECT_EQ(prompts.input(&owner, u"Wert?"_s, {}, {}, {}), std::nullopt);
}

TEST_F(QtPromptsTest, OpenDialogListsItsFilterAndReturnsThePath) {
  QTemporaryDir folder;
  const QString path = folder.filePath(u"Jahr.KWD"_s);
  ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
  whenShown<QFileDialog>([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->windowTitle(), u"Vergleich"_s);
    EXPECT_EQ(QDir(dialog->directory()), QDir(folder.path()));
    EXPECT_EQ(dialog->nameFilters(), QStringList(u"*.kwd (Datenbank) (*.kwd)"_s));
    dialog->selectFile(path);
    QTimer::singleShot(0, [] {
      if (auto* open = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
        static_cast<QDialog*>(open)->done(QDialog::Accepted);
    });
  });
  EXPECT_EQ(prompts.openFile(&owner, u"*.kwd (Datenbank)|*.kwd"_s, u"Vergleich"_s, folder.path()),
            QDir::toNativeSeparators(path));
}

TEST_F(QtPromptsTest, TheListOfFilesCutsNoColumn) {
  const QTemporaryDir folder;
  const QString name = u"Verbrauch der Ferienwohnung am See, Kopie vom Sommer.kwd"_s;
  ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
  whenShown<QFileDialog>([](QFileDialog* dialog) {
    auto* list = dialog->findChild<QTreeView*>(u"treeView"_s);
    ASSERT_NE(list, nullptr);
    const auto isWhole = [list](int column) {
      const QModelIndex cell = list->model()->index(0, column, list->rootIndex());
      const int text = list->fontMetrics().horizontalAdvance(cell.data().toString());
      return cell.isValid() && list->columnWidth(column) >= text;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return isWhole(0) && isWhole(2) && isWhole(3); }, 2000));
    dialog->reject();
  });
  prompts.openFile(&owner, u"Datenbank|*.kwd"_s, {}, folder.path());
}

TEST_F(QtPromptsTest, SaveDialogAsksAboutTheNameThatTheFileWillHave) {
  QTemporaryDir folder;
  const auto path = [&](const QString& name) {
    return QDir::toNativeSeparators(folder.filePath(name));
  };
  ASSERT_TRUE(QFile(path(u"Bild.bmp"_s)).open(QIODevice::WriteOnly));
  ASSERT_TRUE(QFile(path(u"ohne"_s)).open(QIODevice::WriteOnly));
  // What is typed one time after the other, and what each question is answered with.
  QStringList asked;
  const auto save = [&](QStringList typed, QMessageBox::StandardButton answer) {
    asked.clear();
    QTimer everywhere;
    QObject::connect(&everywhere, &QTimer::timeout, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        asked += box->text();
        box->button(answer)->click();
      } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
        if (typed.isEmpty()) return dialog->reject();
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(typed.takeFirst());
        static_cast<QDialog*>(dialog)->accept();
      }
    });
    everywhere.start(10);
    return prompts.saveFile(&owner, u"Bild|*.bmp"_s, {}, folder.path(), u".bmp"_s);
  };
  EXPECT_EQ(save({u"Bild"_s}, QMessageBox::Yes), path(u"Bild.bmp"_s));
  EXPECT_EQ(asked, QStringList(path(u"Bild.bmp"_s) + u"\nist schon vorhanden. Ersetzen?"_s));
  EXPECT_EQ(save({u"Bild"_s, u"neu"_s}, QMessageBox::No), path(u"neu.bmp"_s));
  EXPECT_EQ(asked.size(), 1);
  EXPECT_EQ(save({u"ohne"_s}, QMessageBox::No), path(u"ohne.bmp"_s));
  EXPECT_EQ(asked.size(), 0) << "the name as typed is taken, the completed one is not";
  EXPECT_EQ(save({u"Bild.bmp"_s}, QMessageBox::No), QString());
  EXPECT_TRUE(QFile::exists(path(u"Bild.bmp"_s)));
}

TEST_F(QtPromptsTest, CancelledDialogsGiveTheirEmptyValue) {
  whenShown<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
  EXPECT_EQ(prompts.saveFile(&owner, u"Bild|*.bmp"_s, {}, {}, u".bmp"_s), QString());
  whenShown<QFileDialog>([](QFileDialog* dialog) {
    EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
    EXPECT_EQ(QDir(dialog->directory()), QDir::home()) << "a start folder that is not there";
    dialog->reject();
  });
  EXPECT_EQ(prompts.chooseFolder(&owner, u"Wählen"_s, u"Q:\\weg\\"_s), QString());
  whenShown<QColorDialog>([](QColorDialog* dialog) { dialog->reject(); });
  EXPECT_EQ(prompts.chooseColor(&owner, 0, true), -1);
}

TEST_F(QtPromptsTest, ColourComesBackWithRedInTheLowestByte) {
  whenShown<QColorDialog>([](QColorDialog* dialog) {
    EXPECT_EQ(dialog->currentColor(), QColor(0x11, 0x22, 0x33));
    dialog->setCurrentColor(QColor(0xAA, 0xBB, 0xCC));
    dialog->accept();
  });
  EXPECT_EQ(prompts.chooseColor(&owner, 0x332211, false), 0xCCBBAA);
}

TEST(FileFilter, EverySeparatorBecomesNulAndOneEndsTheList) {
  const std::string list("*.kwd (Datenbank)\0*.kwd\0", 24);
  EXPECT_EQ(dialogs::systemFilterList("*.kwd (Datenbank)|*.kwd"), list);
  EXPECT_EQ(dialogs::systemFilterList("*.kwd (Datenbank)|*.kwd|"), list);
}

TEST(FileFilter, ANameGetsItsExtensionUnlessItEndsInIt) {
  EXPECT_EQ(dialogs::completedName("bild", ".bmp"), "bild.bmp");
  EXPECT_EQ(dialogs::completedName("bild.bmp", ".bmp"), "bild.bmp");
  EXPECT_EQ(dialogs::completedName("bild.BMP", ".bmp"), "bild.BMP");
  EXPECT_EQ(dialogs::completedName("bild.Bmp", ".bmp"), "bild.Bmp.bmp");
  EXPECT_EQ(dialogs::completedName("bild.bmp", ".wmf"), "bild.bmp.wmf");
  EXPECT_EQ(dialogs::completedName("a", ".wmf"), "a.wmf");
  EXPECT_EQ(dialogs::completedName("a", ""), "a");
}

TEST(FileFilter, PairsBecomeEntries) {
  using Entries = std::vector<dialogs::FilterEntry>;
  EXPECT_EQ(dialogs::filterEntries("Bilder|*.bmp;*.wmf|Alle"),
            (Entries{{"Bilder", {"*.bmp", "*.wmf"}}, {"Alle", {"*"}}}));
  EXPECT_EQ(dialogs::filterEntries(""), Entries{});
}

}  // namespace
