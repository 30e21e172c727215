#pragma once

#include <QProxyStyle>

namespace widgets {

// The system's style, but for the arrow of menu bars and toolbars that are too narrow for their
// entries. The style decodes it for every bar, seen or not, and the first decoded picture makes Qt
// load all its picture plug-ins: here it is fetched when it is drawn.
class ProgramStyle final : public QProxyStyle {
 public:
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override;
};

}  // namespace widgets
