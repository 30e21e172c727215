// From the start of the process to the first painted window, and the most memory it takes until
// then: the start window against a bare one, a QMainWindow with one line of text. Each run is a
// process of its own that ends there, without closing its window, which would remember its place;
// they take turns, so that a busy machine slows both; medians are compared.
// Where there is no display, Xvfb serves as one if it is installed; an argument sets the runs (41).

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "Measure.h"
#include "app/ui/Program.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char* kBare = "--bare";
constexpr const char* kKalvira = "--kalvira";

// In kilobytes; 0 where the system does not tell.
long mostMemory() {
  QFile status(u"/proc/self/status"_s);
  if (!status.open(QIODevice::ReadOnly)) return 0;
  const QByteArray text = status.readAll();
  return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').value(0).toLong();
}

// Says the memory and ends the process when a whole window of it has been painted: before whatever
// comes next.
class FirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->isWidgetType())
      QMetaObject::invokeMethod(qApp, end, Qt::QueuedConnection);
    return false;
  }

 private:
  static void end() {
    std::printf("%ld\n", mostMemory());
    std::fflush(stdout);
    std::_Exit(0);
  }
};

int runChild(int argc, char** argv) {
  QApplication application(argc, argv);
  FirstPaint firstPaint;
  application.installEventFilter(&firstPaint);
  if (std::strcmp(argv[1], kBare) == 0) {
    QMainWindow window;
    window.setCentralWidget(new QLabel(u"Kalvira"_s));
    window.resize(660, 460);
    window.show();
    return QApplication::exec();
  }
  app::CommandLine line;
  line.dataFolder = argv[2];
  app::Program program(application, line);
  program.start();
  return QApplication::exec();
}

// One run of the program.
class Run {
 public:
  // Until its window is painted: its memory in megabytes, 0 where the system does not tell.
  std::optional<double> untilPainted(const char* mode, const QString& folder) {
    process_.emplace();
    process_->start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(mode), folder});
    if (process_->waitForReadyRead(20000)) return process_->readLine().toDouble() / 1024;
    std::fprintf(stderr, "%s: no window was painted within 20 seconds: %s\n", mode,
                 process_->readAllStandardError().constData());
    return std::nullopt;
  }
  // What the system then clears away, such as the watch on a folder, is not part of the start.
  void waitForEnd() { process_->waitForFinished(); }

 private:
  std::optional<QProcess> process_;
};

// The display that is there, a virtual one, or none: then Qt paints into memory.
QByteArray findDisplay([[maybe_unused]] QProcess& server) {
  if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) return qgetenv("QT_QPA_PLATFORM");
#ifdef __linux__
  if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
    return "the display";
  server.start(u"Xvfb"_s,
               {u"-noreset"_s, u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1366x768x24"_s});
  if (server.waitForStarted() && server.waitForReadyRead(10000)) {
    qputenv("DISPLAY", ":" + server.readLine().trimmed());
    return "xcb on Xvfb";
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return "offscreen (Xvfb is not installed)";
#else
  return "the display";
#endif
}

int compare(const char* program, int runs) {
  // Without the empty year the start window begins with a message.
  if (!bench::beside(program, "Vorlverbr8.kwx")) return 1;
  QProcess server;
  const QByteArray platform = findDisplay(server);
  const QTemporaryDir folder;
  // The first ones fetch the libraries from the disk and make the year.
  Run run;
  const auto bareMemory = run.untilPainted(kBare, folder.path());
  run.waitForEnd();
  const auto memory = run.untilPainted(kKalvira, folder.path());
  run.waitForEnd();
  if (!bareMemory || !memory) return 1;
  std::printf("%s\n", platform.constData());
  const auto start = [&](const char* mode) {
    return [&run, &folder, mode] { return run.untilPainted(mode, folder.path()).has_value(); };
  };
  const auto times = bench::compare({{"bare window", start(kBare), [&] { run.waitForEnd(); }},
                                     {"start window", start(kKalvira), [&] { run.waitForEnd(); }}},
                                    runs);
  server.terminate();
  server.waitForFinished();
  if (!times) return 1;
  bench::sayRatio("start to a bare window", times->at(1), times->at(0), 1.15);
  if (*bareMemory > 0) bench::sayRatio("memory to a bare window", {*memory}, {*bareMemory}, 1.15);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3) return runChild(argc, argv);
  const QCoreApplication application(argc, argv);
  return compare(argv[0], argc > 1 ? std::max(1, std::atoi(argv[1])) : 41);
}
