#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <set>

#include "OpenYear.h"
#include "readings/ui/frmEingabeVerbrauch.h"
#include "readings/ui/frmEingabeVerbrauchAbW.h"
#include "readings/ui/frmEingabeVerbrauchNS.h"
#include "readings/ui/frmEingabeVerbrauchS.h"
#include "readings/ui/frmEingabeVerbrauchW.h"
#include "readings/ui/frmGrdGebMo.h"
#include "readings/ui/frmGrdGebMoAW.h"
#include "readings/ui/frmGrdGebMoG.h"
#include "readings/ui/frmGrdGebMoW.h"
#include "readings/ui/frmPreisJeKubikAbW.h"
#include "readings/ui/frmPreisJeKubikG.h"
#include "readings/ui/frmPreisJeKubikW.h"
#include "readings/ui/frmPreisJeKws.h"
#include "readings/ui/frmPreisJeKwsN.h"

using namespace Qt::Literals::StringLiterals;

namespace {

template <class Window>
class EntryWindows : public OpenYear {};

using All = testing::Types<frmEingabeVerbrauchS, frmEingabeVerbrauchNS, frmEingabeVerbrauch,
                           frmEingabeVerbrauchW, frmEingabeVerbrauchAbW, frmPreisJeKws,
                           frmPreisJeKwsN, frmPreisJeKubikG, frmPreisJeKubikW, frmPreisJeKubikAbW,
                           frmGrdGebMo, frmGrdGebMoW, frmGrdGebMoG, frmGrdGebMoAW>;
TYPED_TEST_SUITE(EntryWindows, All);

bool isControl(const QWidget* widget) {
  return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget);
}

QString captionOf(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  return button ? button->text() : QString();
}

QString mnemonic(const QString& text) {
  const auto at = text.indexOf(u'&');
  return at < 0 ? QString() : text.mid(at + 1, 1).toLower();
}

}  // namespace

TYPED_TEST(EntryWindows, CanBeFoundAndSpoken) {
  this->openSample();
  const auto window = this->template show<TypeParam>();
  EXPECT_EQ(window->objectName().toStdString(), window->metaObject()->className());
  EXPECT_TRUE(window->isModal());
  std::set<QString> names, mnemonics;
  for (const QWidget* widget : window->template findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    const bool named = !name.isEmpty() && !name.startsWith(u"qt_");
    EXPECT_TRUE(!named || names.insert(name).second) << name.toStdString();
    if (!isControl(widget)) continue;
    const QString caption = captionOf(widget);
    EXPECT_TRUE(named);
    EXPECT_FALSE(widget->accessibleName().isEmpty() && caption.isEmpty()) << name.toStdString();
    const QString key = mnemonic(caption);
    EXPECT_TRUE(key.isEmpty() || mnemonics.insert(key).second) << name.toStdString();
  }
}

TYPED_TEST(EntryWindows, ShowsEveryTextWhole) {
  this->openSample();
  const auto window = this->template show<TypeParam>();
  for (const QWidget* widget : window->template findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (!widget->isVisible() || (label && label->wordWrap())) continue;
    if (label || qobject_cast<const QAbstractButton*>(widget)) {
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
          << widget->objectName().toStdString();
    }
  }
  EXPECT_LE(window->width(), 1366);
  EXPECT_LE(window->height(), 700);
}

TYPED_TEST(EntryWindows, OpeningAndClosingChangesNothing) {
  this->openSample();
  const auto before = this->disk.contents();
  {
    const auto window = this->template show<TypeParam>();
    auto* close = window->template findChild<QAbstractButton*>(u"Command2"_s);
    ASSERT_TRUE(close);
    EXPECT_EQ(close->toolTip(), u"Fenster schließen");
    click(close);
    EXPECT_FALSE(window->isVisible());
  }
  EXPECT_EQ(this->disk.contents(), before);
}

TYPED_TEST(EntryWindows, TheFrameClosesToo) {
  this->openEmpty();
  const auto window = this->template show<TypeParam>();
  EXPECT_TRUE(window->close());
}
