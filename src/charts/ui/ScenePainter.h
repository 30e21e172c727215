#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QSize>

#include "charts/Scene.h"
#include "charts/TextMeasure.h"

class QPainter;

namespace charts {

// Room of texts in the font that paintScene() draws with.
class FontMeasure final : public TextMeasure {
 public:
  TextExtent measure(const std::string& text, const Font& font) const override;
};

QFont toQFont(const Font& font);
QColor toQColor(Color color);
Color fromQColor(const QColor& color);

// Draws the scene with its upper left corner at the painter's origin.
void paintScene(QPainter& painter, const Scene& scene);

// The scene as a picture of scale times its size.
QImage sceneImage(const Scene& scene, double scale = 1);

}  // namespace charts
