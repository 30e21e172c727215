#include "widgets/Pictures.h"

#include <QApplication>
#include <QFile>
#include <QImageReader>
#include <QLocale>
#include <QPixmapCache>
#include <QTranslator>
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "widgets/LateIcon.h"
#include "widgets/ProgramStyle.h"
#include "widgets/SpokenLabel.h"
#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

// Outside of the namespace, as the macro asks.
static void loadResources() {
  Q_INIT_RESOURCE(kalvira);
}

namespace widgets {
namespace {

QString asFileName(const QString& name) {
  return name.toLower().replace(u'ö', u"oe"_s).replace(u'ä', u"ae"_s).replace(u'ü', u"ue"_s);
}

QString picturePath(const QString& name, int width) {
  return u":/kalvira/%1-%2.png"_s.arg(name).arg(width);
}

// Told the format and not to look for others: Qt would load every picture plug-in to ask it first.
QPixmap readPng(const QString& path) {
  QImageReader reader(path, "png");
  reader.setAutoDetectImageFormat(false);
  return QPixmap::fromImageReader(&reader);
}

// Each colour in its own hue; what is white stays so.
QPixmap lightened(const QPixmap& picture) {
  constexpr float kMore = 0.16F;
  QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      float hue, saturation, lightness, alpha;
      image.pixelColor(x, y).getHslF(&hue, &saturation, &lightness, &alpha);
      if (alpha > 0)
        image.setPixelColor(
            x, y, QColor::fromHslF(hue, saturation, std::min(1.0F, lightness + kMore), alpha));
    }
  return QPixmap::fromImage(image);
}

// Drawn for a light ground, an icon is too dark for a dark one.
QPixmap keptPng(const QString& path, bool onDark) {
  const QString key = onDark ? path + u"-dunkel"_s : path;
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = onDark ? lightened(readPng(path)) : readPng(path);
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace

QIcon icon(const QString& name) {
  loadResources();
  // Window managers show no larger ones, and a window hands over all that it has.
  constexpr int kLargestForWindows = 64;
  const QString file = asFileName(name);
  QList<int> widths;
  QList<QSize> sizes;
  for (const int width : {16, 24, 32, 36, 48, 64, 72, 128, 256}) {
    if (!QFile::exists(picturePath(file, width))) continue;
    widths.append(width);
    if (width <= kLargestForWindows) sizes.append({width, width});
  }
  if (widths.isEmpty()) return {};
  return QIcon(new LateIcon(
      [file, widths](const QSize& size) {
        const int wanted = std::max(size.width(), size.height());
        const auto fitting = std::lower_bound(widths.begin(), widths.end(), wanted);
        // The program's own icon has its ground with it.
        const bool onDark = file != u"kalvira"_s && isDark(QApplication::palette());
        return QIcon(
            keptPng(picturePath(file, fitting == widths.end() ? widths.back() : *fitting), onDark));
      },
      sizes));
}

QPixmap helpPicture(const QString& name, qreal scale) {
  loadResources();
  constexpr int kWidth = 720;
  for (const int width : {720, 1080, 1440, 2160}) {
    if (width < std::floor(kWidth * scale) && width != 2160) continue;
    QPixmap picture = readPng(picturePath(name, width));
    picture.setDevicePixelRatio(qreal(width) / kWidth);
    return picture;
  }
  return {};
}

void dressApplication(QApplication& application) {
  loadResources();
  QApplication::setStyle(new ProgramStyle);
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* german = new QTranslator(&application);
  if (german->load(u":/kalvira/qtbase_de.qm"_s)) QApplication::installTranslator(german);
  QApplication::setApplicationName(u"Kalvira"_s);
  keepHintsReadable(application);
  speakLabels();
  QApplication::setWindowIcon(icon(u"kalvira"_s));
}

}  // namespace widgets
