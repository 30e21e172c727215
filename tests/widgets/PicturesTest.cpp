#include "widgets/Pictures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QToolBar>

#include "widgets/ProgramStyle.h"

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

// What buttons and menus draw: of the wanted size in pixels of the screen, from the next larger
// file where there is none of that size, grey when disabled.
TEST(Pictures, IconsAreDrawnInEverySizeAndGreyWhenDisabled) {
  const QIcon icon = widgets::icon(u"loeschen"_s);
  EXPECT_EQ(icon.pixmap(QSize(40, 40), 1.0).size(), QSize(40, 40));
  EXPECT_EQ(icon.pixmap(QSize(24, 24), 2.0).size(), QSize(48, 48));
  const auto painted = [&](QIcon::Mode mode) {
    QImage image(72, 72, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, QRect(0, 0, 36, 36), Qt::AlignCenter, mode);
    return image;
  };
  EXPECT_EQ(
      painted(QIcon::Normal),
      QImage(u":/kalvira/loeschen-72.png"_s).convertToFormat(QImage::Format_ARGB32_Premultiplied));
  EXPECT_NE(painted(QIcon::Disabled), painted(QIcon::Normal));
  EXPECT_TRUE(widgets::icon(u"gibtesnicht"_s).isNull());
}

// A window hands all of them to the window manager, which has no use for the large ones.
TEST(Pictures, ProgramIconOffersTheSizesOfWindowsAndDrawsLargerOnes) {
  const QIcon icon = widgets::icon(u"kalvira"_s);
  EXPECT_EQ(icon.availableSizes(),
            QList<QSize>({{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}}));
  EXPECT_EQ(icon.pixmap(QSize(256, 256), 1.0).size(), QSize(256, 256));
}

TEST(Pictures, BarsThatAreTooNarrowHaveTheStylesArrow) {
  const widgets::ProgramStyle style;
  for (const auto which :
       {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton})
    EXPECT_EQ(style.standardIcon(which, nullptr, nullptr).pixmap(16).toImage(),
              style.baseStyle()->standardIcon(which).pixmap(16).toImage());
  EXPECT_FALSE(style.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).isNull());
}

#ifdef __linux__

int picturePlugIns() {
  QFile maps(u"/proc/self/maps"_s);
  return maps.open(QIODevice::ReadOnly) ? int(maps.readAll().count("/imageformats/")) : -1;
}

// In a process of its own, as other tests load what boxes need. Five libraries and as many files
// more than doubled the start.
TEST(PicturesDeathTest, WindowWithBarsAndIconsLoadsNoPicturePlugIn) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto show = [] {
    widgets::dressApplication(*qApp);
    QMainWindow window;
    window.menuBar()->addMenu(u"Datei"_s)->addAction(widgets::icon(u"neu"_s), u"Neu"_s);
    window.addToolBar(u"Leiste"_s)->addAction(widgets::icon(u"ende"_s), u"Ende"_s);
    window.setCentralWidget(new QPushButton(widgets::icon(u"jahr"_s), u"Jahr"_s));
    window.show();
    QCoreApplication::processEvents();
    window.grab();
    std::_Exit(picturePlugIns());
  };
  EXPECT_EXIT(show(), testing::ExitedWithCode(0), "");
}

#endif

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
