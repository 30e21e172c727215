#include <QBoxLayout>
#include <QGridLayout>
#include <QMenuBar>
#include <QVBoxLayout>

#include "app/ui/frmVerbrStart.h"
#include "dialogs/LookMenu.h"
#include "widgets/MenuKey.h"
#include "widgets/Pictures.h"

using namespace Qt::Literals::StringLiterals;

QMenu* frmVerbrStart::menu(const char* name) {
  auto* result = new QMenu(this);
  result->setObjectName(QLatin1String(name));
  return result;
}

QAction* frmVerbrStart::entry(const char* name) {
  auto* result = new QAction(this);
  result->setObjectName(QLatin1String(name));
  return result;
}

void frmVerbrStart::buildMenus() {
  mnuDatei->setTitle(u"Datei"_s);
  mnuOpen->setText(u"ausgewählte Datei öffnen"_s);
  mnuAnlegen->setText(u"Neue Datei anlegen"_s);
  mnuDatDel->setText(u"Datei löschen"_s);
  mnuClose->setText(u"Fenster schließen"_s);
  mnuZuletzt->setTitle(u"&Zuletzt geöffnet"_s);
  mnuDatei->addActions({mnuOpen, mnuAnlegen, mnuDatDel});
  mnuDatei->addMenu(mnuZuletzt);
  mnuDatei->addSeparator()->setObjectName(u"mnuSep3"_s);
  mnuDatei->addAction(mnuClose);

  mnuVerbrDat->setTitle(u"Daten &Verbrauchserfassung"_s);
  mnuSichern->setText(u"Verbrauchs-Daten Sichern"_s);
  mnuWiederherstellen->setText(
      u"Verbrauchs-Daten wiederherstellen (oder aus Version 8.7 importieren)"_s);
  mnuImport->setText(u"Verbrauchs-Daten aus Version 8.5 importieren"_s);
  mnuPfadLRV->setText(u"Pfad für Datenbank ändern"_s);
  mnuPfadDel->setText(u"Pfad Datenbank löschen(Auf Standard zurücksetzen)"_s);
  mnuVerbrDat->addActions({mnuSichern, mnuWiederherstellen, mnuImport});
  mnuVerbrDat->addSeparator()->setObjectName(u"sepPfadLRV"_s);
  mnuVerbrDat->addActions({mnuPfadLRV, mnuPfadDel});

  mnuHilfe->setText(u" &?"_s);
  mnuHilfe->setToolTip(u"Hilfe"_s);
  menuBar()->addMenu(mnuDatei);
  menuBar()->addMenu(mnuVerbrDat);
  buildAnalysisMenu();
  menuBar()->addMenu(new dialogs::LookMenu(this));
  mnuHandbuchMenue->setTitle(u"&Hilfe"_s);
  helpEntries.addTo(mnuHandbuchMenue);
  menuBar()->addMenu(mnuHandbuchMenue);
  menuBar()->addAction(mnuHilfe);
}

void frmVerbrStart::setTexts() {
  Label1->setText(
      u"Wählen Sie eine vorhandene Datei aus oder legen Sie über die Schaltfläche ANLEGEN eine "
      "\"Neue\" an."_s);
  filFiles->setToolTip(u"Mit Doppelklick Dia übernehmen"_s);
  filFiles->setAccessibleName(u"Jahresdateien"_s);
  FilesWechsel->setAccessibleName(u"Zugehörige Dateien"_s);
  lblAuswahl->setText(u"Ausgewählte Datei:"_s);
  lblFilename->setAccessibleName(u"Ausgewählte Datei"_s);
  cmdHausrat->setText(u"&Verbrauchserfassung öffnen"_s);
  cmdHausrat->setToolTip(u"Fenster Verbrauch öffnen"_s);
  cmdHausrat->setAccessibleName(u"Verbrauchserfassung öffnen"_s);
  Option1(0)->setText(u"&Neue Datei ANLEGEN"_s);
  Option1(1)->setText(u"&Auswahl LÖSCHEN"_s);
  Option1(1)->setToolTip(u"Ausgewählte Datei löschen"_s);
  Option1(2)->setText(u"Daten &SICHERN"_s);
  Option1(2)->setToolTip(u"Verbrauchsdaten sichern"_s);
  Option1(3)->setToolTip(u"Verbrauchsdaten aus alten Versionen importieren"_s);
  for (widgets::ActionOption* option : Option1)
    option->setAccessibleName(option->text().isEmpty() ? option->toolTip()
                                                       : option->text().remove(u'&'));
  Option1(4)->setAccessibleName(u"Ohne Aktion"_s);
  Option1(5)->setAccessibleName(u"Keine Aktion"_s);
}

void frmVerbrStart::buildOptions() {
  Option1(0)->setIcon(widgets::icon(u"neu"_s));
  Option1(1)->setIcon(widgets::icon(u"loeschen"_s));
  Option1(2)->setIcon(widgets::icon(u"speichern"_s));
  for (const int index : {0, 1, 2}) {
    Option1(index)->setIconSize(QSize(24, 24));
    Option1(index)->setMinimumHeight(36);
  }
  // Each is reached by Tab; in a group only the chosen one is. The window unchecks them.
  for (widgets::ActionOption* option : Option1) option->setAutoExclusive(false);
  // Members without an action of their own are not offered.
  for (const int index : {3, 4, 5}) Option1(index)->hide();
  Option1(5)->setChecked(true);
}

void frmVerbrStart::buildLayout() {
  buildOptions();
  FilesWechsel->hide();
  Label1->setWordWrap(true);
  lblFilename->setTextFormat(Qt::PlainText);
  lblFilename->setWordWrap(true);
  lblFilename->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  // A long name without blanks must not push the window off the screen.
  for (QLabel* label : {lblFilename, lblGeloescht, lblDatenordner})
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblGeloescht->setTextFormat(Qt::PlainText);
  lblGeloescht->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblGeloescht->setWordWrap(true);
  lblGeloescht->hide();
  lblDatenordner->setTextFormat(Qt::PlainText);
  lblDatenordner->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblDatenordner->setWordWrap(true);
  lblDatenordner->setForegroundRole(QPalette::PlaceholderText);

  auto* actions = new QVBoxLayout;
  arrangeButtons(actions);

  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(16, 12, 16, 12);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(12);
  grid->addWidget(Label1, 0, 0, 1, 2);
  grid->addWidget(filFiles, 1, 0);
  grid->addLayout(actions, 1, 1);
  grid->addWidget(lblGeloescht, 2, 0, 1, 2);
  grid->addWidget(lblDatenordner, 3, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(1, 1);
  auto* window = new QWidget;
  auto* rows = new QVBoxLayout(window);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(makeReminder());
  rows->addWidget(page, 1);
  setCentralWidget(window);
  setTabOrder(filFiles, cmdWeiter);
  setTabOrder(cmdWeiter, cmdHausrat);
  setTabOrder(cmdHausrat, Option1(0));
  setTabOrder(Option1(0), Option1(1));
  setTabOrder(Option1(1), Option1(2));
  resize(760, 490);
}

void frmVerbrStart::arrangeButtons(QBoxLayout* actions) {
  QFont head = font();
  head.setBold(true);
  cmdWeiter->setFont(head);
  cmdWeiter->setIcon(widgets::icon(u"jahr"_s));
  cmdWeiter->setIconSize(QSize(24, 24));
  cmdWeiter->setMinimumHeight(48);
  belowWeiter_->setFrameShape(QFrame::HLine);
  belowWeiter_->setFrameShadow(QFrame::Sunken);
  head.setPointSizeF(head.pointSizeF() * 1.25);
  lblFilename->setFont(head);
  lblFilename->setMinimumHeight(lblFilename->fontMetrics().lineSpacing());
  cmdHausrat->setIcon(widgets::icon(u"öffnen"_s));
  cmdHausrat->setIconSize(QSize(24, 24));
  cmdHausrat->setMinimumHeight(36);
  cmdHausrat->setMinimumWidth(cmdHausrat->sizeHint().width() + 32);

  actions->setSpacing(8);
  actions->addWidget(cmdWeiter);
  actions->addWidget(belowWeiter_);
  actions->addWidget(lblAuswahl);
  actions->addWidget(lblFilename);
  actions->addWidget(cmdHausrat);
  for (const int index : {0, 1, 2}) actions->addWidget(Option1(index));
  actions->addStretch();
}

void frmVerbrStart::connectControls() {
  connect(filFiles, &widgets::FileList::chosen, this, &frmVerbrStart::filFilesClick);
  connect(filFiles, &widgets::FileList::opened, this, &frmVerbrStart::filFilesDblClick);
  connect(cmdHausrat, &QPushButton::clicked, this, &frmVerbrStart::cmdHausratClick);
  for (int index = 0; index < Option1.size(); ++index)
    connect(Option1(index), &QAbstractButton::clicked, this,
            [this, index] { Option1Click(index); });
  connect(cmdWeiter, &QPushButton::clicked, this, &frmVerbrStart::cmdWeiterClick);
  // The captions of the button and of a menu share a letter.
  cmdHausrat->installEventFilter(this);
  menuBar()->installEventFilter(this);
  widgets::addMenuKey(*this);
  constexpr int kQuiet = 300;  // milliseconds after the last change
  folderChanged_.setSingleShot(true);
  folderChanged_.setInterval(kQuiet);
  connect(&folderChanged_, &QTimer::timeout, this, &frmVerbrStart::lookAgain);
  connect(&folderWatch_, &QFileSystemWatcher::directoryChanged, &folderChanged_,
          qOverload<>(&QTimer::start));
  connect(mnuDatei, &QMenu::aboutToShow, this, &frmVerbrStart::fillRecentYears);
  connect(mnuOpen, &QAction::triggered, this, &frmVerbrStart::mnuOpenClick);
  connect(mnuAnlegen, &QAction::triggered, this, &frmVerbrStart::mnuAnlegenClick);
  connect(mnuDatDel, &QAction::triggered, this, &frmVerbrStart::mnuDatDelClick);
  connect(mnuClose, &QAction::triggered, this, &QWidget::close);
  connect(mnuSichern, &QAction::triggered, this, &frmVerbrStart::mnuSichernClick);
  connect(mnuWiederherstellen, &QAction::triggered, this, &frmVerbrStart::mnuWiederherstellenClick);
  connect(mnuImport, &QAction::triggered, this, &frmVerbrStart::mnuImportClick);
  connect(mnuPfadLRV, &QAction::triggered, this, &frmVerbrStart::mnuPfadLRVClick);
  connect(mnuPfadDel, &QAction::triggered, this, &frmVerbrStart::mnuPfadDelClick);
  connect(mnuHilfe, &QAction::triggered, this, &frmVerbrStart::mnuHilfeClick);
  connect(helpEntries.mnuBeispieljahr, &QAction::triggered, this,
          &frmVerbrStart::mnuBeispieljahrClick);
}
