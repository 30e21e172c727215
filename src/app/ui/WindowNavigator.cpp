#include "app/ui/WindowNavigator.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include "app/SampleCopy.h"
#include "app/StrayJournal.h"
#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/RecentYears.h"
#include "app/ui/YearDrop.h"
#include "app/ui/frmUeber.h"
#include "base/CurrentFolder.h"
#include "base/Paths.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

constexpr char16_t kSampleHint[] =
    u"Beispieljahr eines erfundenen Haushalts: eine Kopie zum Ausprobieren. Die eigenen Jahre "
    u"berührt sie nicht.";

// The window that the user is working in; a window that is to be usable must lie over it.
QWidget* frontWindow() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : QApplication::activeWindow();
}

template <class Window>
void showOnce(QPointer<Window>& window) {
  QWidget* front = frontWindow();
  // A window that belongs to another one cannot be reached while this one is modal.
  if (window && window->parentWidget() != front && window != front) delete window.data();
  if (!window) window = new Window(front);
  window->showInFront();
}

}  // namespace

WindowNavigator::~WindowNavigator() {
  end();
}

void WindowNavigator::end() {
  delete main_.data();
  delete start_.data();
}

void WindowNavigator::begin(dialogs::Services& services, const SystemFacts& facts,
                            YearWindowFactory factory) {
  services_ = &services;
  facts_ = facts;
  factory_ = std::move(factory);
}

void WindowNavigator::showStartWindow() {
  start_ = new frmVerbrStart(*services_, facts_, *this);
  takeDrops(start_);
  start_->show();
}

QWidget* WindowNavigator::makeMainWindow(QWidget* parent) {
  const std::string path = services_->paths.YearDatabasePath;
  const std::string folder(base::folderOf(path));
  const std::string name(base::fileName(path));
  base::ignore(finishInterrupted(services_->files, folder, name), "the start window has told it");
  offerWaitingChange(parent, folder, name);
  auto copy = std::make_shared<OpeningCopy>(services_->files, folder, name, services_->clock);
  copy->prepare();
  const YearWindow year = factory_(parent);
  if (year.window == nullptr) return nullptr;
  year.window->setAttribute(Qt::WA_DeleteOnClose);
  followSafetyCopy(copy, year);
  if (year.hint && isSample(path)) year.hint(QString::fromUtf16(kSampleHint));
  main_ = year.window;
  takeDrops(main_);
  if (!isSample(path)) rememberYear(QString::fromStdString(path));
  return year.window;
}

// Yes is the default: with No the year may be half of each state.
void WindowNavigator::offerWaitingChange(QWidget* owner, const std::string& folder,
                                         const std::string& name) {
  using dialogs::Button;
  const std::string former = formerNameOf(services_->files, folder, name);
  if (former.empty()) return;
  if (services_->prompts.message(owner, QString::fromStdString(waitingChangeQuestion(former, name)),
                                 u"Unterbrochene Änderung"_s, dialogs::Icon::Question,
                                 dialogs::Buttons::YesNo, Button::Yes) != Button::Yes)
    return;
  if (const auto adopted = adoptWaitingChange(services_->files, folder, former, name); !adopted)
    tellFileError(*services_, owner, adopted.error());
}

void WindowNavigator::followSafetyCopy(const std::shared_ptr<OpeningCopy>& copy,
                                       const YearWindow& year) {
  constexpr int kAfterFirstPaint = 400;
  QTimer::singleShot(kAfterFirstPaint, year.window, [copy, hint = year.hint] {
    const auto outcome = copy->finish();
    if (!outcome && hint)
      hint(u"Die Sicherheitskopie dieses Jahres konnte nicht angelegt werden. "_s +
           QString::fromStdString(base::germanMessage(outcome.error())));
  });
  QObject::connect(year.window, &QObject::destroyed, qApp, [copy] {
    base::ignore(copy->finish(), "the year itself is stored; the next opening tries again");
    base::ignore(copy->afterClosing(), "the year itself is stored; the next opening tries again");
  });
}

void WindowNavigator::openYear() {
  QWidget* window = makeMainWindow(nullptr);
  if (window == nullptr) return;
  // The other way round the last window would have closed in between, which ends the program.
  window->show();
  if (start_) start_->close();
}

void WindowNavigator::openYearAt(const QString& action) {
  openYear();
  if (auto* way = main_ ? main_->findChild<QAction*>(action) : nullptr)
    QTimer::singleShot(0, way, &QAction::trigger);
}

void WindowNavigator::openYearOver(QWidget* below) {
  const QPointer<QWidget> yearBelow = main_;
  QWidget* window = makeMainWindow(below);
  if (window == nullptr) return;
  window->setWindowFlag(Qt::Window);
  window->setWindowModality(Qt::WindowModal);
  QEventLoop untilClosed;
  QObject::connect(window, &QObject::destroyed, &untilClosed, &QEventLoop::quit);
  window->show();
  const bool outer = std::exchange(yearOverStart_, true);
  untilClosed.exec();
  yearOverStart_ = outer;
  main_ = yearBelow;
  const auto next = std::exchange(afterYear_, nullptr);
  if (next && yearBelow) return leaveYear(next);
  if (next) next();
}

void WindowNavigator::takeDrops(QWidget* window) {
  new YearDrop(window, [this](const std::string& path) { openFile(path); });
}

void WindowNavigator::bringToFront() {
  QWidget* front = main_ ? main_.data() : static_cast<QWidget*>(start_.data());
  if (front == nullptr) return;
  front->setWindowState(front->windowState() & ~Qt::WindowMinimized);
  front->raise();
  front->activateWindow();
  QApplication::alert(front);
}

void WindowNavigator::openFile(const std::string& path) {
  constexpr int kMoment = 300;
  if (const QWidget* modal = QApplication::activeModalWidget(); modal && modal != main_) {
    const bool tries = !std::exchange(waiting_, path).empty();
    if (tries) return;
    QApplication::alert(QApplication::activeModalWidget());
    QTimer::singleShot(kMoment, qApp, [this] { openFile(std::exchange(waiting_, {})); });
    return;
  }
  if (path.empty()) return;
  if (!main_) return openAt(path);
  if (services_->paths.YearDatabasePath == path) return bringToFront();
  leaveYear([this, path] { openAt(path); });
}

// When it cannot be opened everything stays where it was.
void WindowNavigator::openAt(const std::string& path) {
  const base::PathState before = services_->paths;
  SystemFacts itsOwnFolder = facts_;
  itsOwnFolder.chosenDataFolder.clear();
  settleFoldersAt(services_->paths, services_->files, itsOwnFolder, path);
  openYear();
  if (main_) {
    if (isNamedAsYear(path)) stayInFolder(std::string(base::folderOf(path)));
    return bringToFront();
  }
  services_->paths = before;
  base::ignore(base::makeCurrent(before.DataFolder), "what is read or written names its folder");
  if (!start_) showStartWindow();
}

std::string WindowNavigator::showNewDatabase() {
  return showNewDatabaseWindow(*services_, frontWindow());
}

// Later, for the caller is a handler of the window that goes. The start window stays until the call
// has returned that waits for a year over it: that is a handler of its own list.
void WindowNavigator::leaveYear(std::function<void()> next) {
  QTimer::singleShot(0, qApp, [this, next = std::move(next)] {
    const QPointer<QWidget> year = main_;
    // The main window goes first, so that its year is closed when a new start window looks.
    const bool quits = QApplication::quitOnLastWindowClosed();
    QApplication::setQuitOnLastWindowClosed(false);
    const bool closed = !year || year->close();
    if (closed && year) QApplication::sendPostedEvents(year, QEvent::DeferredDelete);
    if (closed && yearOverStart_) afterYear_ = next;
    if (closed && !yearOverStart_) next();
    QApplication::setQuitOnLastWindowClosed(quits);
  });
}

void WindowNavigator::restartAtStartWindow() {
  leaveYear([this] {
    const QPointer<frmVerbrStart> old = start_;
    showStartWindow();
    if (old) old->close();
  });
}

void WindowNavigator::showHelp() {
  showOnce(help_);
}
void WindowNavigator::showMeterChangeHelp() {
  showOnce(meterChangeHelp_);
}

void WindowNavigator::showManual(const QString& window) {
  showOnce(manual_);
  manual_->showPlace(manual::placeOf(window));
}

void WindowNavigator::showAbout() {
  frmUeber(*services_, frontWindow()).exec();
}

void WindowNavigator::showSample() {
  base::PathState& paths = services_->paths;
  QWidget* owner = frontWindow();
  if (main_ && isSample(paths.YearDatabasePath)) {
    services_->prompts.tell(owner, u"Das Beispieljahr ist schon geöffnet."_s,
                            u"Beispieljahr ansehen"_s, dialogs::Icon::Information);
    return;
  }
  const auto sample = provideSample(services_->files, paths.ProgramFolder, paths.DataFolder);
  if (!sample) return tellFileError(*services_, owner, sample.error(), u"Beispieljahr ansehen"_s);
  const base::PathState own = paths;
  SystemFacts apart = facts_;  // the sample's folder counts, whatever was chosen for this run
  apart.chosenDataFolder.clear();
  settleFoldersAt(paths, services_->files, apart, *sample);
  openYearOver(owner);
  paths = own;
  base::ignore(base::makeCurrent(paths.DataFolder), "file dialogs then begin elsewhere");
}

void WindowNavigator::endProgram() {
  leaveYear([] {
    QApplication::closeAllWindows();
    QApplication::quit();
  });
}

}  // namespace app
