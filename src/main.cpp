#include <QApplication>
#include <iostream>

#include "app/DataFolder.h"
#include "app/ui/CommandLineRun.h"
#include "app/ui/Console.h"
#include "app/ui/Program.h"

int main(int argc, char** argv) {
  const app::CommandLine line = app::parseCommandLine(app::commandLineArguments(argc, argv));
  if (line.action == app::CommandLine::Action::Windows) {
    QApplication application(argc, argv);
    app::Program program(application, line);
    if (program.handedOver()) return 0;
    program.start();
    return QApplication::exec();
  }

  app::attachConsole();
  std::unique_ptr<QGuiApplication> fonts;
  if (line.action == app::CommandLine::Action::Pdf) {
    // A page needs fonts, not a display; Windows itself is there without one.
#ifndef _WIN32
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    fonts = std::make_unique<QGuiApplication>(argc, argv);
  }
  const auto files = base::makeDiskFileSystem();
  const base::SystemClock clock;
  return app::runCommandLine(
      line, {*files, clock, std::cout, std::cerr, app::readSystemFacts().programFolder});
}
