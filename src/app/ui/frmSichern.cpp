#include "app/ui/frmSichern.h"

#include <QVBoxLayout>

#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "dialogs/Prompts.h"
#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kLastFolder = "sichern/ordner";

}  // namespace

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
  cmdNeuerOrdner->setText(u"&Neuer Ordner..."_s);
  cmdNeuerOrdner->setAccessibleName(u"Neuer Ordner"_s);
  cmdNeuerOrdner->setToolTip(u"Im ausgewählten Verzeichnis einen Ordner anlegen"_s);
  left_->addWidget(cmdNeuerOrdner, 0, Qt::AlignLeft);
  setTabOrder({Dir1, cmdNeuerOrdner, Command1, Command2});
  resize(780, 540);
  connect(cmdNeuerOrdner, &QPushButton::clicked, this, &frmSichern::makeFolder);
  connect(Command1, &QPushButton::clicked, this, &frmSichern::Command1Click);
}

// Where the last backup went, if that medium is there.
QString frmSichern::firstFolder() const {
  const QString last = widgets::userSettings().value(kLastFolder).toString();
  const bool there = !last.isEmpty() && services_.files.folderExists(last.toStdString());
  return there ? last : CopyWindow::firstFolder();
}

void frmSichern::makeFolder() {
  const QString title = u"Neuer Ordner"_s;
  const auto typed = services_.prompts.input(this, u"Name des neuen Ordners"_s, title,
                                             u"Sicherung Verbrauch"_s, {});
  const std::string name =
      app::trimmedYearName(app::allowedYearName(typed.value_or(QString()).toStdString()));
  if (name.empty()) return;
  const std::string folder = Dir1->path().toStdString() + name;
  if (const auto made = services_.files.makeFolder(folder); !made)
    return app::tellFileError(services_, this, made.error(), title);
  app::showFolder(*Drive1, *Dir1, QString::fromStdString(folder));
  Dir1Change();
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
  const bool done =
      run({u"Datensicherung"_s, u"Die Daten wurden nach "_s + target + u" kopiert."_s,
           u"Die Datensicherung wurde abgebrochen. Was schon kopiert ist, bleibt kopiert."_s},
          copy);
  if (done) widgets::userSettings().setValue(kLastFolder, target);
}
