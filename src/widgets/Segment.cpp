#include "widgets/Segment.h"

#include <QAbstractButton>

namespace widgets {

void showChosen(QAbstractButton* button) {
  const auto show = [button](bool chosen) {
    QFont font = button->font();
    font.setBold(chosen);
    button->setFont(font);
  };
  QObject::connect(button, &QAbstractButton::toggled, button, show);
  show(button->isChecked());
}

}  // namespace widgets
