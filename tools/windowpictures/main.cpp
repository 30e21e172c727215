// Pictures of every window of the program, with the sample household in it:
//   windowpictures FOLDER [--only frmTarife,frmHilfe] [--scale 1.5] [--screen 1366x768]
//                         [--colors light|dark|contrast] [--list]
// A screen of that size in pixels is made up, and 144 dpi are a scale of 1.5; with QT_QPA_PLATFORM
// the windows come up on a real one.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <cstdio>

#include "AllWindows.h"
#include "widgets/Pictures.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Wanted {
  QString folder, colors;
  QStringList names;
  double scale = 1;
  QSize screen;
  bool list = false;
};

std::optional<Wanted> wantedBy(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.addPositionalArgument(u"FOLDER"_s, {});
  parser.addOptions({{u"only"_s, {}, u"names"_s},
                     {u"scale"_s, {}, u"factor"_s, u"1"_s},
                     {u"screen"_s, {}, u"WxH"_s, u"1920x1080"_s},
                     {u"colors"_s, {}, u"palette"_s, u"light"_s},
                     {u"list"_s, {}}});
  if (!parser.parse(arguments)) return std::nullopt;
  Wanted wanted;
  wanted.list = parser.isSet(u"list"_s);
  wanted.folder = parser.positionalArguments().value(0);
  wanted.names = parser.value(u"only"_s).split(u',', Qt::SkipEmptyParts);
  wanted.colors = parser.value(u"colors"_s);
  wanted.scale = parser.value(u"scale"_s).toDouble();
  const QStringList size = parser.value(u"screen"_s).split(u'x');
  wanted.screen = {size.value(0).toInt(), size.value(1).toInt()};
  const bool possible =
      wanted.scale > 0 && !wanted.screen.isEmpty() && (wanted.list || !wanted.folder.isEmpty());
  return possible ? std::optional(wanted) : std::nullopt;
}

// Before the application: it looks at these when it starts.
void prepareScreen(const Wanted& wanted, QTemporaryFile& description) {
  qputenv("QT_SCALE_FACTOR", QByteArray::number(wanted.scale));
  qputenv("HOME", pictures::Household::kHome);  // first folder of backups
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !description.open()) return;
  const QJsonObject screen{{u"name"_s, u"screen"_s},
                           {u"x"_s, 0},
                           {u"y"_s, 0},
                           {u"width"_s, wanted.screen.width()},
                           {u"height"_s, wanted.screen.height()},
                           {u"logicalDpi"_s, 96},
                           {u"logicalBaseDpi"_s, 96},
                           {u"dpr"_s, 1}};
  description.write(QJsonDocument(QJsonObject{{u"screens"_s, QJsonArray{screen}}}).toJson());
  description.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + description.fileName().toLocal8Bit());
}

bool savePicture(const pictures::View& view, const QString& folder) {
  pictures::Household household;
  const std::unique_ptr<QWidget> window = view.make(household);
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  window->show();
  window->activateWindow();
  pictures::settle();
  if (view.then) view.then(*window);
  pictures::settle();
  return window->grab().save(folder + u'/' + view.name + u".png"_s, "PNG", 0);
}

int usage() {
  std::fputs(
      "windowpictures FOLDER [--only NAMES] [--scale FACTOR] [--screen WxH]"
      " [--colors light|dark|contrast] [--list]\n",
      stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
  const auto wanted = wantedBy(arguments);
  if (!wanted) return usage();
  QTemporaryFile description;
  prepareScreen(*wanted, description);
  QApplication application(argc, argv);
  widgets::dressApplication(application);
  if (!pictures::showIn(wanted->colors)) return usage();
  QApplication::setCursorFlashTime(0);
  // Nothing that whoever draws the pictures once did to a window.
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  bool done = wanted->list || QDir().mkpath(wanted->folder);
  for (const pictures::View& view : pictures::allViews()) {
    if (wanted->list) std::puts(qPrintable(view.name));
    if (wanted->list || (!wanted->names.isEmpty() && !wanted->names.contains(view.name))) continue;
    done = savePicture(view, wanted->folder) && done;
  }
  return done ? 0 : 1;
}
