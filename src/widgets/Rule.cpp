#include "widgets/Rule.h"

#include <QFrame>
#include <QPainter>

#include "widgets/Tones.h"

namespace widgets {
namespace {

class Rule final : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr float kLightShare = 0.16F, kDarkShare = 0.22F;
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(isDark(palette()) ? kDarkShare : kLightShare);
    QPainter(this).fillRect(0, height() / 2, width(), 1, line);
  }
};

}  // namespace

QWidget* makeRule(QWidget* parent) {
  auto* rule = new Rule(parent);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Plain);
  return rule;
}

}  // namespace widgets
