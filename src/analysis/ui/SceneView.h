#pragma once

#include <QWidget>
#include <functional>

#include "analysis/Sheet.h"
#include "charts/ui/ScenePainter.h"

namespace analysis {

// Shows a chart that is drawn for its size, in the colours of the palette.
class SceneView final : public QWidget {
 public:
  using Draw = std::function<charts::Scene(const Frame&)>;

  SceneView(const QString& name, QWidget* parent);
  // The description is read to those who do not see the chart.
  void show(Draw draw, const QString& description);
  // For paper: light, whatever the palette is.
  charts::Scene sceneFor(charts::Size size) const;

  QSize sizeHint() const override { return {320, 240}; }
  QSize minimumSizeHint() const override { return {200, 130}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Draw draw_;
  charts::FontMeasure measure_;
};

}  // namespace analysis
