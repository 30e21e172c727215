#include "app/ui/Program.h"

#include <QApplication>
#include <QSettings>

#include "app/DataFolder.h"
#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "app/ui/OpenYearKeeper.h"
#include "app/ui/RunningProgram.h"
#include "app/ui/WindowNavigator.h"
#include "base/GermanDate.h"
#include "base/Paths.h"
#include "dialogs/LookMenu.h"
#include "dialogs/QtPrompts.h"
#include "dialogs/SystemShell.h"
#include "mainwindow/frmVerbrauch.h"
#include "widgets/Pictures.h"

using namespace Qt::Literals::StringLiterals;

namespace app {

struct Program::Parts {
  CommandLine line;
  SystemFacts facts;
  base::PathState paths;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
  base::SystemClock clock;
  dialogs::QtPrompts prompts;
  dialogs::SystemShell shell;
  WindowNavigator navigator;
  OpenYearKeeper keeper;
  dialogs::Services services{paths, *files, clock, prompts, shell, navigator, &keeper};
  RunningProgram running{*files};

  YearWindow openYear(QWidget* parent);
  std::string openingProblem(const base::Error& error) const;
};

namespace {

// Before the current folder changes: a relative name is meant from where the program was called.
std::string absolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(base::toPath(path), error);
  return error ? path : base::fromPath(absolute.lexically_normal());
}

}  // namespace

std::string Program::Parts::openingProblem(const base::Error& error) const {
  const SafetyCopies copies(*files, std::string(base::folderOf(paths.YearDatabasePath)), clock);
  const std::string advice =
      copies.advice(std::string(base::fileName(paths.YearDatabasePath)), error);
  return base::germanMessage(error) + (advice.empty() ? "" : "\n\n") + advice;
}

YearWindow Program::Parts::openYear(QWidget* parent) {
  auto year = yearbook::YearSession::open(*files, paths.YearDatabasePath, paths.DataFolder, clock);
  if (!year) {
    prompts.tell(parent, QString::fromStdString(openingProblem(year.error())), u"Jahr öffnen"_s,
                 dialogs::Icon::Warning);
    return {};
  }
  auto* window = new frmVerbrauch(services, std::move(*year), parent);
  return {window, [window](const QString& text) {
            window->fraHinweis->say(mainwindow::NoticeFrom::SafetyCopy, text);
          }};
}

Program::Program(QApplication& application, const CommandLine& line)
    : parts_(std::make_unique<Parts>()) {
  Parts& parts = *parts_;
  parts.line = line;
  widgets::dressApplication(application);

  parts.facts = readSystemFacts();
  // On a removable drive they are taken along.
  if (parts.facts.portable)
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString(parts.facts.programFolder));
  dialogs::showRememberedLook();
  if (!line.file.empty()) parts.line.file = absolutePath(line.file);
  if (!line.dataFolder.empty())
    parts.facts.chosenDataFolder = base::withSeparator(absolutePath(line.dataFolder));
  parts.keeper.begin(parts.services);
  parts.navigator.begin(parts.services, parts.facts,
                        [&parts](QWidget* parent) { return parts.openYear(parent); });
}

Program::~Program() {
  parts_->navigator.end();
}

// Who names a data folder wants it in a window of its own.
bool Program::handedOver() const {
  const CommandLine& line = parts_->line;
  return !line.file.empty() && line.dataFolder.empty() && parts_->running.handOver(line.file);
}

void Program::start() {
  Parts& parts = *parts_;
  parts.running.listen([&parts](const std::string& path) { parts.navigator.openFile(path); });
  if (parts.line.file.empty()) {
    parts.navigator.showStartWindow();
    return;
  }
  settleFoldersAt(parts.paths, *parts.files, parts.facts, parts.line.file);
  parts.navigator.openYear();
  // After an argument that was no year the user's own data folder counts.
  if (QApplication::topLevelWidgets().isEmpty())
    parts.navigator.showStartWindow();
  else if (parts.facts.chosenDataFolder.empty() && isNamedAsYear(parts.line.file))
    parts.navigator.stayInFolder(std::string(base::folderOf(parts.line.file)));
}

}  // namespace app
