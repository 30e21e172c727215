#include "widgets/SpokenLabel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QLabel>

#include "widgets/ActionOption.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QString spoken(QLabel& label) {
  return QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name);
}

TEST(SpokenLabel, TheNameComesBeforeTheFigureThatIsShownNow) {
  widgets::speakLabels();
  QLabel figure(u"291"_s);
  figure.setAccessibleName(u"Verbrauch Januar"_s);
  EXPECT_EQ(spoken(figure), u"Verbrauch Januar: 291"_s);
  figure.setText(u"<b>255</b>"_s);
  EXPECT_EQ(spoken(figure), u"Verbrauch Januar: 255"_s);
  figure.clear();
  EXPECT_EQ(spoken(figure), u"Verbrauch Januar"_s);
  figure.setAccessibleName(u"Datenordner: /daten/"_s);
  figure.setText(u"/daten/"_s);
  EXPECT_EQ(spoken(figure), u"Datenordner: /daten/"_s) << "not twice";
}

TEST(SpokenLabel, OthersAreSpokenAsBefore) {
  widgets::speakLabels();
  QLabel plain(u"Endzählerstand"_s);
  EXPECT_EQ(spoken(plain), u"Endzählerstand"_s);
  QLabel picture;
  picture.setPixmap(QPixmap(4, 4));
  picture.setAccessibleName(u"Ablauf"_s);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&picture)->role(), QAccessible::Graphic);
}

TEST(SpokenAction, IsAButtonThatAReaderCanPress) {
  widgets::ActionOption option;
  option.setText(u"&Neue Datei ANLEGEN"_s);
  int pressed = 0;
  QObject::connect(&option, &QAbstractButton::clicked, [&pressed] { ++pressed; });
  auto* spoken = QAccessible::queryAccessibleInterface(&option);
  EXPECT_EQ(spoken->role(), QAccessible::PushButton);
  EXPECT_EQ(spoken->text(QAccessible::Name), u"Neue Datei ANLEGEN"_s);
  spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(pressed, 0) << "the reader has its answer first";
  QCoreApplication::processEvents();
  EXPECT_EQ(pressed, 1);
}

}  // namespace
