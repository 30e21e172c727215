#include "yearbook/ui/Notice.h"

namespace yearbook {

Notice::Notice(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("lblHinweis"));
  setAccessibleName(tr("Hinweis"));
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setAutoFillBackground(true);
  setContentsMargins(10, 4, 10, 4);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  hide();
}

void Notice::say(const QString& text) {
  setText(text);
  setVisible(!text.isEmpty());
}

}  // namespace yearbook
