#include "widgets/Pictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

// A toolbar key without its icon would leave an empty button.
TEST(Pictures, EveryToolbarKeyHasAnIconForEveryScale) {
  for (const QString& key : {u"Neu"_s, u"Öffnen"_s, u"Speichern"_s, u"Löschen"_s, u"Drucken"_s,
                             u"Nachtstrom"_s, u"Hochrechnung"_s, u"Hilfe"_s, u"Ende"_s}) {
    const QIcon icon = widgets::icon(key);
    for (const int size : {24, 36, 48, 72})
      EXPECT_EQ(icon.pixmap(QSize(size, size), 1.0).width(), size) << key.toStdString();
  }
}

TEST(Pictures, BoxesSpeakGerman) {
  widgets::dressApplication(*qApp);
  QMessageBox box;
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel |
                         QMessageBox::Retry | QMessageBox::Ignore | QMessageBox::Abort);
  const auto text = [&](QMessageBox::StandardButton button) {
    return box.button(button)->text().remove(u'&');
  };
  EXPECT_EQ(text(QMessageBox::Yes), u"Ja"_s);
  EXPECT_EQ(text(QMessageBox::No), u"Nein"_s);
  EXPECT_EQ(text(QMessageBox::Cancel), u"Abbrechen"_s);
  EXPECT_EQ(text(QMessageBox::Retry), u"Wiederholen"_s);
  EXPECT_EQ(text(QMessageBox::Ignore), u"Ignorieren"_s);
}

}  // namespace
