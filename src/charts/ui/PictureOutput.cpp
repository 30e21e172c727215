#include "charts/ui/PictureOutput.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>

#include "charts/Metafile.h"
#include "charts/ui/NativeClipboard.h"

using namespace Qt::Literals::StringLiterals;

namespace charts {
namespace {

constexpr double kScreenDpi = 96;
constexpr double kPrintedBitmapDpi = 300;

QByteArray toByteArray(const base::Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QByteArray encoded(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes;
}

QByteArray bitmapBytes(const QImage& image) {
  return encoded(image.convertToFormat(QImage::Format_RGB888), "BMP");
}

// The names that office programs use besides the media types.
void addMetafile(QMimeData& data, const QByteArray& bytes, bool enhanced) {
  const QStringList names =
      enhanced ? QStringList{u"image/x-emf"_s, u"image/emf"_s,
                             u"application/x-openoffice-emf;windows_formatname=\"Image EMF\""_s}
               : QStringList{u"image/x-wmf"_s, u"image/wmf"_s,
                             u"application/x-openoffice-wmf;windows_formatname=\"Image WMF\""_s};
  for (const QString& name : names) data.setData(name, bytes);
}

}  // namespace

QByteArray pictureBytes(const Scene& scene, PictureFormat format, double scale) {
  switch (format) {
    case PictureFormat::Bitmap:
      return bitmapBytes(sceneImage(scene, scale));
    case PictureFormat::Metafile:
      return toByteArray(toWmf(scene));
    case PictureFormat::EnhancedMetafile:
      return toByteArray(toEmf(scene, FontMeasure()));
  }
  return {};
}

QByteArray pngBytes(const Scene& scene, double scale) {
  return encoded(sceneImage(scene, scale), "PNG");
}

void copyPicture(const Scene& scene, PictureFormat format, double scale) {
  const QImage image = sceneImage(scene, scale);
  const QByteArray metafile =
      format == PictureFormat::Bitmap ? QByteArray() : pictureBytes(scene, format, scale);
  const bool enhanced = format == PictureFormat::EnhancedMetafile;
  if (!metafile.isEmpty()) {
    const QByteArray bitmap = bitmapBytes(image);
    const NativePicture picture{{metafile.constData(), static_cast<std::size_t>(metafile.size())},
                                enhanced,
                                {bitmap.constData(), static_cast<std::size_t>(bitmap.size())},
                                scene.width,
                                scene.height};
    if (putOnNativeClipboard(picture)) return;
  }
  auto* data = new QMimeData;
  data->setImageData(image);
  if (!metafile.isEmpty()) addMetafile(*data, metafile, enhanced);
  QGuiApplication::clipboard()->setMimeData(data);
}

bool printChart(const ChartWidget& chart, QPrinter& printer, PrintFit fit, PictureFormat format) {
  // Without a printer there is a file to be named, and nobody has named one.
  if (printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty())
    return false;
  printer.setFullPage(false);
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QRectF page = printer.pageRect(QPrinter::Inch);
  const PrintPlacement placement =
      placeOnPage(fit, {page.width(), page.height()},
                  {chart.width() / kScreenDpi, chart.height() / kScreenDpi});
  const double enlarged = placement.enlarged();
  const Scene scene =
      chart.sceneFor({placement.layout.width * kScreenDpi, placement.layout.height * kScreenDpi},
                     placement.leastText());
  painter.scale(printer.logicalDpiX() / kScreenDpi * enlarged,
                printer.logicalDpiY() / kScreenDpi * enlarged);
  if (format == PictureFormat::EnhancedMetafile)
    paintScene(painter, scene);
  else
    painter.drawImage(QRectF(0, 0, scene.width, scene.height),
                      sceneImage(scene, enlarged * kPrintedBitmapDpi / kScreenDpi));
  return painter.end();
}

}  // namespace charts
