#include <QMenuBar>

#include "dialogs/LookMenu.h"
#include "dialogs/Navigator.h"
#include "dialogs/Prompts.h"
#include "dialogs/Shell.h"
#include "mainwindow/frmVerbrauch.h"
#include "widgets/Pictures.h"

// Menus, toolbar and what they set going.

using namespace Qt::Literals::StringLiterals;
using yearbook::Utility;

namespace {

// Where the calculator is looked for; it is started from the program folder.
constexpr const char* kCalculator = "C:\\Programme\\Larvando80\\Kalkul.exe";

constexpr char16_t kSaveHint[] =
    u"Wenn Sie die  Datenbank sichern wollen, schließen Sie die Verbrauchsverwaltung.\n"
    u"Starten Sie anschließend die Verbrauchsverwaltung neu und benuzten Sie die Schaltfläche "
    u"[Daten sichern] im Startfenster";
constexpr char16_t kDeleteHint[] =
    u"Wenn Sie die komplette Datenbank löschen wollen, schließen Sie die Verbrauchsverwaltung.\n"
    u"Starten Sie anschließend die Verbrauchsverwaltuing neu und benuzten Sie die Schaltfläche "
    u"[Auswahl löschen] im Startfenster";

}  // namespace

QMenu* frmVerbrauch::menu(const char* name) {
  return widgets::control<QMenu>(this, name);
}

QAction* frmVerbrauch::entry(const char* name) {
  auto* action = new QAction(this);
  action->setObjectName(QString::fromLatin1(name));
  return action;
}

void frmVerbrauch::buildMenus() {
  mnuVerbrauch->setTitle(u"&Verbrauch"_s);
  mnuNew->setText(u"Neu anlegen"_s);
  mnuOpen->setText(u"Öffnen"_s);
  mnuVerbrauch->addActions({mnuNew, mnuOpen});
  mnuStartmonat->setTitle(u"&Startmonat anpassen"_s);
  mnuStMoS->setText(u"Startmonat Strom"_s);
  mnuStMoW->setText(u"Startmonat Wasser"_s);
  mnuStMoG->setText(u"Startmonat Gas"_s);
  mnuStartmonat->addActions({mnuStMoS, mnuStMoW, mnuStMoG});
  mnuVerbrauch->addMenu(mnuStartmonat);
  menuBar()->addMenu(mnuVerbrauch);
  menuBar()->addMenu(mnuBearbeiten);
  menuBar()->addMenu(mnuOpt);
  menuBar()->addMenu(mnuAuswertung);
  menuBar()->addMenu(new dialogs::LookMenu(this));
  mnuHilfe->setTitle(u"&?"_s);
  mnuHelp->setText(u"&Hilfe"_s);
  mnuHelpZW->setText(u"Hilfe zu Zählerwechsel"_s);
  mnuHilfe->addActions({mnuHelp, mnuHelpZW});
  mnuHilfe->addSeparator()->setObjectName(u"sepHandbuch"_s);
  helpEntries.addTo(mnuHilfe);
  menuBar()->addMenu(mnuHilfe);
}

void frmVerbrauch::buildEditMenu() {
  mnuBearbeiten->setTitle(u"&Bearbeiten"_s);
  mnuUndo->setShortcut(QKeySequence(u"Ctrl+Z"_s));
  mnuRedo->setShortcuts({QKeySequence(u"Ctrl+Y"_s), QKeySequence(u"Ctrl+Shift+Z"_s)});
  mnuBearbeiten->addActions({mnuUndo, mnuRedo});
  mnuBearbeiten->addSeparator()->setObjectName(u"sepErfassen"_s);
  mnuMonatErfassen->setText(u"&Monat erfassen…"_s);
  mnuMonatErfassen->setShortcut(QKeySequence(u"Ctrl+M"_s));
  mnuAblesebuch->setText(u"&Ablesebuch…"_s);
  mnuFortfuehren->setText(u"Aus dem &Vorjahr übernehmen…"_s);
  mnuBearbeiten->addActions({mnuMonatErfassen, mnuAblesebuch, mnuFortfuehren});
  connect(mnuUndo, &QAction::triggered, this, [this] { step(&yearbook::YearSession::undo); });
  connect(mnuRedo, &QAction::triggered, this, [this] { step(&yearbook::YearSession::redo); });
  connect(fraGeaendert->cmdRueckgaengig, &QPushButton::clicked, mnuUndo, &QAction::trigger);
}

void frmVerbrauch::buildOptionsMenu() {
  mnuOpt->setTitle(u"&Optionen"_s);
  mnuNachtstrom->setText(u"&Nachtstrom ein / ausblenden"_s);
  mnuPauschale->setText(u"&Eingabe für Pauschale (freie kWs im Jahr) aktivieren"_s);
  mnuPauschale->setCheckable(true);
  mnuRechnen->setText(u"Werte neu &berechnen"_s);
  mnuDelete->setText(u"&Werte löschen"_s);
  mnuHochrechnung->setText(u"&Hochrechnung auf das Jahr"_s);
  mnuRechner->setText(u"&Rechner starten"_s);
  mnuOpt->addAction(mnuNachtstrom);
  mnuOpt->addSeparator()->setObjectName(u"mnuSep1"_s);
  mnuOpt->addAction(mnuPauschale);
  mnuOpt->addSeparator()->setObjectName(u"sepPauschale"_s);
  mnuOpt->addActions({mnuRechnen, mnuDelete});
  mnuOpt->addSeparator()->setObjectName(u"sepHochrechnung"_s);
  mnuOpt->addActions({mnuHochrechnung, mnuRechner});
  mnuRechner->setEnabled(services_.files.exists(kCalculator));
}

void frmVerbrauch::buildToolbar() {
  Toolbar1->setWindowTitle(u"Symbolleiste"_s);
  Toolbar1->setAccessibleName(Toolbar1->windowTitle());
  Toolbar1->setMovable(false);
  Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu);
  Toolbar1->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  Toolbar1->setIconSize({22, 22});
  const struct {
    QString key, toolTip;
    bool endsGroup;
  } buttons[] = {
      {u"Neu"_s, u"Neues Jahr anlegen"_s, false},
      {u"Öffnen"_s, u"Anderes Jahr öffnen"_s, false},
      {u"Speichern"_s, u"Wie die Daten gesichert werden; gespeichert wird jede Eingabe sofort"_s,
       false},
      {u"Löschen"_s, u"Alle Eingaben der Seite löschen"_s, true},
      {u"Drucken"_s, u"Jahresübersicht zeigen und drucken"_s, true},
      {u"Nachtstrom"_s, u"Nachtstrom ein- oder ausblenden"_s, false},
      {u"Hochrechnung"_s, u"Hochrechnung auf das Jahr"_s, true},
      {u"Hilfe"_s, u"Hilfe"_s, false},
      {u"Ende"_s, u"Fenster schließen"_s, false},
  };
  for (const auto& button : buttons) {
    QAction* action = Toolbar1->addAction(widgets::icon(button.key), button.key);
    action->setObjectName(u"Toolbar1_"_s + button.key);
    action->setData(button.key);
    action->setToolTip(button.toolTip);
    connect(action, &QAction::triggered, this, [this, key = button.key] { pressToolButton(key); });
    if (button.endsGroup) Toolbar1->addSeparator();
  }
  addToolBar(Toolbar1);
}

QAction* frmVerbrauch::toolButton(const QString& key) const {
  for (QAction* action : Toolbar1->actions())
    if (action->data().toString() == key) return action;
  return nullptr;
}

void frmVerbrauch::pressToolButton(const QString& key) {
  const QString title = u"Datenbank Verbrauch löschen"_s;
  if (key == u"Neu") mnuNew->trigger();
  if (key == u"Öffnen") mnuOpen->trigger();
  if (key == u"Speichern") {
    if (finishEntry() && !session_->writeObstacle())
      fraHinweis->say(mainwindow::NoticeFrom::Saved,
                      u"Alles Eingegebene ist schon gespeichert: Jede Eingabe wird es sofort."_s);
    services_.prompts.tell(this, QString::fromUtf16(kSaveHint), title, dialogs::Icon::Information);
  }
  if (key == u"Löschen") {
    clearSelected();
    services_.prompts.tell(this, QString::fromUtf16(kDeleteHint), title,
                           dialogs::Icon::Information);
  }
  if (key == u"Drucken") showPrintPage();
  if (key == u"Nachtstrom") mnuNachtstrom->trigger();
  if (key == u"Hilfe") mnuHelp->trigger();
  if (key == u"Hochrechnung") mnuHochrechnung->trigger();
  if (key == u"Ende") close();
}

void frmVerbrauch::showPrintPage() {
  if (TabStrip->currentWidget() == Frame4)
    Frame4->rebuild();
  else
    TabStrip->setCurrentWidget(Frame4);
  setUtilityButtonsEnabled(false);
}

// What works on a utility's page is off while the overview is printed, until another page comes.
void frmVerbrauch::setUtilityButtonsEnabled(bool enabled) {
  for (const QString& key : {u"Nachtstrom"_s, u"Löschen"_s}) toolButton(key)->setEnabled(enabled);
}

void frmVerbrauch::connectMenus() {
  connect(mnuNew, &QAction::triggered, this, [this] {
    if (const std::string made = services_.navigator.showNewDatabase(); !made.empty())
      fraNeuesJahr->offer(made);
    reactivate();
  });
  connect(fraNeuesJahr->cmdNeuesJahr, &QPushButton::clicked, this, [this] {
    if (finishEntry()) services_.navigator.openInstead(fraNeuesJahr->path());
  });
  connect(mnuOpen, &QAction::triggered, this, [this] {
    if (finishEntry()) services_.navigator.restartAtStartWindow();
  });
  connect(mnuStMoS, &QAction::triggered, this, [this] { changeStartMonth(Utility::Electricity); });
  connect(mnuStMoW, &QAction::triggered, this, [this] { changeStartMonth(Utility::Water); });
  connect(mnuStMoG, &QAction::triggered, this, [this] { changeStartMonth(Utility::Gas); });
  connect(mnuNachtstrom, &QAction::triggered, this, &frmVerbrauch::mnuNachtstromClick);
  connect(mnuPauschale, &QAction::triggered, this, &frmVerbrauch::mnuPauschaleClick);
  connect(mnuRechnen, &QAction::triggered, this, [this] {
    services_.prompts.tell(
        this,
        u"Klicken Sie zur Neuberechnung auf den Button [Eingabe Zählerstand...] \n"
        u"und wählen dort [Eingaben übernehmen!]."_s);
  });
  connect(mnuDelete, &QAction::triggered, this, &frmVerbrauch::clearSelected);
  connect(mnuHochrechnung, &QAction::triggered, this, &frmVerbrauch::showProjection);
  connect(mnuRechner, &QAction::triggered, this, [this] {
    services_.shell.startProgram(
        QString::fromStdString(services_.paths.ProgramFolder + "Kalkul.exe"));
  });
  connect(mnuHelp, &QAction::triggered, this, [this] { services_.navigator.showHelp(); });
  connect(mnuHelpZW, &QAction::triggered, this,
          [this] { services_.navigator.showMeterChangeHelp(); });
  connect(helpEntries.mnuBeispieljahr, &QAction::triggered, this, [this] {
    if (finishEntry()) services_.navigator.showSample();
  });
}

void frmVerbrauch::connectPages() {
  connect(TabStrip, &QTabWidget::currentChanged, this, [this] { setUtilityButtonsEnabled(true); });
  connect(editor_, &yearbook::YearEditor::changed, Frame4, [this] {
    if (Frame4->isVisible()) Frame4->rebuild();
  });
  connect(Frame1->cmdBeginnS, &QPushButton::clicked, mnuStMoS, &QAction::trigger);
  connect(Frame2->cmdBeginnW, &QPushButton::clicked, mnuStMoW, &QAction::trigger);
  connect(Frame3->cmdBeginnG, &QPushButton::clicked, mnuStMoG, &QAction::trigger);
}
