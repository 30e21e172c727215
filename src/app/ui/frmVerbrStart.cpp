#include "app/ui/frmVerbrStart.h"

#include <QPointer>
#include <QShowEvent>
#include <QTimer>

#include "app/DeletedYear.h"
#include "app/RunTimeError.h"
#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "app/ui/frmRuecksichern.h"
#include "app/ui/frmSichern.h"
#include "base/CurrentFolder.h"
#include "base/Paths.h"
#include "dialogs/Prompts.h"
#include "dialogs/Shell.h"
#include "dialogs/WindowPlace.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;

namespace app {

void PlayClick(dialogs::Services& services) {
  services.shell.playSound(QString::fromStdString(services.paths.ProgramFolder) + u"click.wav"_s);
}

std::string showNewDatabaseWindow(dialogs::Services& services, QWidget* owner) {
  PlayClick(services);
  frmNeuVerbrauch window(services, owner);
  window.exec();
  return window.made();
}

}  // namespace app

frmVerbrStart::frmVerbrStart(dialogs::Services& services, const app::SystemFacts& facts,
                             app::YearOpener& opener)
    : services_(services), facts_(facts), opener_(opener) {
  setObjectName(u"frmVerbrStart"_s);
  dialogs::keepPlace(*this);
  setAttribute(Qt::WA_DeleteOnClose);
  filFiles->setLister(app::filesOf(services.files, app::kYearExtension));
  FilesWechsel->setLister(app::filesOf(services.files, app::kSideExtension));
  filFiles->setDescriber(
      [&files = services.files](const QString& path) { return app::describeYear(files, path); });
  setTexts();
  buildMenus();
  buildLayout();
  connectControls();
  load();
}

void frmVerbrStart::load() {
  setWindowTitle(u"Kalvira    Version "_s +
                 QString::fromStdString(app::plainVersion(KALVIRA_VERSION)));
  if (const auto settled = app::settleFolders(services_.paths, services_.files, facts_); !settled)
    loadProblem_ = settled.error();
}

void frmVerbrStart::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (!event->spontaneous()) activate();
}

void frmVerbrStart::activate() {
  refillLists();
  std::optional<base::Error> problem = std::exchange(loadProblem_, std::nullopt);
  if (filFiles->count() == 0) {
    base::ignore(base::makeCurrent(services_.paths.DataFolder), "the copy names what is wrong");
    const auto created = app::CreateDefaultYearDatabase(services_.files, services_.paths);
    if (!created && !problem) problem = created.error();
  }
  filFiles->refresh();
  const QString standard = QString::fromUtf8(app::kDefaultYear.data(), app::kDefaultYear.size());
  if (filFiles->selectName(standard)) filFilesClick(standard);
  showReminder();
  offerLastYear();
  // Enter opens what is drawn as its button; the list's choice is another year.
  if (!cmdWeiter->isHidden()) cmdWeiter->setFocus(Qt::OtherFocusReason);
  followFolder();
  if (problem) tellLater(*problem);
}

void frmVerbrStart::refillLists() {
  const QString folder = QString::fromStdString(services_.paths.DataFolder);
  const QString selected = filFiles->selectedName();
  filFiles->setFolder(folder);
  filFiles->selectName(selected);
  FilesWechsel->setFolder(folder);
  lblDatenordner->setText(u"Datenordner:  "_s + folder);
}

// A box while the window is still being shown would stand before an empty frame. What was told
// once is not told again each time that a window closes.
void frmVerbrStart::tellLater(const base::Error& error) {
  const QString text = QString::fromStdString(app::runTimeErrorText(error));
  if (text == toldProblem_) return;
  toldProblem_ = text;
  QTimer::singleShot(
      0, this, [this, text] { services_.prompts.tell(this, text, u"Fehler"_s, Icon::Critical); });
}

void frmVerbrStart::filFilesClick(const QString& name) {
  lblFilename->setText(name);
  lblFilename->setToolTip(name);
  app::selectYear(services_.paths, services_.files, name.toStdString());
}

void frmVerbrStart::filFilesDblClick(const QString& name) {
  filFilesClick(name);
  if (app::isUnreadableName(name)) return mnuOpenClick();
  const QPointer<frmVerbrStart> self = this;
  opener_.openYearOver(this);
  // The main window can end the program, or replace this window by a fresh one.
  if (self && isVisible()) activate();
}

void frmVerbrStart::cmdHausratClick() {
  if (filFiles->count() == 0) {
    services_.prompts.tell(
        this, u"Sie müssen erst über die Schaltfläche Anlegen eine neue Datei erstellen"_s);
    return;
  }
  mnuOpenClick();
}

void frmVerbrStart::mnuOpenClick() {
  if (!hasSelection()) return;
  if (app::isUnreadableName(lblFilename->text())) {
    services_.prompts.tell(
        this,
        u"Der Name dieser Datei enthält Zeichen, die nicht in UTF-8 geschrieben sind. Sie lässt "
        "sich öffnen, wenn sie umbenannt ist."_s,
        u"Jahr öffnen"_s, Icon::Warning);
    return;
  }
  app::selectYear(services_.paths, services_.files, lblFilename->text().toStdString());
  app::PlayClick(services_);
  opener_.openYear();
}

bool frmVerbrStart::hasSelection() {
  if (!lblFilename->text().isEmpty()) return true;
  services_.prompts.tell(this, u"Es ist keine Datei ausgewählt."_s);
  return false;
}

void frmVerbrStart::Option1Click(int index) {
  switch (index) {
    case 0:
      mnuAnlegenClick();
      break;
    case 1:
      mnuDatDelClick();
      break;
    case 2:
      mnuSichernClick();
      break;
    default:
      break;
  }
  for (widgets::ActionOption* option : Option1) option->setChecked(option == Option1(5));
}

void frmVerbrStart::mnuAnlegenClick() {
  const std::string made = app::showNewDatabaseWindow(services_, this);
  if (!made.empty()) newYear_ = QString::fromStdString(std::string(base::fileName(made)));
  filFiles->refresh();
  activate();
}

void frmVerbrStart::mnuDatDelClick() {
  if (!hasSelection()) return;
  const QString name = lblFilename->text();
  if (services_.prompts.message(this, u"Die Datei  "_s + name + u"  wird gelöscht !!!"_s,
                                u" Achtung !!!"_s, Icon::Critical, Buttons::OkCancel,
                                Button::Cancel) != Button::Ok)
    return;
  deleteYear(name.toStdString());
  FilesWechsel->refresh();
  filFiles->refresh();
  if (filFiles->selectedName().isEmpty()) lblFilename->clear();
  if (filFiles->count() == 0) mnuAnlegenClick();
}

void frmVerbrStart::deleteYear(const std::string& name) {
  const std::string& folder = services_.paths.DataFolder;
  const auto sides = app::deletedWith(services_.files, folder, name);
  app::SafetyCopies copies(services_.files, folder, services_.clock);
  const auto kept = app::keepBeforeDeleting(services_.files, copies, folder, name);
  if (!kept && !app::goesOnWithout(services_, this, kept.error())) return;
  const auto years = app::filesWithExtension(services_.files, folder, app::kYearExtension);
  const auto deleted = app::deleteYear(services_.files, folder, name);
  if (deleted) {
    const auto gone = sides.value_or(std::vector<std::string>());
    lblGeloescht->setText(QString::fromStdString(app::deletionReport(
        name, gone, app::otherOwners(gone, years, name), kept.value_or(std::string()))));
    lblGeloescht->show();
  } else if (deleted.error().code == base::ErrorCode::InUse) {
    services_.prompts.tell(this,
                           u"Die Datei  "_s + QString::fromStdString(name) +
                               u"  ist geöffnet und kann nicht gelöscht werden."_s,
                           u"Fehler"_s, Icon::Critical);
  } else {
    app::tellFileError(services_, this, deleted.error());
  }
}

void frmVerbrStart::mnuSichernClick() {
  frmSichern window(services_, this);
  window.exec();
  activate();
}

void frmVerbrStart::mnuWiederherstellenClick() {
  lblGeloescht->hide();
  frmRuecksichern window(services_, this);
  window.exec();
  filFiles->refresh();
  activate();
}

void frmVerbrStart::mnuImportClick() {
  // A tool that is not installed is passed over in silence.
  services_.shell.startProgram(QString::fromStdString(services_.paths.ProgramFolder) +
                               u"Kalvimport.exe"_s);
  filFiles->refresh();
}

void frmVerbrStart::mnuPfadLRVClick() {
  const QString title = u"Pfadeinstellungen ändern"_s;
  const QString chosen =
      services_.prompts.chooseFolder(this, u"Wählen Sie einen Ordner aus"_s, u"C:\\"_s);
  if (chosen.isEmpty()) return;
  const std::string before = services_.paths.DataFolder;
  const auto changed =
      app::changeBaseFolder(services_.paths, services_.files, facts_, chosen.toStdString());
  if (!changed && services_.paths.DataFolder == before)
    return app::tellFileError(services_, this, changed.error(), title);
  // A year of the same name here is another one.
  filFiles->setFolder({});
  lblFilename->clear();
  newYear_.clear();
  activate();
  QString text = u"Der Pfad zur Datenbank wurde geändert auf:  "_s +
                 QString::fromStdString(services_.paths.DataFolder);
  if (!changed)
    text += u"\n\nDas gilt nur bis zum Ende des Programms, denn es ließ sich nicht merken:\n"_s +
            QString::fromStdString(base::germanMessage(changed.error())) +
            u"\n\nMit \"Pfad Datenbank löschen\" gilt ab dem nächsten Start der Standardordner."_s;
  services_.prompts.tell(this, text, title, changed ? Icon::Information : Icon::Warning);
}

void frmVerbrStart::mnuPfadDelClick() {
  const QString title = u"Pfadeinstellungen löschen"_s;
  const auto removed = app::resetBaseFolder(services_.files, facts_);
  if (!removed)
    app::tellFileError(services_, this, removed.error(), title);
  else if (*removed)
    services_.prompts.tell(this,
                           u"Die Datei Pfad_von_LRV.txt wurde gelöscht!\n"
                           "Sie müssen jetzt die Verbrauchserfassung neu starten!"_s,
                           title, Icon::Information);
}

void frmVerbrStart::mnuBeispieljahrClick() {
  const QPointer<frmVerbrStart> self = this;
  services_.navigator.showSample();
  if (self && isVisible()) activate();
}

void frmVerbrStart::mnuHilfeClick() {
  if (!help_) {
    help_ = new frmHilfe(this);
    connect(help_, &dialogs::HelpWindow::closed, this, &frmVerbrStart::activate);
  }
  help_->showInFront();
}
