#include "charts/ui/ChartWidget.h"

#include <QAccessible>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace charts {
namespace {

constexpr double kDegreesPerPixel = 0.35;

QPolygonF outlineOf(const Mark& mark) {
  QPolygonF polygon;
  for (const Point& point : mark.outline) polygon.append({point.x, point.y});
  return polygon;
}

int bounded(double angle) {
  return std::clamp(static_cast<int>(angle), -View3D::kMaxAngle, View3D::kMaxAngle);
}

}  // namespace

QString chartTypeName(ChartType type) {
  static const std::array names = {u"Linien"_s, u"Balken"_s, u"Balken addiert"_s,
                                   u"Area"_s,   u"Torten"_s, u"Area addiert"_s};
  return names.at(static_cast<std::size_t>(type));
}

Theme themeOf(const QPalette& palette) {
  const Color surface = fromQColor(palette.color(QPalette::Base));
  const Color text = fromQColor(palette.color(QPalette::Text));
  return luminance(text) > luminance(surface) ? Theme::dark(surface, text) : Theme::light();
}

ChartWidget::ChartWidget(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(u"Diagramm"_s);
}

void ChartWidget::setModel(ChartModel model) {
  model_ = std::move(model);
  chosen_.reset();
  relayout();
  describeForReaders();
}

void ChartWidget::setOptions(const ChartOptions& options) {
  const bool newType = options.type != options_.type;
  options_ = options;
  relayout();
  if (newType) describeForReaders();
}

Scene ChartWidget::sceneFor(Size size, double leastSize) const {
  ChartOptions options = options_;
  options.leastSize = std::max(options.leastSize, leastSize);
  return layoutChart(model_, options, Theme::light(), size, measure_);
}

Scene ChartWidget::picture() const {
  return sceneFor({static_cast<double>(width()), static_cast<double>(height())});
}

void ChartWidget::relayout() {
  scene_ = layoutChart(model_, options_, themeOf(palette()),
                       {static_cast<double>(width()), static_cast<double>(height())}, measure_);
  update();
}

void ChartWidget::describeForReaders() {
  const QString name = QString::fromStdString(model_.title);
  setAccessibleName(name.isEmpty() ? u"Diagramm"_s : name);
  setAccessibleDescription(
      QString::fromStdString(describe(model_, chartTypeName(options_.type).toStdString())));
}

bool ChartWidget::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::PaletteChange) relayout();
  return handled;
}

void ChartWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintScene(painter, scene_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  if (chosen_)
    if (const Mark* mark = scene_.findMark(chosen_->series, chosen_->point)) {
      painter.setPen(QPen(palette().color(QPalette::Text), 2));
      painter.drawPolygon(outlineOf(*mark));
    }
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75));
  }
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  relayout();
  Q_EMIT resized();
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && options_.threeD) {
    drag_ = Drag{event->pos(), options_.view};
    setCursor(Qt::ClosedHandCursor);
  }
  QWidget::mousePressEvent(event);
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
  if (drag_) {
    const QPoint moved = event->pos() - drag_->from;
    View3D view = drag_->view;
    view.rotation = bounded(view.rotation + moved.x() * kDegreesPerPixel);
    view.elevation = bounded(view.elevation - moved.y() * kDegreesPerPixel);
    Q_EMIT viewDragged(view);
    return;
  }
  const Mark* mark = scene_.markAt({event->position().x(), event->position().y()});
  if (!mark) {
    choose(std::nullopt, false);
    return;
  }
  choose(Place{mark->series, mark->point}, false);
  QToolTip::showText(event->globalPosition().toPoint(),
                     QString::fromStdString(markText(model_, mark->series, mark->point)), this);
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
  drag_.reset();
  unsetCursor();
  QWidget::mouseReleaseEvent(event);
}

void ChartWidget::leaveEvent(QEvent* event) {
  if (!hasFocus()) choose(std::nullopt, false);
  QWidget::leaveEvent(event);
}

void ChartWidget::focusOutEvent(QFocusEvent* event) {
  choose(std::nullopt, false);
  QWidget::focusOutEvent(event);
}

void ChartWidget::choose(std::optional<Place> place, bool byKeyboard) {
  if (place != chosen_) update();
  chosen_ = place;
  if (!place) {
    QToolTip::hideText();
    describeForReaders();  // the name of a value was read in its place
    return;
  }
  if (!byKeyboard) return;
  const QString text = QString::fromStdString(markText(model_, place->series, place->point));
  setAccessibleName(text);
  QAccessibleEvent changed(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&changed);
  if (const Mark* mark = scene_.findMark(place->series, place->point)) showValue(*mark);
}

void ChartWidget::showValue(const Mark& mark) {
  const QPoint place = outlineOf(mark).boundingRect().center().toPoint();
  QToolTip::showText(mapToGlobal(place),
                     QString::fromStdString(markText(model_, mark.series, mark.point)), this);
}

// Left and right go from month to month, up and down from series to series.
void ChartWidget::keyPressEvent(QKeyEvent* event) {
  const int seriesCount = static_cast<int>(model_.series.size());
  Place place = chosen_.value_or(Place{0, -1});
  switch (event->key()) {
    case Qt::Key_Left:
      place.point = std::max(place.point - 1, 0);
      break;
    case Qt::Key_Right:
      place.point = std::min(place.point + 1, kMonthCount - 1);
      break;
    case Qt::Key_Home:
      place.point = 0;
      break;
    case Qt::Key_End:
      place.point = kMonthCount - 1;
      break;
    case Qt::Key_Up:
    case Qt::Key_Down:
      place.series += event->key() == Qt::Key_Down ? 1 : -1;
      place.point = std::max(place.point, 0);
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  if (seriesCount == 0) return;
  place.series = std::clamp(place.series, 0, seriesCount - 1);
  choose(place, true);
}

}  // namespace charts
