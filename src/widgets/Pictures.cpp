#include "widgets/Pictures.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QTranslator>
#include <cmath>
#include <initializer_list>

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

}  // namespace

QIcon icon(const QString& name) {
  loadResources();
  QIcon result;
  for (const int size : {16, 24, 32, 36, 48, 64, 72, 128, 256}) {
    const QString path = picturePath(asFileName(name), size);
    if (QFile::exists(path)) result.addFile(path, QSize(size, size));
  }
  return result;
}

QPixmap helpPicture(const QString& name, qreal scale) {
  loadResources();
  constexpr int kWidth = 720;
  for (const int width : {720, 1080, 1440, 2160}) {
    if (width < std::floor(kWidth * scale) && width != 2160) continue;
    QPixmap picture(picturePath(name, width));
    picture.setDevicePixelRatio(qreal(width) / kWidth);
    return picture;
  }
  return {};
}

void dressApplication(QApplication& application) {
  loadResources();
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  auto* german = new QTranslator(&application);
  if (german->load(u":/kalvira/qtbase_de.qm"_s)) QApplication::installTranslator(german);
  QApplication::setApplicationName(u"Kalvira"_s);
  QApplication::setWindowIcon(icon(u"kalvira"_s));
}

}  // namespace widgets
