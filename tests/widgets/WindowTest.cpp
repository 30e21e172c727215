#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include "base/GermanDate.h"
#include "dialogs/Window.h"
#include "support/MemoryFileSystem.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"
#include "widgets/NumberField.h"
#include "widgets/UserSettings.h"
#include "widgets/control.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class frmProbe final : public dialogs::Window {
 public:
  explicit frmProbe(const dialogs::Services& services, const QString& name = u"frmProbe"_s)
      : Window(name, u"Probe"_s, services, nullptr) {
    makeCloseButton(cmdClose);
    auto* column = new QVBoxLayout(this);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{cmdOther, last, cmdStore, chkBox, first, cmdClose})
      column->addWidget(widget);
    setTabOrder({first, chkBox, last, cmdStore, cmdOther, cmdClose});
    last->setEnterMovesOn(false);
    connect(cmdStore, &QPushButton::clicked, this, [this] { pressed << u"store"_s; });
    connect(cmdOther, &QPushButton::clicked, this, [this] { pressed << u"other"_s; });
  }
  void reject() override {
    pressed << u"reject"_s;
    Window::reject();
  }
  void enter(QWidget* widget) {
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
  }

  widgets::NumberField* const first = widgets::control<widgets::NumberField>(this, "first");
  widgets::NumberField* const last = widgets::control<widgets::NumberField>(this, "last");
  QCheckBox* const chkBox = widgets::control<QCheckBox>(this, "chkBox");
  QPushButton* const cmdOther = widgets::control<QPushButton>(this, "cmdOther");
  QPushButton* const cmdStore = widgets::control<QPushButton>(this, "cmdStore");
  QPushButton* const cmdClose = widgets::control<QPushButton>(this, "cmdClose");
  QStringList pressed;
};

class WindowBase : public testing::Test {
 protected:
  // No test remembers where the window of another one stood.
  WindowBase() { widgets::userSettings().clear(); }

  void show() {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  support::MemoryFileSystem files_;
  base::PathState paths_;
  base::FixedClock clock_{std::chrono::year(2026) / 1 / 1};
  FakePrompts prompts_;
  FakeShell shell_;
  FakeNavigator navigator_;
  dialogs::Services services_{paths_, files_, clock_, prompts_, shell_, navigator_};
  frmProbe window{services_};
};

TEST_F(WindowBase, EnterGoesOnAndPressesNoButtonBySurprise) {
  show();
  EXPECT_EQ(window.objectName(), u"frmProbe");
  EXPECT_EQ(window.windowTitle(), u"Probe");
  window.enter(window.first);
  EXPECT_EQ(window.focusWidget(), window.chkBox);
  window.enter(window.chkBox);
  EXPECT_EQ(window.focusWidget(), window.last);
  EXPECT_FALSE(window.chkBox->isChecked());
  window.enter(window.last);
  EXPECT_EQ(window.focusWidget(), window.last);
  EXPECT_TRUE(window.pressed.isEmpty()) << window.pressed.join(u' ').toStdString();
  EXPECT_TRUE(window.isVisible());
}

TEST_F(WindowBase, EnterPressesTheButtonWithTheFocusElseTheMainOne) {
  window.cmdStore->setDefault(true);
  show();
  window.enter(window.last);
  window.enter(window.cmdOther);
  window.enter(window.first);  // its own way to the next control
  EXPECT_THAT(window.pressed, testing::ElementsAre(u"store"_s, u"other"_s));
  EXPECT_EQ(window.focusWidget(), window.chkBox);
  window.enter(window.chkBox);
  EXPECT_EQ(window.pressed.last(), u"store");
}

TEST_F(WindowBase, EscapeTheCloseButtonAndTheFrameCloseAlike) {
  EXPECT_EQ(window.cmdClose->text(), u"Fenster schließen");
  for (const auto& close : std::initializer_list<std::function<void()>>{
           [this] { QTest::keyClick(window.first, Qt::Key_Escape); },
           [this] { window.enter(window.cmdClose); }, [this] { window.close(); }}) {
    show();
    window.pressed.clear();
    close();
    EXPECT_EQ(window.pressed, QStringList{u"reject"_s});
    EXPECT_FALSE(window.isVisible());
  }
}

TEST_F(WindowBase, F1ShowsTheWindowsPageFromWhereverTheFocusIs) {
  show();
  for (QWidget* widget :
       std::initializer_list<QWidget*>{window.last, window.chkBox, window.cmdStore})
    QTest::keyClick(widget, Qt::Key_F1);
  EXPECT_EQ(navigator_.calls, QStringList(3, u"showManual "_s + window.objectName()));
}

TEST_F(WindowBase, OpensWhereAndAsLargeAsItWasClosed) {
  show();
  const QRect place(40, 60, 333, 444);
  window.setGeometry(place);
  QTest::keyClick(&window, Qt::Key_Escape);  // hidden, as by its buttons, not closed
  frmProbe next(services_);
  next.show();
  EXPECT_EQ(next.geometry(), place);
  next.close();
  frmProbe other(services_, u"frmAndere"_s);
  other.show();
  EXPECT_NE(other.size(), place.size()) << "each window has a place of its own";
}

TEST_F(WindowBase, OpensOnTheScreenThatIsThereAndNoLarger) {
  show();
  const QRect screen = window.screen()->availableGeometry();
  for (const QRect& place :
       {QRect(5000, 4000, 400, 500), QRect(-3000, 20, 400, 500), QRect(10, 10, 4000, 3000)}) {
    window.setGeometry(place);
    window.close();
    frmProbe next(services_);
    next.show();
    EXPECT_TRUE(screen.contains(next.geometry()))
        << next.x() << ' ' << next.y() << ' ' << next.width() << ' ' << next.height();
    next.hide();
    window.show();
  }
}

TEST_F(WindowBase, MaximisedComesBackSoWithTheSizeItHadBefore) {
  show();
  window.resize(333, 444);
  window.showMaximized();
  window.close();
  frmProbe next(services_);
  next.show();
  EXPECT_TRUE(next.isMaximized());
  next.showNormal();
  EXPECT_EQ(next.size(), QSize(333, 444));
}

// The largest screen that a small one leaves: content of any size is reached by scrolling, and the
// window is no larger than the screen.
TEST_F(WindowBase, ContentThatIsTooTallScrollsAndTheRestStaysAsItWas) {
  window.first->setMinimumSize(700, 2000);
  show();
  EXPECT_LE(window.minimumSizeHint().height(), 440);
  EXPECT_LE(window.height(), window.screen()->availableSize().height());
  EXPECT_NE(window.findChild<QScrollArea*>(), nullptr);
  window.enter(window.first);
  EXPECT_EQ(window.focusWidget(), window.chkBox);
  QTest::keyClick(window.chkBox, Qt::Key_F1);
  QTest::keyClick(window.chkBox, Qt::Key_Escape);
  EXPECT_EQ(window.pressed, QStringList{u"reject"_s});
  EXPECT_EQ(navigator_.calls, QStringList{u"showManual "_s + window.objectName()});
}

// On a screen that has room for it there is nothing to scroll.
TEST_F(WindowBase, OpensWithAllOfATallContentInSight) {
  auto* rows = qobject_cast<QVBoxLayout*>(window.layout());
  auto* text = new QLabel(QString(u"Ein Satz, der umbrochen wird. "_s).repeated(20));
  text->setWordWrap(true);
  rows->addWidget(text);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(window.cmdStore);
  rows->addLayout(buttons);
  window.first->setMinimumSize(300, 460);
  show();
  const auto* area = window.findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_FALSE(area->verticalScrollBar()->isVisible());
  EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
  EXPECT_FALSE(area->isAncestorOf(window.cmdStore));
}

TEST_F(WindowBase, ALineAboveTheButtonsStaysInSightWithThem) {
  auto* foot = new QVBoxLayout;
  auto* note = new QLabel(u"noch nicht übernommen"_s);
  foot->addWidget(note);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(window.cmdStore);
  foot->addLayout(buttons);
  static_cast<QVBoxLayout*>(window.layout())->addLayout(foot);
  window.first->setMinimumSize(300, 460);
  show();
  const auto* area = window.findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_TRUE(area->isAncestorOf(window.first));
  EXPECT_FALSE(area->isAncestorOf(window.cmdStore));
  EXPECT_FALSE(area->isAncestorOf(note));
}

}  // namespace
