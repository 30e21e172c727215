#include "widgets/ProgramStyle.h"

#include <QPointer>

#include "widgets/LateIcon.h"

namespace widgets {

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (which != SP_ToolBarHorizontalExtensionButton && which != SP_ToolBarVerticalExtensionButton)
    return QProxyStyle::standardIcon(which, option, widget);
  return QIcon(new LateIcon([which, style = QPointer<QStyle>(baseStyle())](const QSize&) {
    return style ? style->standardIcon(which) : QIcon();
  }));
}

}  // namespace widgets
