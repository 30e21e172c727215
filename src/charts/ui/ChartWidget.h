#pragma once

#include <QWidget>
#include <optional>

#include "charts/ChartLayout.h"
#include "charts/ui/ScenePainter.h"

namespace charts {

// Shows a chart: laid out for its size, in the colours of the palette, a value under the pointer or
// chosen by the arrow keys told in words. Dragging turns a chart with depth.
class ChartWidget : public QWidget {
  Q_OBJECT
 public:
  explicit ChartWidget(QWidget* parent = nullptr);

  void setModel(ChartModel model);
  const ChartModel& model() const { return model_; }
  void setOptions(const ChartOptions& options);
  const ChartOptions& options() const { return options_; }

  // The chart on light ground for a sheet of that size, for pictures and paper; no text is smaller
  // than that many points.
  Scene sceneFor(Size size, double leastSize = 0) const;
  // As large as the widget.
  Scene picture() const;
  const Scene& shownScene() const { return scene_; }

  QSize sizeHint() const override { return {820, 560}; }
  QSize minimumSizeHint() const override { return {360, 260}; }

 Q_SIGNALS:
  void resized();
  // The user has turned the chart.
  void viewDragged(const charts::View3D& view);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Place {
    int series = 0;
    int point = 0;
    bool operator==(const Place&) const = default;
  };
  struct Drag {
    QPoint from;
    View3D view;
  };

  void relayout();
  void describeForReaders();
  void choose(std::optional<Place> place, bool byKeyboard);
  void showValue(const Mark& mark);

  ChartModel model_;
  ChartOptions options_;
  FontMeasure measure_;
  Scene scene_;
  std::optional<Place> chosen_;
  std::optional<Drag> drag_;
};

// "Linien" to "Area addiert", by ChartType.
QString chartTypeName(ChartType type);

// Light or dark, as the palette is.
Theme themeOf(const QPalette& palette);

}  // namespace charts
