#pragma once

#include <QByteArray>
#include <QPrinter>

#include "charts/Picture.h"
#include "charts/Scene.h"
#include "charts/ui/ChartWidget.h"

namespace charts {

// The scene as a file of that format; a bitmap gets scale pixels per pixel of the scene.
QByteArray pictureBytes(const Scene& scene, PictureFormat format, double scale);
QByteArray pngBytes(const Scene& scene, double scale);

// Onto the clipboard: the bitmap always, so that every program finds something, and the metafile in
// the forms by which the system's programs ask for it.
void copyPicture(const Scene& scene, PictureFormat format, double scale);

// One page. A bitmap goes to the printer as pixels, an enhanced metafile as lines and areas. False
// when the printer takes no page.
bool printChart(const ChartWidget& chart, QPrinter& printer, PrintFit fit, PictureFormat format);

}  // namespace charts
