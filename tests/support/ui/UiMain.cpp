#include <gmock/gmock.h>

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <QSettings>
#include <QStyleFactory>
#include <QTemporaryDir>

// Window tests run offscreen with one style, font and locale, so that they see the same on every
// machine.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  // A test answers the boxes of Qt; those of the system would wait for somebody.
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication app(argc, argv);
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  // What the program remembers of its user is not that of who runs the tests.
  const QTemporaryDir settings;
  for (const auto format : {QSettings::IniFormat, QSettings::NativeFormat})
    QSettings::setPath(format, QSettings::UserScope, settings.path());
  return RUN_ALL_TESTS();
}
