#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStandardItemModel>
#include <QTabBar>
#include <QToolButton>
#include <map>

#include "dialogs/LookMenu.h"
#include "support/ui/Contrast.h"
#include "widgets/FieldMark.h"
#include "widgets/Pictures.h"
#include "widgets/ProgramStyle.h"
#include "widgets/RoomyCells.h"
#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;
using widgets::Look;
using widgets::Tone;

namespace {

class LookTest : public testing::Test {
 protected:
  ~LookTest() override {
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(QPalette());
  }
};

TEST_F(LookTest, EveryTextIsReadableInLightAndDark) {
  for (const Look look : {Look::Light, Look::Dark}) {
    widgets::showAs(look);
    const QPalette palette = QApplication::palette();
    EXPECT_EQ(widgets::isDark(palette), look == Look::Dark);
    for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
      for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                              QPalette::PlaceholderText, QPalette::Link})
        EXPECT_GE(contrast(palette.color(text), palette.color(ground)), 4.5) << text << ground;
      for (const Tone tone : {Tone::Quiet, Tone::Doubt, Tone::Error, Tone::Good, Tone::Link})
        EXPECT_GE(contrast(widgets::toneOf(tone, palette), palette.color(ground)), 4.5)
            << int(tone) << ' ' << int(ground);
      EXPECT_GE(contrast(widgets::toneOf(Tone::Accent, palette), palette.color(ground)), 3.0);
    }
    EXPECT_GE(
        contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
        4.5);
    EXPECT_GE(contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)),
              4.5);
  }
}

TEST_F(LookTest, TheSignInAFieldIsReadableAfterTheThemeChanged) {
  QLineEdit field(u"31.945,00"_s);
  field.resize(200, 30);
  widgets::showAs(Look::Light);
  field.show();
  widgets::markField(&field, Tone::Doubt, u"sehr viel"_s);
  for (const Look look : {Look::Dark, Look::Light}) {
    widgets::showAs(look);
    QApplication::processEvents();
    const QImage picture = field.grab(QRect(5, 5, 18, 20)).toImage();
    double best = 0;
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < picture.height(); ++y)
        best = std::max(best, contrast(picture.pixelColor(x, y),
                                       QApplication::palette().color(QPalette::Base)));
    EXPECT_GE(best, 4.5);
  }
}

TEST_F(LookTest, AThemeOfStrongEdgesIsToldFromLightAndDark) {
  for (const Look look : {Look::Light, Look::Dark}) {
    widgets::showAs(look);
    EXPECT_FALSE(widgets::isHighContrast(QApplication::palette()));
  }
  QPalette strong(Qt::black, Qt::black);
  strong.setColor(QPalette::WindowText, Qt::white);
  EXPECT_FALSE(widgets::isHighContrast(strong)) << "black alone is a dark theme";
  strong.setColor(QPalette::Highlight, Qt::yellow);
  EXPECT_TRUE(widgets::isHighContrast(strong));
  strong.setColor(QPalette::WindowText, QColor(200, 200, 200));
  EXPECT_FALSE(widgets::isHighContrast(strong));
}

TEST_F(LookTest, IconsAreAsClearOnADarkGround) {
  for (const QString& name : {u"Neu"_s, u"Öffnen"_s, u"Speichern"_s, u"Löschen"_s, u"Drucken"_s,
                              u"Nachtstrom"_s, u"Hochrechnung"_s, u"Hilfe"_s, u"Ende"_s}) {
    const QIcon icon = widgets::icon(name);
    for (const Look look : {Look::Light, Look::Dark}) {
      widgets::showAs(look);
      const QImage picture = icon.pixmap(48).toImage();
      std::map<QRgb, int> strokes;
      for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
          if (picture.pixelColor(x, y).alpha() == 255) ++strokes[picture.pixelColor(x, y).rgb()];
      const auto most = std::max_element(
          strokes.begin(), strokes.end(),
          [](const auto& one, const auto& other) { return one.second < other.second; });
      ASSERT_NE(most, strokes.end()) << name.toStdString();
      EXPECT_GE(contrast(QColor(most->first), QApplication::palette().color(QPalette::Window)),
                look == Look::Dark ? 4.5 : 2.0)
          << name.toStdString() << int(look);
    }
  }
}

// A field or a check box whose line is as dark as its ground cannot be found.
TEST_F(LookTest, FieldsAndCheckBoxesHaveALineThatCanBeSeenInDark) {
  widgets::showAs(Look::Dark);
  QCheckBox box;
  QRadioButton option;
  QLineEdit field;
  for (QWidget* widget : std::initializer_list<QWidget*>{&box, &option, &field}) {
    widget->resize(widget->sizeHint());
    const QImage picture = widget->grab().toImage();
    double best = 0;
    for (int x = 0; x < picture.width(); ++x)
      best = std::max(best, contrast(picture.pixelColor(x, picture.height() / 2),
                                     QApplication::palette().color(QPalette::Window)));
    EXPECT_GE(best, 3.0) << widget->metaObject()->className();
  }
}

// What stands out by its shade in dark has nothing but its line on black.
TEST_F(LookTest, ButtonsChoicesAndListsHaveALineOnBlack) {
  QApplication::setStyle(new widgets::ProgramStyle(u"Fusion"_s));
  QApplication::setPalette(
      QPalette(Qt::white, Qt::black, Qt::white, Qt::black, Qt::white, Qt::white, Qt::black));
  QPushButton button;
  QToolButton segment;
  QComboBox choice;
  QListWidget list;
  QSlider slider(Qt::Horizontal);
  QScrollBar bar(Qt::Horizontal);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{&button, &segment, &choice, &list, &slider, &bar}) {
    widget->resize(80, 40);
    const QImage picture = widget->grab().toImage();
    double best = 0;
    const int first = widget == &bar ? 14 : 0;  // behind its arrow
    for (int x = first; x < first + 4; ++x)
      best = std::max(best, contrast(picture.pixelColor(x, picture.height() / 2), Qt::black));
    EXPECT_GE(best, 3.0) << widget->metaObject()->className();
  }
}

// Where one and a half pixels of the screen are one of the window's.
TEST_F(LookTest, AListHasItsLineOnEverySideAt144Dpi) {
  QApplication::setStyle(new widgets::ProgramStyle(u"Fusion"_s));
  widgets::showAs(Look::Light);
  QWidget window;
  window.resize(200, 100);
  QListWidget list(&window);
  for (const QRect place : {QRect(15, 13, 101, 61), QRect(16, 14, 100, 60)}) {
    list.setGeometry(place);
    QImage picture(300, 150, QImage::Format_RGB32);
    picture.setDevicePixelRatio(1.5);
    window.render(&picture);
    const auto isDrawn = [&](double x, double y) {
      constexpr int kLine = 200;  // window and list are lighter
      bool drawn = false;
      for (int dx = -1; dx <= 1; ++dx)
        for (int dy = -1; dy <= 1; ++dy)
          drawn |= qGray(picture.pixel(int(x * 1.5) + dx, int(y * 1.5) + dy)) < kLine;
      return drawn;
    };
    const QPointF middle = QRectF(place).center();
    EXPECT_TRUE(isDrawn(place.left(), middle.y())) << place.left();
    EXPECT_TRUE(isDrawn(place.right() + 0.5, middle.y())) << place.left();
    EXPECT_TRUE(isDrawn(middle.x(), place.top())) << place.left();
    EXPECT_TRUE(isDrawn(middle.x(), place.bottom() + 0.5)) << place.left();
  }
}

TEST_F(LookTest, CellsBeginWhereTheirHeadsDo) {
  const widgets::ProgramStyle style(u"Fusion"_s);
  QStandardItemModel model(1, 1);
  model.setItem(0, new QStandardItem(u"2.993"_s));
  const widgets::RoomyCells cells;
  const QStyledItemDelegate plain;
  QStyleOptionViewItem option;
  option.fontMetrics = QFontMetrics(QApplication::font());
  const QModelIndex index = model.index(0, 0);
  const int added = cells.sizeHint(option, index).width() - plain.sizeHint(option, index).width();
  const int own = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, nullptr) + 1;
  EXPECT_EQ(added / 2 + own, style.pixelMetric(QStyle::PM_HeaderMargin, nullptr, nullptr));
}

TEST_F(LookTest, TabsOfADocumentCloseUpBeforeTheyScroll) {
  QApplication::setStyle(new widgets::ProgramStyle(u"Fusion"_s));
  QTabBar tabs;
  tabs.setDocumentMode(true);
  tabs.setExpanding(false);
  const QPixmap mark(10, 10);
  int texts = 0;
  for (const auto& name : {u"Zählerstände und Preise"_s, u"Übersicht"_s, u"Anmerkungen"_s}) {
    tabs.addTab(QIcon(mark), name);
    texts += tabs.fontMetrics().horizontalAdvance(name);
  }
  const auto widthOfFirst = [&](int width) {
    tabs.resize(width, 30);
    tabs.show();
    QCoreApplication::processEvents();
    return tabs.tabRect(0).width();
  };
  const int wide = widthOfFirst(2 * texts);
  const int icons = 3 * (tabs.iconSize().width() + 4);
  const int narrow = widthOfFirst(texts + icons + 3 * 8);
  EXPECT_LE(narrow + 12, wide);
  EXPECT_GE(tabs.width(), tabs.tabRect(2).right());
  for (const auto* arrow : tabs.findChildren<QToolButton*>()) EXPECT_FALSE(arrow->isVisible());
  EXPECT_EQ(widthOfFirst(2 * texts), wide);
  // The texts are whole all the same.
  widthOfFirst(texts / 2);
  EXPECT_GT(tabs.tabRect(0).width(), tabs.fontMetrics().horizontalAdvance(tabs.tabText(0)));
}

TEST_F(LookTest, ATextKeepsItsToneInWhateverThemeComes) {
  QLabel label(u"fehlt noch"_s);
  label.show();
  widgets::setTone(&label, Tone::Doubt);
  for (const Look look : {Look::Dark, Look::Light}) {
    widgets::showAs(look);
    QApplication::processEvents();
    EXPECT_EQ(label.palette().color(label.foregroundRole()),
              widgets::toneOf(Tone::Doubt, QApplication::palette()));
  }
  widgets::setTone(&label, std::nullopt);
  widgets::showAs(Look::Dark);
  QApplication::processEvents();
  EXPECT_EQ(label.palette().color(label.foregroundRole()),
            QApplication::palette().color(QPalette::WindowText));
}

TEST_F(LookTest, IsChosenInTheMenuAndRememberedForTheNextStart) {
  const QPalette before = QApplication::palette();
  dialogs::LookMenu menu(nullptr);
  auto choose = [&menu](const char* name) {
    auto* action = menu.findChild<QAction*>(QString::fromLatin1(name));
    ASSERT_NE(action, nullptr);
    action->trigger();
    Q_EMIT menu.aboutToShow();
    EXPECT_TRUE(action->isChecked());
  };
  Q_EMIT menu.aboutToShow();
  EXPECT_TRUE(menu.actions().front()->isChecked());

  choose("mnuAnsichtDunkel");
  EXPECT_TRUE(widgets::isDark(QApplication::palette()));
  widgets::showAs(Look::System);
  EXPECT_EQ(QApplication::palette().color(QPalette::Base), before.color(QPalette::Base));
  dialogs::showRememberedLook();
  EXPECT_TRUE(widgets::isDark(QApplication::palette()));

  choose("mnuAnsichtHell");
  EXPECT_FALSE(widgets::isDark(QApplication::palette()));
  choose("mnuAnsichtSystem");
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
}

}  // namespace
