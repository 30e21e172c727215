#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <set>

#include "StartFixture.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "app/ui/frmRuecksichern.h"
#include "app/ui/frmSichern.h"
#include "app/ui/frmUeber.h"
#include "dialogs/HelpWindows.h"
#include "manual/frmHandbuch.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool isControl(const QWidget* widget) {
  return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget) ||
         qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QLineEdit*>(widget);
}

// Parts that Qt makes for itself, such as a combo box's list.
bool isQtsOwn(const QWidget* widget) {
  return widget->objectName().startsWith(u"qt_"_s) || qobject_cast<const QHeaderView*>(widget) ||
         qobject_cast<QComboBox*>(widget->parent()) ||
         widget->window()->metaObject()->className() == QByteArray("QComboBoxPrivateContainer");
}

class WindowManners : public StartFixture, public testing::WithParamInterface<double> {
 protected:
  WindowManners() {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * GetParam());
    QApplication::setFont(font);
  }
  ~WindowManners() override { QApplication::setFont(usual_); }

  static void check(QWidget& window) {
    window.show();
    QApplication::processEvents();
    EXPECT_STREQ(window.metaObject()->className(), qPrintable(window.objectName()));
    std::set<QString> names;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      if (isQtsOwn(widget)) continue;
      const QString name = widget->objectName();
      EXPECT_TRUE(name.isEmpty() || names.insert(name).second) << name.toStdString();
      if (isControl(widget)) {
        EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className();
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << name.toStdString();
      }
      checkText(widget);
    }
    window.close();
  }

 private:
  static void checkText(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const bool shows = label || qobject_cast<const QAbstractButton*>(widget);
    if (!shows || !widget->isVisible()) return;
    const int height = label && label->wordWrap() ? label->heightForWidth(label->width())
                                                  : widget->sizeHint().height();
    EXPECT_GE(widget->height(), height) << widget->objectName().toStdString();
    if (label && label->wordWrap()) return;
    EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
  }
  const QFont usual_ = QApplication::font();
};

TEST_P(WindowManners, EveryControlIsNamedAndEveryTextWhole) {
  frmVerbrStart start(services, facts, opener);
  start.setAttribute(Qt::WA_DeleteOnClose, false);
  check(start);
  frmNeuVerbrauch newYear(services);
  check(newYear);
  frmSichern backup(services);
  check(backup);
  frmRuecksichern restore(services);
  check(restore);
  frmHilfe help;
  help.setAttribute(Qt::WA_DeleteOnClose, false);
  check(help);
  frmHilfeZaehlerWechs meterChange;
  meterChange.setAttribute(Qt::WA_DeleteOnClose, false);
  check(meterChange);
  frmHandbuch book;
  book.setAttribute(Qt::WA_DeleteOnClose, false);
  check(book);
  frmUeber about(services, nullptr);
  check(about);
}

INSTANTIATE_TEST_SUITE_P(Fonts, WindowManners, testing::Values(1.0, 1.6), [](const auto& test) {
  return test.param > 1 ? std::string("Large") : std::string("Usual");
});

}  // namespace
