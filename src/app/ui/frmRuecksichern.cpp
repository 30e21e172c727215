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
      [&files = services.files](const QString& path) { return app::describeYear(files, path); });
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
  lblFilename->setText(name);
  lblFilename->setToolTip(name);
  Command1->setText(u"Ausgewählte Datei wiederherstellen"_s);
  markSideFiles();
}

std::vector<std::string> frmRuecksichern::sideFiles() const {
  std::vector<std::string> listed;
  for (const QString& name : FilesWechsel->names()) listed.push_back(name.toStdString());
  return app::sideFilesOf(lblFilename->text().toStdString(), listed);
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
  const std::string year = File3->selectedName().toStdString();
  if (!year.empty() && !app::keepBefore(services_, this, app::CopyMoment::Restoring, year)) return;
  run({title, u"Die oben ausgewählten, markierten Daten wurden wiederhergestellt."_s,
       u"Das Wiederherstellen wurde abgebrochen. Es ist alles, wie es war."_s},
      [&](const app::CopyProgress& progress) {
        return app::restore(services_.files, Dir1->path().toStdString(), services_.paths.DataFolder,
                            year, sideFiles(), progress);
      });
}
