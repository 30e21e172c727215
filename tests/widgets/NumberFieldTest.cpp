#include "widgets/NumberField.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;
using widgets::NumberField;

namespace {

class NumberFieldTest : public testing::Test {
 protected:
  NumberFieldTest() {
    layout.addWidget(&field);
    layout.addWidget(&other);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    field.setFocus(Qt::TabFocusReason);
  }
  void type(const QString& text) { QTest::keyClicks(&field, text); }
  void paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keySequence(&field, QKeySequence::Paste);
  }
  void leave() { other.setFocus(Qt::TabFocusReason); }

  QWidget window;
  QVBoxLayout layout{&window};
  NumberField field{&window};
  QLineEdit other{&window};
  QSignalSpy changes{&field, &NumberField::valueChanged};
  QSignalSpy entries{&field, &NumberField::entered};
};

TEST_F(NumberFieldTest, KeepsWhatIsTypedUntilItIsLeft) {
  field.setDecimals(2, 4);
  type(u"1234,5"_s);
  EXPECT_EQ(field.text(), u"1234,5"_s);
  EXPECT_DOUBLE_EQ(field.valueOrZero(), 1234.5);
  leave();
  EXPECT_EQ(field.text(), u"1.234,50"_s);
  EXPECT_EQ(entries.count(), 1);
}

TEST_F(NumberFieldTest, OnlyTheUserSignalsAChange) {
  field.setValue(12.0);
  field.setValue(std::nullopt);
  leave();
  EXPECT_EQ(changes.count(), 0);
  EXPECT_EQ(entries.count(), 0);
  field.setFocus(Qt::TabFocusReason);
  type(u"7"_s);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(NumberFieldTest, MoreDecimalsThanShownSurviveLeavingAndUndo) {
  field.setDecimals(2, 2);
  leave();
  field.setValue(29.60512);
  field.setFocus(Qt::TabFocusReason);
  type(u"3"_s);
  QTest::keySequence(&field, QKeySequence::Undo);
  EXPECT_EQ(field.text(), u"29,61"_s);
  EXPECT_EQ(field.value(), 29.60512);
  leave();
  EXPECT_EQ(field.value(), 29.60512);
  EXPECT_EQ(entries.count(), 0);
}

TEST_F(NumberFieldTest, EmptyIsNoValueAndCountsAsZero) {
  field.setValue(5.0);
  field.selectAll();
  QTest::keyClick(&field, Qt::Key_Delete);
  EXPECT_EQ(field.value(), std::nullopt);
  EXPECT_EQ(field.valueOrZero(), 0.0);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(NumberFieldTest, WhatIsNoNumberNeverReplacesTheLastNumber) {
  type(u"12,,"_s);
  EXPECT_EQ(field.value(), 12.0);
  leave();
  EXPECT_EQ(field.text(), u"12"_s);
}

TEST_F(NumberFieldTest, SettingTheValueThatIsBeingTypedLeavesTheTextAlone) {
  type(u"12,"_s);
  field.setValue(12.0);
  EXPECT_EQ(field.text(), u"12,"_s);
  field.setValue(13.0);
  EXPECT_EQ(field.text(), u"13"_s);
  leave();
  EXPECT_EQ(entries.count(), 0) << "13 came from the program";
}

TEST_F(NumberFieldTest, FilterSeesTypedAndPastedTextAlike) {
  int boxes = 0;
  field.setFilter([&](const QString& input) {
    QString kept = input;
    if (kept.remove(u',').size() != input.size()) ++boxes;
    return kept;
  });
  type(u"1234,5"_s);
  EXPECT_EQ(field.text(), u"12345"_s);
  EXPECT_EQ(boxes, 1);
  field.clear();
  paste(u"67,8,9"_s);
  EXPECT_EQ(field.text(), u"6789"_s);
  EXPECT_EQ(boxes, 2);
}

TEST_F(NumberFieldTest, PastedAmountLosesItsCurrencySign) {
  paste(u"1.234,50 €\n"_s);
  EXPECT_EQ(field.text(), u"1.234,50"_s);
  EXPECT_EQ(field.value(), 1234.5);
}

TEST_F(NumberFieldTest, MenuAndDropAreFilteredAsWell) {
  QApplication::clipboard()->setText(u"12 kWh"_s);
  QTimer::singleShot(0, [] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
      if (action->text().contains(u"Paste"_s) || action->text().contains(u"Ein"_s))
        action->trigger();
    menu->close();
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), field.mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&field, &event);
  EXPECT_EQ(field.text(), u"12"_s);

  QMimeData data;
  data.setText(u"3 m³"_s);
  QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&field, &enter);
  QDropEvent drop(QPointF(field.width() - 3, 3), Qt::CopyAction, &data, Qt::LeftButton,
                  Qt::NoModifier);
  QApplication::sendEvent(&field, &drop);
  EXPECT_EQ(field.text().size(), 3) << field.text().toStdString();
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(NumberFieldTest, ANumberChangedInPlaceLosesItsPointsFirst) {
  field.setDecimals(0, 2);
  field.setValue(44309.0);
  field.end(false);
  type(u"5"_s);
  EXPECT_EQ(field.text(), u"443095"_s);
  EXPECT_EQ(field.value(), 443095.0);

  field.setValue(1234567.5);
  field.setSelection(1, 3);  // ".23" of 1.234.567,5
  QTest::keyClick(&field, Qt::Key_Delete);
  EXPECT_EQ(field.value(), 14567.5);
  QTest::keySequence(&field, QKeySequence::Undo);
  EXPECT_EQ(field.value(), 1234567.5);

  field.setValue(1234.0);
  field.setCursorPosition(2);
  paste(u"9"_s);
  EXPECT_EQ(field.text(), u"19234"_s);
  leave();
  EXPECT_EQ(field.text(), u"19.234"_s);
}

TEST_F(NumberFieldTest, RefusedKeyLeavesUndoWhole) {
  type(u"12x3"_s);
  QTest::keySequence(&field, QKeySequence::Undo);
  EXPECT_EQ(field.text(), u""_s);
}

TEST_F(NumberFieldTest, EnterGoesToTheNextField) {
  type(u"5"_s);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_TRUE(other.hasFocus());
  EXPECT_EQ(entries.count(), 1);
}

TEST_F(NumberFieldTest, EnteringSelectsAllByKeyAndByMouse) {
  field.setValue(123.0);
  leave();
  QTest::mouseClick(&field, Qt::LeftButton);
  EXPECT_EQ(field.selectedText(), u"123"_s);
  QTest::mouseClick(&field, Qt::LeftButton);
  EXPECT_FALSE(field.hasSelectedText()) << "a second click places the cursor";
}

TEST_F(NumberFieldTest, WheelAndReadOnlyChangeNothing) {
  field.setValue(5.0);
  QWheelEvent wheel(QPointF(2, 2), field.mapToGlobal(QPointF(2, 2)), {}, {0, 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&field, &wheel);
  field.setReadOnly(true);
  type(u"9x"_s);
  paste(u"9"_s);
  EXPECT_EQ(field.text(), u"5"_s);
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(NumberFieldTest, ClosingTheWindowReportsTheEntry) {
  type(u"8"_s);
  window.close();
  EXPECT_EQ(entries.count(), 1);
}

}  // namespace
