#include "readings/ui/HintLabel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>

using namespace Qt::Literals::StringLiterals;
using readings::HintLabel;

namespace {

QString toolTipOver(QLabel& label) {
  QHelpEvent hover(QEvent::ToolTip, {}, {});
  QApplication::sendEvent(&label, &hover);
  return label.toolTip();
}

QImage pictureOf(QLabel& label, int width) {
  label.resize(width, label.sizeHint().height());
  return label.grab().toImage();
}

TEST(HintLabel, WhatDoesNotFitEndsInDotsAndStandsInTheToolTip) {
  constexpr int kNarrow = 90;
  HintLabel label;
  label.setText(u"ergibt 1.234 kWh, dreimal so viel wie im Jahr davor"_s);
  HintLabel shortened;
  shortened.setText(label.fontMetrics().elidedText(label.text(), Qt::ElideRight, kNarrow));
  ASSERT_TRUE(shortened.text().endsWith(u'…'));
  EXPECT_EQ(pictureOf(label, kNarrow), pictureOf(shortened, kNarrow));
  EXPECT_EQ(toolTipOver(label), label.text());
  EXPECT_LE(label.minimumSizeHint().width(), kNarrow) << "the window can be made narrow";
  label.resize(label.sizeHint());
  EXPECT_TRUE(toolTipOver(label).isEmpty()) << "all of it is there";
}

TEST(HintLabel, WantsRoomForWhatItUsuallySays) {
  HintLabel label;
  const QString usual = u"ergibt 1.234 kWh"_s;
  label.setUsualText(usual);
  EXPECT_GE(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(usual));
  label.setText(u"ergibt 5 kWh"_s);
  EXPECT_GE(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(usual));
}

}  // namespace
