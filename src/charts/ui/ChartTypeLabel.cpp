#include "charts/ui/ChartTypeLabel.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <array>

#include "charts/ui/ChartWidget.h"

namespace charts {
namespace {

constexpr int kGlyphWidth = 44;
constexpr int kGlyphHeight = 28;
constexpr int kPadding = 5;

class ChartTypeAccessible final : public QAccessibleWidget {
 public:
  explicit ChartTypeAccessible(ChartTypeLabel* label)
      : QAccessibleWidget(label, QAccessible::RadioButton), label_(label) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = label_->isChecked();
    return state;
  }
  QStringList actionNames() const override { return {toggleAction()}; }
  void doAction(const QString& name) override {
    if (name == toggleAction()) Q_EMIT label_->clicked();
  }

 private:
  ChartTypeLabel* label_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* label = qobject_cast<ChartTypeLabel*>(object);
  return label ? new ChartTypeAccessible(label) : nullptr;
}

// Heights of the small drawings, from the base up.
constexpr std::array<double, 4> kFront = {0.45, 0.75, 0.55, 0.9};
constexpr std::array<double, 4> kLow = {0.25, 0.4, 0.3, 0.5};

QPolygonF profile(const QRectF& box, const std::array<double, 4>& heights) {
  QPolygonF line;
  for (std::size_t i = 0; i < heights.size(); ++i)
    line.append(QPointF(box.left() + box.width() * static_cast<double>(i) / 3,
                        box.bottom() - box.height() * heights[i]));
  return line;
}

void fillBelow(QPainter& painter, const QRectF& box, QPolygonF line, const QColor& color) {
  line.append(box.bottomRight());
  line.append(box.bottomLeft());
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(line);
}

void drawBars(QPainter& painter, const QRectF& box, bool stacked, const QColor& a,
              const QColor& b) {
  const double width = box.width() / 5.2;
  for (std::size_t i = 0; i < kFront.size(); ++i) {
    const double left = box.left() + static_cast<double>(i) * (box.width() - width) / 3;
    const auto bar = [&](double from, double to, const QColor& color) {
      painter.fillRect(
          QRectF(left, box.bottom() - box.height() * to, width, box.height() * (to - from)), color);
    };
    bar(0, kFront.at(i), a);
    if (stacked) bar(0, kLow.at(i), b);
  }
}

void drawGlyph(QPainter& painter, const QRectF& box, ChartType type, const Theme& theme) {
  const QColor a = toQColor(theme.color(Hue::Water)), b = toQColor(theme.color(Hue::Electricity));
  switch (type) {
    case ChartType::Line:
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(a, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.drawPolyline(profile(box, kFront));
      painter.setPen(QPen(b, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.drawPolyline(profile(box, kLow));
      break;
    case ChartType::Bar:
    case ChartType::StackedBar:
      drawBars(painter, box, type == ChartType::StackedBar, a, b);
      break;
    case ChartType::Area:
      fillBelow(painter, box, profile(box, kFront), a);
      break;
    case ChartType::StackedArea:
      fillBelow(painter, box, profile(box, kFront), a);
      fillBelow(painter, box, profile(box, kLow), b);
      break;
    case ChartType::Pie: {
      const QRectF round(box.center().x() - box.height() / 2, box.top(), box.height(),
                         box.height());
      painter.setPen(Qt::NoPen);
      painter.setBrush(a);
      painter.drawEllipse(round);
      painter.setBrush(b);
      painter.drawPie(round, 0, 110 * 16);
      break;
    }
  }
}

}  // namespace

ChartTypeLabel::ChartTypeLabel(QWidget* parent) : QLabel(parent) {
  static const bool installed = [] {
    QAccessible::installFactory(makeAccessible);
    return true;
  }();
  Q_UNUSED(installed)
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
}

void ChartTypeLabel::setType(ChartType type) {
  type_ = type;
  setText(chartTypeName(type));
  setAccessibleName(text());
  setToolTip(text());
}

void ChartTypeLabel::setChecked(bool checked) {
  // One stop of the tab order for the whole group: the chosen one.
  setFocusPolicy(checked ? Qt::StrongFocus : Qt::ClickFocus);
  if (checked == checked_) return;
  checked_ = checked;
  update();
  Q_EMIT toggled(checked);
}

QSize ChartTypeLabel::sizeHint() const {
  const int text = fontMetrics().horizontalAdvance(this->text());
  return {std::max(kGlyphWidth, text) + 2 * kPadding,
          kGlyphHeight + fontMetrics().height() + 3 * kPadding};
}

void ChartTypeLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
  const QColor accent = palette().color(QPalette::Highlight);
  if (checked_ || underMouse()) {
    QColor ground = accent;
    ground.setAlphaF(checked_ ? 0.20F : 0.08F);
    painter.setBrush(ground);
    painter.setPen(checked_ ? QPen(accent, 1.5) : QPen(Qt::NoPen));
    painter.drawRoundedRect(frame, 4, 4);
  }
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
    painter.drawRoundedRect(frame.adjusted(2, 2, -2, -2), 3, 3);
  }
  drawGlyph(painter, QRectF((width() - kGlyphWidth) / 2.0, kPadding + 1, kGlyphWidth, kGlyphHeight),
            type_, themeOf(palette()));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRectF(0, kPadding + kGlyphHeight + 3, width(), fontMetrics().height()),
                   Qt::AlignHCenter | Qt::AlignTop, text());
}

void ChartTypeLabel::mousePressEvent(QMouseEvent* event) {
  QLabel::mousePressEvent(event);
  setFocus(Qt::MouseFocusReason);
  Q_EMIT clicked();
}

void ChartTypeLabel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
      Q_EMIT clicked();
      break;
    case Qt::Key_Right:
    case Qt::Key_Down:
      Q_EMIT neighbourWanted(1);
      break;
    case Qt::Key_Left:
    case Qt::Key_Up:
      Q_EMIT neighbourWanted(-1);
      break;
    default:
      QLabel::keyPressEvent(event);
  }
}

void ChartTypeLabel::enterEvent(QEnterEvent* event) {
  QLabel::enterEvent(event);
  update();
}
void ChartTypeLabel::leaveEvent(QEvent* event) {
  QLabel::leaveEvent(event);
  update();
}
void ChartTypeLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}
void ChartTypeLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

}  // namespace charts
