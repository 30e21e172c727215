#include "widgets/ProgramStyle.h"

#include <QButtonGroup>
#include <QPainter>
#include <QPointer>
#include <QRadioButton>
#include <QStyleOption>

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
  if (hasLine && isDark(option->palette)) drawLine(*option, painter, round);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
  constexpr int kHeaderMargin = 6;
  return metric == PM_HeaderMargin ? kHeaderMargin
                                   : QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace widgets
