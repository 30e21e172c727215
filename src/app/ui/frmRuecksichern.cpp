#include "app/ui/frmRuecksichern.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QShowEvent>
#include <algorithm>

#include "app/Backup.h"
#include "app/DataFolder.h"
#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "app/ui/CopyProgressBox.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "base/CurrentFolder.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;

namespace {

QString restoreTitle() {
  return u"Datensicherung wiederherstellen"_s;
}

}  // namespace

frmRuecksichern::frmRuecksichern(dialogs::Services& services, QWidget* parent)
    : QDialog(parent), services_(services) {
  setObjectName(u"frmRuecksichern"_s);
  setSizeGripEnabled(true);
  setTexts();
  buildLayout();
  Dir1->setLister(app::subfoldersOf(services.files));
  File3->setLister(app::filesOf(services.files, app::kYearExtension));
  File3->setDescriber(
      [&files = services.files](const QString& path) { return app::describeYear(files, path); });
  FilesWechsel->setLister(app::filesOf(services.files, app::kSideExtension));
  base::ignore(base::makeCurrent(services.paths.DataFolder), "the copies name what is wrong");
  connectControls();
}

void frmRuecksichern::connectControls() {
  connect(Drive1, &widgets::DriveList::chosen, this, &frmRuecksichern::Drive1Change);
  connect(Dir1, &widgets::FolderList::chosen, this, &frmRuecksichern::Dir1Change);
  connect(File3, &widgets::FileList::chosen, this, &frmRuecksichern::File3Click);
  connect(cmdSicherungen, &QPushButton::clicked, this, &frmRuecksichern::showSafetyCopies);
  connect(Command1, &QPushButton::clicked, this, &frmRuecksichern::Command1Click);
  connect(Command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmRuecksichern::setTexts() {
  setWindowTitle(u"  Verbrauchs-Daten  wiederherstellen"_s);
  Label7->setText(
      u"Wählen Sie zuerst links das Verzeichnis aus, in dem sich die gesicherten Dateien befinden!"_s);
  cmdSicherungen->setText(u"Automatische Sicherheitskopien zeigen"_s);
  cmdSicherungen->setAccessibleName(cmdSicherungen->text());
  cmdSicherungen->setToolTip(
      u"Beim Öffnen, nach Änderungen und vor dem Löschen legt das Programm Kopien an"_s);
  Label2->setText(u"Verbrauchskosten"_s);
  Label4->setText(u"Wählen Sie oben die Datei aus die wiederhergestellt werden soll!"_s);
  Label1->setText(u"Zugehörige Dateien"_s);
  Label6->setText(u"Klicken Sie anschließend auf die Schaltfläche  Daten wiederherstellen"_s);
  Command1->setText(u"Wählen Sie zuerst eine Datei aus"_s);
  Command1->setAccessibleName(u"Wiederherstellen"_s);
  Command2->setText(u"Fenster schließen"_s);
  Command2->setAccessibleName(Command2->text());
  Drive1->setAccessibleName(u"Laufwerk"_s);
  Dir1->setAccessibleName(u"Verzeichnis mit den gesicherten Dateien"_s);
  File3->setAccessibleName(Label2->text());
  FilesWechsel->setAccessibleName(Label1->text());
  lblFilename->setAccessibleName(u"Ausgewählte Datei"_s);
  for (QPushButton* button : {cmdSicherungen, Command1, Command2}) button->setAutoDefault(false);
}

void frmRuecksichern::buildLayout() {
  QFont heading = font();
  heading.setBold(true);
  for (QLabel* label : {Label7, Label2, Label1, lblFilename}) label->setFont(heading);
  for (QLabel* label : {Label7, Label4, Label6}) label->setWordWrap(true);
  lblFilename->setFrameShape(QFrame::StyledPanel);
  lblFilename->setTextFormat(Qt::PlainText);
  lblFilename->setMargin(4);
  lblFilename->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  FilesWechsel->setSelectionMode(QAbstractItemView::NoSelection);
  FilesWechsel->setFocusPolicy(Qt::NoFocus);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 14, 16, 14);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(9);
  grid->addWidget(Label7, 0, 0, 1, 2);
  grid->addWidget(Drive1, 1, 0);
  grid->addWidget(Dir1, 2, 0, 5, 1);
  grid->addWidget(cmdSicherungen, 7, 0);
  grid->addWidget(Label2, 1, 1);
  grid->addWidget(File3, 2, 1);
  grid->addWidget(Label4, 3, 1);
  grid->addWidget(lblFilename, 4, 1);
  grid->addWidget(Label1, 5, 1);
  grid->addWidget(FilesWechsel, 6, 1, 2, 1);
  grid->addWidget(Label6, 8, 0, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  buttons->addWidget(Command1, 1);
  buttons->addWidget(Command2);
  grid->addLayout(buttons, 9, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 3);
  grid->setRowStretch(6, 2);
  for (QPushButton* button : {Command1, Command2}) button->setMinimumHeight(34);
  Command2->setMinimumWidth(Command2->sizeHint().width() + 24);
  resize(880, 580);
}

void frmRuecksichern::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) activate();
}

void frmRuecksichern::activate() {
  app::showFolder(*Drive1, *Dir1, app::firstBackupFolder());
  Dir1Change();
  cmdSicherungen->setVisible(
      services_.files.folderExists(app::SafetyCopies::folderIn(services_.paths.DataFolder)));
  Dir1->setFocus();
}

void frmRuecksichern::Drive1Change(const QString& root) {
  if (app::changeDrive(*Drive1, *Dir1, root))
    Dir1Change();
  else
    services_.prompts.tell(this, u"Laufwerksfehler!"_s, u"Error"_s);
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
  const QString question =
      u"Achtung! eventuell vorhandene Dateien gleichen Namens werden durch die Ausgewählten "
      "überschrieben."_s;
  if (services_.prompts.message(this, question, restoreTitle(), Icon::None, Buttons::OkCancel,
                                Button::Ok) != Button::Ok)
    return;
  base::ignore(base::makeCurrent(services_.paths.DataFolder), "the copies name what is wrong");
  const std::string year = File3->selectedName().toStdString();
  if (!year.empty() && !app::keepBefore(services_, this, app::CopyMoment::Restoring, year)) return;
  base::Result<void> outcome;
  {
    app::CopyProgressBox box(this, restoreTitle());
    outcome = app::restore(services_.files, Dir1->path().toStdString(), services_.paths.DataFolder,
                           year, sideFiles(), box.progress());
  }
  app::tellCopyOutcome(
      services_, this, outcome,
      {restoreTitle(), u"Die oben ausgewählten, markierten Daten wurden wiederhergestellt."_s,
       u"Das Wiederherstellen wurde abgebrochen. Es ist alles, wie es war."_s});
}
