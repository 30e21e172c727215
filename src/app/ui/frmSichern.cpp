#include "app/ui/frmSichern.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QShowEvent>

#include "app/Backup.h"
#include "app/DataFolder.h"
#include "app/YearFiles.h"
#include "app/ui/CopyProgressBox.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "base/CurrentFolder.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;

frmSichern::frmSichern(dialogs::Services& services, QWidget* parent)
    : QDialog(parent), services_(services) {
  setObjectName(u"frmSichern"_s);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setSizeGripEnabled(true);
  setTexts();
  buildLayout();
  Dir1->setLister(app::subfoldersOf(services.files));
  FileVerbrauch->setLister(app::filesOf(services.files, app::kYearExtension));
  FilesWechsel->setLister(app::filesOf(services.files, app::kSideExtension));
  base::ignore(base::makeCurrent(services.paths.DataFolder), "the copies name what is wrong");
  connect(Drive1, &widgets::DriveList::chosen, this, &frmSichern::Drive1Change);
  connect(Dir1, &widgets::FolderList::chosen, this, &frmSichern::Dir1Change);
  connect(Command1, &QPushButton::clicked, this, &frmSichern::Command1Click);
  connect(Command2, &QPushButton::clicked, this, &QDialog::close);
}

void frmSichern::setTexts() {
  setWindowTitle(u"  Verbrauchs-Daten  sichern"_s);
  Label7->setText(
      u"Wählen Sie zuerst links ein Verzeichnis aus, in dem die Dateien gesichert werden sollen!"_s);
  Label2->setText(u"Verbrauchskosten - Daten"_s);
  lblWechsel->setText(u"Zugehörige Dateien"_s);
  Label6->setText(
      u"Klicken Sie anschließend auf die Schaltfläche:          "
      "[In ausgewähltes Verzeichnis Sichern]"_s);
  Command1->setText(u"Wählen Sie zuerst links ein Verzeichnis aus"_s);
  Command1->setAccessibleName(u"Sichern"_s);
  Command2->setText(u"Fenster schließen"_s);
  Command2->setAccessibleName(Command2->text());
  Drive1->setAccessibleName(u"Laufwerk"_s);
  Dir1->setAccessibleName(u"Verzeichnis, in das gesichert wird"_s);
  FileVerbrauch->setAccessibleName(Label2->text());
  FilesWechsel->setAccessibleName(lblWechsel->text());
  Command1->setAutoDefault(false);
  Command2->setAutoDefault(false);
}

void frmSichern::buildLayout() {
  QFont heading = font();
  heading.setBold(true);
  for (QLabel* label : {Label7, Label2, lblWechsel}) label->setFont(heading);
  for (QLabel* label : {Label7, Label6}) label->setWordWrap(true);
  // What is copied is not a choice.
  for (widgets::FileList* list : {FileVerbrauch, FilesWechsel}) {
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setFocusPolicy(Qt::NoFocus);
  }
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 14, 16, 14);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(9);
  grid->addWidget(Label7, 0, 0, 1, 2);
  grid->addWidget(Drive1, 1, 0);
  grid->addWidget(Dir1, 2, 0, 3, 1);
  grid->addWidget(Label2, 1, 1);
  grid->addWidget(FileVerbrauch, 2, 1);
  grid->addWidget(lblWechsel, 3, 1);
  grid->addWidget(FilesWechsel, 4, 1);
  grid->addWidget(Label6, 5, 0, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  buttons->addWidget(Command1, 1);
  buttons->addWidget(Command2);
  grid->addLayout(buttons, 6, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
  grid->setRowStretch(4, 1);
  for (QPushButton* button : {Command1, Command2}) button->setMinimumHeight(34);
  Command2->setMinimumWidth(Command2->sizeHint().width() + 24);
  resize(780, 540);
}

void frmSichern::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) activate();
}

void frmSichern::activate() {
  app::showFolder(*Drive1, *Dir1, app::firstBackupFolder());
  FileVerbrauch->setFolder(QString::fromStdString(services_.paths.DataFolder));
  FilesWechsel->setFolder(QString::fromStdString(services_.paths.DataFolder));
  Dir1->setFocus();
}

void frmSichern::Drive1Change(const QString& root) {
  if (app::changeDrive(*Drive1, *Dir1, root))
    Dir1Change();
  else
    services_.prompts.tell(this, u"Laufwerksfehler!"_s, u"Error"_s);
}

void frmSichern::Dir1Change() {
  Command1->setText(u"In links ausgewähltes Verzeichnis Sichern"_s);
}

void frmSichern::Command1Click() {
  const std::string dataFolder = services_.paths.DataFolder;
  base::ignore(base::makeCurrent(dataFolder), "the copies name what is wrong");
  const QString target = Dir1->path();
  const QString title = u"Datensicherung"_s;
  FileVerbrauch->refresh();
  FilesWechsel->setFolder(QString::fromStdString(dataFolder));
  base::Result<void> outcome;
  if (const auto names = app::backupNames(services_.files, dataFolder); !names) {
    outcome = base::Failure(names.error());
  } else {
    app::CopyProgressBox box(this, title);
    outcome =
        app::copyFiles(services_.files, dataFolder, target.toStdString(), *names, box.progress());
  }
  Dir1->refresh();
  app::tellCopyOutcome(
      services_, this, outcome,
      {title, u"Die Daten wurden nach "_s + target + u" kopiert."_s,
       u"Die Datensicherung wurde abgebrochen. Was schon kopiert ist, bleibt kopiert."_s});
}
