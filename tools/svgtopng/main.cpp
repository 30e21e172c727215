// Turns the SVG pictures of the resources folder into PNG at several widths, and into an icon file
// for Windows: svgtopng png OUT_DIR WIDTH,WIDTH,... FILE.svg...  |  svgtopng ico OUT.ico FILE.svg
#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

QImage rendered(QSvgRenderer& svg, int width) {
  const QSizeF shape = svg.viewBoxF().size();
  QImage image(width, qRound(width * shape.height() / shape.width()),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  svg.render(&painter);
  return image;
}

bool writePngs(const QString& folder, const QStringList& widths, const QStringList& files) {
  for (const QString& file : files) {
    QSvgRenderer svg(file);
    if (!svg.isValid()) return false;
    for (const QString& width : widths) {
      const QString target =
          folder + u'/' + QFileInfo(file).baseName() + u'-' + width + QStringLiteral(".png");
      if (!rendered(svg, width.toInt()).save(target, "PNG")) return false;
    }
  }
  return true;
}

// An icon file is a list of sizes and offsets, then the pictures, here as PNG.
bool writeIco(const QString& target, const QString& file) {
  constexpr int kSizes[] = {16, 20, 24, 32, 40, 48, 64, 128, 256};
  constexpr quint32 kHeaderSize = 6;
  constexpr quint32 kEntrySize = 16;
  QSvgRenderer svg(file);
  QFile out(target);
  if (!svg.isValid() || !out.open(QIODevice::WriteOnly)) return false;
  QDataStream stream(&out);
  stream.setByteOrder(QDataStream::LittleEndian);
  stream << quint16(0) << quint16(1) << quint16(std::size(kSizes));
  QByteArray pictures;
  const auto start = quint32(kHeaderSize + kEntrySize * std::size(kSizes));
  for (const int size : kSizes) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    rendered(svg, size).save(&buffer, "PNG");
    const auto edge = quint8(size == 256 ? 0 : size);
    stream << edge << edge << quint8(0) << quint8(0) << quint16(1) << quint16(32)
           << quint32(png.size()) << quint32(start + quint32(pictures.size()));
    pictures += png;
  }
  out.write(pictures);
  return out.flush();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QStringList arguments = QGuiApplication::arguments().mid(1);
  bool done = false;
  if (arguments.value(0) == u"png" && arguments.size() > 3)
    done = writePngs(arguments[1], arguments[2].split(u','), arguments.mid(3));
  else if (arguments.value(0) == u"ico" && arguments.size() == 3)
    done = writeIco(arguments[1], arguments[2]);
  if (!done) QTextStream(stderr) << "svgtopng: cannot do " << arguments.join(u' ') << '\n';
  return done ? 0 : 1;
}
