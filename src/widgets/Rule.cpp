#include "widgets/Rule.h"

#include <QFrame>

namespace widgets {

QWidget* makeRule(QWidget* parent) {
  auto* rule = new QFrame(parent);
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Plain);
  rule->setForegroundRole(QPalette::PlaceholderText);
  return rule;
}

}  // namespace widgets
