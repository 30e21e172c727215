#pragma once

#include <QProxyStyle>

namespace widgets {

// The system's style, or the one of that name, with some changes. In dark its field lines are
// darker than their ground: fields, check boxes and radio buttons get a line that can be seen, on
// black buttons, choices and lists as well. The arrow of menu bars and toolbars that are too narrow
// is fetched when it is drawn: the style decodes it for every bar, seen or not, and the first
// decoded picture makes Qt load all its picture plug-ins. And Tab goes to the chosen option of a
// group, as everywhere, not to the first.
class ProgramStyle final : public QProxyStyle {
 public:
  using QProxyStyle::polish;
  using QProxyStyle::QProxyStyle;
  void polish(QWidget* widget) override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  // Heads of tables stand as far from the line between columns as the cells do, and tabs closer
  // together where the window is too narrow for all of them.
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  // No head is ever bold, and none gets the room for it.
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
};

}  // namespace widgets
