#include "app/ui/frmSichern.h"

using namespace Qt::Literals::StringLiterals;

frmSichern::frmSichern(const dialogs::Services& services, QWidget* parent)
    : CopyWindow(u"frmSichern"_s, u"  Verbrauchs-Daten  sichern"_s, services, parent) {
  Label7->setText(
      u"Wählen Sie zuerst links ein Verzeichnis aus, in dem die Dateien gesichert werden sollen!"_s);
  Dir1->setAccessibleName(u"Verzeichnis, in das gesichert wird"_s);
  Label2->setText(u"Verbrauchskosten - Daten"_s);
  addYears(FileVerbrauch, 1);
  onlyShow(FileVerbrauch);
  addSideFiles(lblWechsel, 1);
  Label6->setText(
      u"Klicken Sie anschließend auf die Schaltfläche:          "
      "[In ausgewähltes Verzeichnis Sichern]"_s);
  Command1->setText(u"Wählen Sie zuerst links ein Verzeichnis aus"_s);
  Command1->setAccessibleName(u"Sichern"_s);
  resize(780, 540);
  connect(Command1, &QPushButton::clicked, this, &frmSichern::Command1Click);
}

void frmSichern::activate() {
  for (widgets::FileList* list : {FileVerbrauch, FilesWechsel})
    list->setFolder(QString::fromStdString(services_.paths.DataFolder));
}

void frmSichern::Dir1Change() {
  Command1->setText(u"In links ausgewähltes Verzeichnis Sichern"_s);
}

void frmSichern::Command1Click() {
  enterDataFolder();
  activate();
  const std::string dataFolder = services_.paths.DataFolder;
  const QString target = Dir1->path();
  const auto copy = [&](const app::CopyProgress& progress) -> base::Result<void> {
    const auto names = app::backupNames(services_.files, dataFolder);
    if (!names) return base::Failure(names.error());
    auto copied =
        app::copyFiles(services_.files, dataFolder, target.toStdString(), *names, progress);
    Dir1->refresh();
    return copied;
  };
  run({u"Datensicherung"_s, u"Die Daten wurden nach "_s + target + u" kopiert."_s,
       u"Die Datensicherung wurde abgebrochen. Was schon kopiert ist, bleibt kopiert."_s},
      copy);
}
