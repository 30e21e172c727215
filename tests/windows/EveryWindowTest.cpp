#include <gmock/gmock.h>

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabBar>

#include "AllWindows.h"
#include "WindowChecks.h"
#include "widgets/Tones.h"

// What holds for every window of the program, whatever it is for.

using namespace Qt::Literals::StringLiterals;

namespace {

// What is left of 1366 x 768 at 144 dpi, or of 1024 x 600.
constexpr QSize kSmallScreen(880, 440);

testing::AssertionResult fits(QSize size, QSize room) {
  const bool inside = size.width() <= room.width() && size.height() <= room.height();
  return (inside ? testing::AssertionSuccess() : testing::AssertionFailure())
         << size.width() << " x " << size.height();
}

}  // namespace

namespace pictures {
void PrintTo(const View& view, std::ostream* out) {
  *out << view.name.toStdString();
}
}  // namespace pictures

namespace {

class EveryWindow : public testing::TestWithParam<pictures::View> {};

TEST_P(EveryWindow, CanBeReadReachedAndFitsASmallScreen) {
  qputenv("HOME", pictures::Household::kHome);  // first folder of backups
  widgets::showAs(widgets::Look::System);
  pictures::Household household;
  const std::unique_ptr<QWidget> window = GetParam().make(household);
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  window->show();
  pictures::settle();
  if (GetParam().then) GetParam().then(*window);
  pictures::settle();

  EXPECT_TRUE(fits(window->size(), window->screen()->availableSize())) << "opens too large";
  EXPECT_TRUE(fits(window->minimumSizeHint().expandedTo(window->minimumSize()), kSmallScreen))
      << "cannot be made small enough";
  EXPECT_THAT(checks::outOfReach(*window), testing::IsEmpty()) << "as it opens";
  EXPECT_THAT(checks::controlsWithoutName(*window), testing::IsEmpty());
  EXPECT_THAT(checks::doubleMnemonics(*window), testing::IsEmpty());
  for (const QSize size : {window->size(), QSize(1600, 900), kSmallScreen}) {
    window->resize(size);
    pictures::settle();
    EXPECT_THAT(checks::cutTexts(*window), testing::IsEmpty())
        << size.width() << 'x' << size.height();
    EXPECT_THAT(checks::overlaps(*window), testing::IsEmpty())
        << size.width() << 'x' << size.height();
    EXPECT_THAT(checks::crooked(*window), testing::IsEmpty())
        << size.width() << 'x' << size.height();
  }
  EXPECT_THAT(checks::outOfReach(*window), testing::IsEmpty());
  EXPECT_THAT(checks::unpainted(*window), testing::IsEmpty());
  EXPECT_THAT(checks::figuresWithoutName(*window), testing::IsEmpty());
  EXPECT_THAT(checks::wrongMainButtons(*window), testing::IsEmpty());
  EXPECT_THAT(checks::choicesThatDoNotShow(*window), testing::IsEmpty());
  // Chosen while the window is open.
  for (const auto look : {widgets::Look::Dark, widgets::Look::Light}) {
    widgets::showAs(look);
    pictures::settle();
    EXPECT_THAT(checks::faintTexts(*window), testing::IsEmpty());
  }
  widgets::showAs(widgets::Look::System);
}

// A window as it must not be: each check finds its fault, and no other.
TEST(WindowChecks, FindWhatIsWrong) {
  QWidget window;
  window.resize(600, 500);
  int top = 0;
  const auto place = [&](QWidget* widget, const char* name, int width) {
    widget->setObjectName(QLatin1String(name));
    widget->setAccessibleName(QLatin1String(name));
    widget->setGeometry(10, top += 40, width, 30);
  };
  place(new QLabel(u"ein langer Satz"_s, &window), "cut label", 30);
  auto* option = new QRadioButton(u"im &Monat"_s, &window);
  place(option, "cut option", option->fontMetrics().horizontalAdvance(u"im Monat"_s) + 2);
  auto* choice = new QComboBox(&window);
  choice->addItem(u"Spalte 1: Datum"_s);
  place(choice, "cut choice", 40);
  auto* figure = new QLineEdit(u"12.345,00"_s, &window);
  figure->setAlignment(Qt::AlignRight);
  place(figure, "cut figure", 30);
  window.show();
  pictures::settle();
  EXPECT_THAT(checks::cutTexts(window),
              testing::ElementsAre("cut label: ein langer Satz", "cut option: im &Monat",
                                   "cut choice: Spalte 1: Datum", "cut figure: 12.345,00"));
  EXPECT_THAT(checks::overlaps(window), testing::IsEmpty());

  for (int i = 0; i < 2; ++i) {
    auto* frame = new QFrame(&window);
    frame->setGeometry(10, 300 + 20 * i, 200, 50);
    auto* button = new QPushButton(i ? u"&Neu"_s : u"A&nders"_s, frame);
    button->setObjectName(i ? u"Neu"_s : u"Anders"_s);
    button->setGeometry(0, 0, 100, 30);
    button->setDefault(true);
    frame->show();
  }
  auto* nameless = new QLineEdit(&window);
  auto* alone = new QLabel(u"291"_s, &window);
  nameless->setGeometry(10, 400, 100, 30);
  alone->setGeometry(10, 450, 100, 30);
  nameless->show();
  alone->show();
  EXPECT_THAT(checks::overlaps(window), testing::ElementsAre("Anders and Neu"));
  EXPECT_THAT(checks::doubleMnemonics(window), testing::SizeIs(1));
  EXPECT_THAT(checks::wrongMainButtons(window), testing::SizeIs(2));
  EXPECT_THAT(checks::controlsWithoutName(window), testing::ElementsAre("QLineEdit"));
  EXPECT_THAT(checks::figuresWithoutName(window), testing::ElementsAre("QLabel: 291"));
  EXPECT_THAT(checks::faintTexts(window), testing::IsEmpty());
  QPalette faint;
  faint.setColor(QPalette::WindowText, Qt::lightGray);
  alone->setPalette(faint);
  EXPECT_THAT(checks::faintTexts(window), testing::ElementsAre("QLabel: 291"));
}

TEST(WindowChecks, FindWhatIsBadlyPlacedOrNotPainted) {
  QWidget window;
  window.resize(300, 300);
  QLabel first(u"Summe"_s, &window), second(u"12,00"_s, &window);
  first.setGeometry(10, 10, 100, 20);
  second.setGeometry(120, 12, 100, 20);
  second.setObjectName(u"crooked"_s);
  QTabBar tabs(&window);
  tabs.setObjectName(u"tabs"_s);
  for (const auto& name : {u"Zählerstände"_s, u"Übersicht"_s, u"Anmerkungen"_s}) tabs.addTab(name);
  tabs.setGeometry(10, 100, 90, 30);
  QWidget bare(&window);
  bare.setObjectName(u"bare"_s);
  bare.setGeometry(10, 200, 50, 50);
  window.show();
  pictures::settle();
  EXPECT_THAT(checks::crooked(window), testing::ElementsAre("QLabel and crooked"));
  EXPECT_THAT(checks::outOfReach(window), testing::ElementsAre("tabs sideways"));
  EXPECT_THAT(checks::unpainted(window), testing::IsEmpty());
  bare.setAttribute(Qt::WA_OpaquePaintEvent);
  EXPECT_THAT(checks::unpainted(window), testing::ElementsAre("bare"));
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindow, testing::ValuesIn(pictures::allViews()),
                         [](const auto& view) {
                           QString name = view.param.name;
                           return name.remove(u'-').toStdString();
                         });

}  // namespace
