#include "app/ui/frmRuecksichern.h"

#include <QVBoxLayout>
#include <algorithm>

#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;

frmRuecksichern::frmRuecksichern(const dialogs::Services& services, QWidget* parent)
    : CopyWindow(u"frmRuecksichern"_s, u"  Verbrauchs-Daten  wiederherstellen"_s, services,
                 parent) {
  setTexts();
  buildLayout();
  File3->setDescriber(
      [&files = services.files](const QString& path) { return app::describeCopy(files, path); });
  File3->setSelectionMode(QAbstractItemView::ExtendedSelection);
  File3->setToolTip(u"Mit Strg oder Umschalt lassen sich mehrere auswählen"_s);
  connect(File3, &widgets::FileList::chosen, this, &frmRuecksichern::File3Click);
  connect(cmdSicherungen, &QPushButton::clicked, this, &frmRuecksichern::showSafetyCopies);
  connect(Command1, &QPushButton::clicked, this, &frmRuecksichern::Command1Click);
}

void frmRuecksichern::setTexts() {
  Label7->setText(
      u"Wählen Sie zuerst links das Verzeichnis aus, in dem sich die gesicherten Dateien befinden!"_s);
  cmdSicherungen->setText(u"Automatische Sicherheitskopien zeigen"_s);
  cmdSicherungen->setAccessibleName(cmdSicherungen->text());
  cmdSicherungen->setToolTip(
      u"Beim Öffnen, nach Änderungen und vor dem Löschen legt das Programm Kopien an"_s);
  Dir1->setAccessibleName(u"Verzeichnis mit den gesicherten Dateien"_s);
  Label2->setText(u"Verbrauchskosten"_s);
  Label4->setText(u"Wählen Sie oben die Datei aus die wiederhergestellt werden soll!"_s);
  Label6->setText(u"Klicken Sie anschließend auf die Schaltfläche  Daten wiederherstellen"_s);
  Command1->setText(u"Wählen Sie zuerst eine Datei aus"_s);
  Command1->setAccessibleName(u"Wiederherstellen"_s);
  lblFilename->setAccessibleName(u"Ausgewählte Datei"_s);
}

void frmRuecksichern::buildLayout() {
  Label4->setWordWrap(true);
  makeBold(lblFilename);
  lblFilename->setFrameShape(QFrame::StyledPanel);
  lblFilename->setTextFormat(Qt::PlainText);
  lblFilename->setMargin(4);
  lblFilename->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  left_->addWidget(cmdSicherungen);
  addYears(File3, 3);
  right_->addWidget(Label4);
  right_->addWidget(lblFilename);
  addSideFiles(Label1, 2);
  setTabOrder({Dir1, cmdSicherungen, File3, Command1, Command2});
  resize(880, 580);
}

void frmRuecksichern::activate() {
  Dir1Change();
  cmdSicherungen->setVisible(
      services_.files.folderExists(app::SafetyCopies::folderIn(services_.paths.DataFolder)));
}

void frmRuecksichern::Dir1Change() {
  File3->setFolder(Dir1->path());
  FilesWechsel->setFolder(File3->folder());
  markSideFiles();
}

void frmRuecksichern::File3Click(const QString& name) {
  const QStringList chosen = File3->selectedNames();
  lblFilename->setText(chosen.size() > 1 ? chosen.join(u", "_s) : name);
  lblFilename->setToolTip(lblFilename->text());
  Command1->setText(u"Ausgewählte Datei wiederherstellen"_s);
  clicked_ = chosen.isEmpty() ? QStringList{name} : chosen;
  markSideFiles();
}

std::vector<std::string> frmRuecksichern::sideFilesOf(const QString& year) const {
  std::vector<std::string> listed;
  for (const QString& name : FilesWechsel->names()) listed.push_back(name.toStdString());
  return app::sideFilesOf(year.toStdString(), listed);
}

std::vector<std::string> frmRuecksichern::sideFiles() const {
  std::vector<std::string> all;
  for (const QString& year : clicked_)
    for (std::string& side : sideFilesOf(year)) all.push_back(std::move(side));
  return all;
}

// Those that will come along stand out.
void frmRuecksichern::markSideFiles() {
  const std::vector<std::string> own = sideFiles();
  if (!own.empty())
    FilesWechsel->scrollToItem(
        FilesWechsel->findItems(QString::fromStdString(own.front()), Qt::MatchExactly).value(0),
        QAbstractItemView::PositionAtTop);
  for (int i = 0; i < FilesWechsel->count(); ++i) {
    QListWidgetItem* item = FilesWechsel->item(i);
    const bool comes = std::find(own.begin(), own.end(), item->text().toStdString()) != own.end();
    const bool open = comes || lblFilename->text().isEmpty();
    item->setFlags(open ? item->flags() | Qt::ItemIsEnabled : item->flags() & ~Qt::ItemIsEnabled);
  }
}

// The folder of the newest day; the days beside it are in view.
void frmRuecksichern::showSafetyCopies() {
  const std::string folder = app::SafetyCopies::folderIn(services_.paths.DataFolder);
  const auto days = app::ListSubfolders(services_.files, folder);
  const std::string newest = days.empty() ? folder : folder + days.back();
  app::showFolder(*Drive1, *Dir1, QString::fromStdString(newest));
  Dir1Change();
}

void frmRuecksichern::Command1Click() {
  const QString title = u"Datensicherung wiederherstellen"_s;
  const QString question =
      u"Achtung! eventuell vorhandene Dateien gleichen Namens werden durch die Ausgewählten "
      "überschrieben."_s;
  if (services_.prompts.message(this, question, title, Icon::None, Buttons::OkCancel, Button::Ok) !=
      Button::Ok)
    return;
  enterDataFolder();
  const QStringList years = File3->selectedNames();
  if (years.isEmpty() && sideFiles().empty()) {
    services_.prompts.tell(this, u"Es ist keine Datei ausgewählt. Es wurde nichts kopiert."_s,
                           title, Icon::Information);
    return;
  }
  for (const QString& year : years)
    if (!app::keepBefore(services_, this, app::CopyMoment::Restoring, year.toStdString())) return;
  run({title, u"Die oben ausgewählten, markierten Daten wurden wiederhergestellt."_s,
       years.size() > 1
           ? u"Das Wiederherstellen wurde abgebrochen. Jahre, die schon zurück sind, bleiben es."_s
           : u"Das Wiederherstellen wurde abgebrochen. Es ist alles, wie es war."_s},
      [&](const app::CopyProgress& progress) { return restore(years, progress); });
}

// Each year with its files, or, where none is selected, the files of the year that is named.
base::Result<void> frmRuecksichern::restore(const QStringList& years,
                                            const app::CopyProgress& progress) {
  const std::string from = Dir1->path().toStdString();
  const std::string& to = services_.paths.DataFolder;
  if (years.isEmpty()) return app::restore(services_.files, from, to, {}, sideFiles(), progress);
  for (const QString& year : years)
    if (auto back = app::restore(services_.files, from, to, year.toStdString(), sideFilesOf(year),
                                 progress);
        !back)
      return back;
  return {};
}
