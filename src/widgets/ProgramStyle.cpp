#include "widgets/ProgramStyle.h"

#include <QButtonGroup>
#include <QPainter>
#include <QPointer>
#include <QRadioButton>
#include <QStyleOption>
#include <QTabBar>
#include <cmath>

#include "widgets/LateIcon.h"
#include "widgets/Tones.h"

namespace widgets {
namespace {

QList<QAbstractButton*> groupOf(const QRadioButton* option) {
  if (option->group() != nullptr) return option->group()->buttons();
  if (!option->autoExclusive() || option->parentWidget() == nullptr) return {};
  QList<QAbstractButton*> group;
  for (auto* sibling :
       option->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly))
    if (sibling->group() == nullptr && sibling->autoExclusive()) group.append(sibling);
  return group;
}

void stopAt(const QRadioButton* chosen) {
  for (QAbstractButton* option : groupOf(chosen)) {
    const bool stops = option == chosen;
    const int policy =
        stops ? option->focusPolicy() | Qt::TabFocus : option->focusPolicy() & ~Qt::TabFocus;
    option->setFocusPolicy(Qt::FocusPolicy(policy));
  }
}

// Where the outlines that the style draws itself cannot be seen.
bool isBlack(const QPalette& palette) {
  constexpr int kBlack = 16;
  return palette.color(QPalette::Window).lightness() < kBlack;
}

// Buttons, choices and lists; the outline of a main button has another colour.
bool isFading(QStyle::PrimitiveElement element, const QStyleOption& option) {
  if (!isBlack(option.palette)) return false;
  if (element == QStyle::PE_PanelButtonTool) return !option.state.testFlag(QStyle::State_AutoRaise);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return element == QStyle::PE_Frame ||
         (element == QStyle::PE_PanelButtonCommand && button &&
          !button->features.testFlag(QStyleOptionButton::DefaultButton));
}

void drawLine(const QStyleOption& option, QPainter* painter, bool round) {
  constexpr QRgb kFieldLine = 0x878787;
  const bool focused = option.state.testFlag(QStyle::State_HasFocus);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(focused ? QPen(toneOf(Tone::Accent, option.palette), 1.4)
                          : QPen(QColor::fromRgb(kFieldLine), 1));
  const QRectF line = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (round)
    painter->drawEllipse(line);
  else
    painter->drawRoundedRect(line, 2, 2);
  painter->restore();
}

// Where a pixel of the window is no whole number of pixels on the screen, the style's line around
// lists falls beside them at most places.
bool isLost(QStyle::PrimitiveElement element, const QPainter& painter) {
  const double scale = painter.deviceTransform().m11();
  return element == QStyle::PE_Frame && scale != std::floor(scale);
}

void drawLostLine(const QStyleOption& option, QPainter* painter) {
  constexpr int kDarker = 140, kLighter = 108;  // as the style's own
  const QColor line = option.palette.color(QPalette::Window).darker(kDarker).lighter(kLighter);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(line);
  painter->drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
  painter->restore();
}

// What stands left and right of a tab's text together: as much as the style wants, or what there
// is.
int roomBesideText(const QTabBar& bar, int wanted) {
  constexpr int kLeast = 2, kBesideIcon = 4;
  int texts = 0;
  for (int i = 0; i < bar.count(); ++i) {
    texts += bar.fontMetrics().size(Qt::TextShowMnemonic, bar.tabText(i)).width();
    if (!bar.tabIcon(i).isNull()) texts += bar.iconSize().width() + kBesideIcon;
  }
  return std::clamp((bar.width() - texts) / std::max(1, bar.count()), kLeast, wanted);
}

}  // namespace

void ProgramStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  auto* option = qobject_cast<QRadioButton*>(widget);
  if (option == nullptr) return;
  if (option->isChecked()) stopAt(option);
  QObject::connect(option, &QRadioButton::toggled, option, [option](bool chosen) {
    if (chosen) stopAt(option);
  });
}

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (which != SP_ToolBarHorizontalExtensionButton && which != SP_ToolBarVerticalExtensionButton)
    return QProxyStyle::standardIcon(which, option, widget);
  return QIcon(new LateIcon([which, style = QPointer<QStyle>(baseStyle())](const QSize&) {
    return style ? style->standardIcon(which) : QIcon();
  }));
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool round = element == PE_IndicatorRadioButton;
  const bool hasLine = round || element == PE_FrameLineEdit || element == PE_IndicatorCheckBox ||
                       isFading(element, *option);
  if (hasLine && isDark(option->palette))
    drawLine(*option, painter, round);
  else if (isLost(element, *painter))
    drawLostLine(*option, painter);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (!isBlack(option->palette) || (control != CC_Slider && control != CC_ScrollBar)) return;
  QStyleOption handle;
  handle.palette = option->palette;
  handle.rect = subControlRect(control, option,
                               control == CC_Slider ? SC_SliderHandle : SC_ScrollBarSlider, widget);
  drawLine(handle, painter, false);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  constexpr int kHeaderMargin = 6;
  if (metric == PM_HeaderMargin) return kHeaderMargin;
  const int wanted = QProxyStyle::pixelMetric(metric, option, widget);
  const auto* bar = qobject_cast<const QTabBar*>(widget);
  // Others than those of a document are as wide as their tabs.
  if (metric != PM_TabBarTabHSpace || !bar || !bar->documentMode()) return wanted;
  return roomBesideText(*bar, wanted);
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& contents, const QWidget* widget) const {
  const auto* head = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (type != CT_HeaderSection || !head || !widget)
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
  QStyleOptionHeader plain(*head);
  plain.fontMetrics = widget->fontMetrics();
  return QProxyStyle::sizeFromContents(type, &plain, contents, widget);
}

}  // namespace widgets
