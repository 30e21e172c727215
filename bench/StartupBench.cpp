// From the start of the process to the first painted window: the start window against a bare Qt
// Widgets window. Each run is a process of its own. Needs a display, or QT_QPA_PLATFORM=offscreen.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstring>

#include "app/ui/Program.h"

namespace {

// Ends the program when a window of it has been painted and the event loop has come round.
class FirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && object->isWidgetType())
      QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    return false;
  }
};

int runChild(int argc, char** argv, bool bare) {
  QApplication application(argc, argv);
  FirstPaint firstPaint;
  application.installEventFilter(&firstPaint);
  if (bare) {
    QLabel window(QStringLiteral("Kalvira"));
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

void startUp(benchmark::State& state, const QString& mode) {
  QTemporaryDir folder;
  for (auto _ : state) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {mode, folder.path()});
    if (!child.waitForFinished() || child.exitCode() != 0) return state.SkipWithError("no window");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--bare") == 0) return runChild(argc, argv, true);
  if (argc == 3 && std::strcmp(argv[1], "--kalvira") == 0) return runChild(argc, argv, false);
  QCoreApplication application(argc, argv);
  for (const char* mode : {"--bare", "--kalvira"})
    benchmark::RegisterBenchmark(mode, startUp, QString::fromLatin1(mode))
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(5)
        ->ReportAggregatesOnly();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
