#include "mainwindow/frmVerbrauch.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QShowEvent>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

#include "base/CurrentFolder.h"
#include "base/GermanNumber.h"
#include "dialogs/Navigator.h"
#include "dialogs/Prompts.h"
#include "dialogs/WindowPlace.h"
#include "yearbook/IndexRepair.h"
#include "yearbook/StartMonthShift.h"
#include "yearbook/ui/MeterMark.h"
#include "yearbook/ui/WriteWatch.h"

using namespace Qt::Literals::StringLiterals;
using mainwindow::NoticeFrom;
using yearbook::Utility;

frmVerbrauch::frmVerbrauch(dialogs::Services& services,
                           std::unique_ptr<yearbook::YearSession> session, QWidget* parent)
    : QMainWindow(parent),
      services_(services),
      session_(std::move(session)),
      editor_(new yearbook::YearEditor(services, *session_, this)),
      Frame4(new reports::OverviewPage(services, *session_, TabStrip)),
      fraDrucke(new reports::DetailPage(services, *session_, TabStrip)) {
  setObjectName(u"frmVerbrauch"_s);
  dialogs::keepPlace(*this);
  base::ignore(base::makeCurrent(session_->dataFolder()), "file dialogs then begin elsewhere");
  setWindowTitle(u"Verbrauchsberechnung       "_s + QString::fromStdString(session_->path()));
  buildPages();
  buildMenus();
  buildEditMenu();
  buildOptionsMenu();
  buildAnalysisMenu();
  buildToolbar();
  connectMenus();
  connectPages();
  connectEntryWindows();
  connectBookWindows();
  connectCharts();
  addKeys();
  connect(editor_, &yearbook::YearEditor::changed, this, &frmVerbrauch::followModes);
  connect(editor_, &yearbook::YearEditor::changed, this, &frmVerbrauch::followSteps);
  connect(editor_, &yearbook::YearEditor::changed, this, &frmVerbrauch::followReadings);
  // Later: the failed edit's own box comes first.
  connect(
      editor_, &yearbook::YearEditor::indexDamaged, this,
      [this] {
        indexRepairDeclined_ = false;
        offerIndexRepair();
      },
      Qt::QueuedConnection);
  connect(new yearbook::WriteWatch(*editor_, TabStrip), &yearbook::WriteWatch::noticed, fraHinweis,
          [this](const QString& notice) { fraHinweis->say(NoticeFrom::Storing, notice); });
  editor_->showAll();
  takeFittingSize();
}

// The pages go before the session that they show.
frmVerbrauch::~frmVerbrauch() {
  delete takeCentralWidget();
}

void frmVerbrauch::buildPages() {
  TabStrip->setDocumentMode(true);
  TabStrip->setAccessibleName(u"Seiten des Jahres"_s);
  TabStrip->setIconSize(yearbook::kTabMark);
  TabStrip->addTab(Frame1, u"Zählerstände und Preise Strom"_s);
  TabStrip->addTab(Frame2, u"Zählerstände und Preise Wasser"_s);
  TabStrip->addTab(Frame3, u"Zählerstände und Preise Gas"_s);
  TabStrip->addTab(Frame4, u"Übersicht"_s);
  TabStrip->addTab(Frame5, u"Anmerkungen"_s);
  TabStrip->addTab(fraDrucke, u"Ausführliche Tabelle"_s);
  markTabs();
  auto* central = new QWidget(this);
  auto* rows = new QVBoxLayout(central);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(new mainwindow::BarPlace(
      central, {fraHinweis, fraGeaendert, fraNeuesJahr, fraErsteSchritte, fraAblesen}));
  rows->addWidget(TabStrip, 1);
  setCentralWidget(central);
}

void frmVerbrauch::markTabs() {
  const std::pair<QWidget*, yearbook::Meter> pages[] = {{Frame1, yearbook::Meter::Day},
                                                        {Frame2, yearbook::Meter::Water},
                                                        {Frame3, yearbook::Meter::Gas}};
  for (const auto& [page, meter] : pages)
    TabStrip->setTabIcon(TabStrip->indexOf(page), yearbook::tabMark(meter, palette()));
}

void frmVerbrauch::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) markTabs();
}

void frmVerbrauch::takeFittingSize() {
  QSize wanted;
  for (const yearbook::UtilityPage* page :
       {static_cast<yearbook::UtilityPage*>(Frame1), static_cast<yearbook::UtilityPage*>(Frame2),
        static_cast<yearbook::UtilityPage*>(Frame3)})
    wanted = wanted.expandedTo(page->fullSize());
  wanted += QSize(24, menuBar()->sizeHint().height() + Toolbar1->sizeHint().height() +
                          TabStrip->tabBar()->sizeHint().height() + 8);
  // Room for a notice or the first steps, which may come later.
  wanted.rheight() += 5 * fontMetrics().lineSpacing();
  // The title bar and the frame are not part of it.
  constexpr QSize kDecoration(16, 40);
  resize(wanted.boundedTo(screen()->availableSize() - kDecoration));
}

void frmVerbrauch::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  // After the first picture: what it asks shall not keep the window from appearing.
  if (event->spontaneous()) return;
  focusMonthlyJob();
  QTimer::singleShot(0, this, &frmVerbrauch::reactivate);
}

void frmVerbrauch::closeEvent(QCloseEvent* event) {
  event->setAccepted(finishEntry());
}

bool frmVerbrauch::finishEntry() {
  return editor_->finishEntry(focusWidget()) && Frame5->flush();
}

void frmVerbrauch::reactivate() {
  offerIndexRepair();
  askStartReading();
  editor_->showAll();
}

void frmVerbrauch::offerIndexRepair() {
  const auto tables = yearbook::tablesWithDamagedIndex(session_->database());
  if (tables.empty() || indexRepairDeclined_) return;
  if (session_->readOnlyReason()) {
    fraHinweis->say(NoticeFrom::Index,
                    QString::fromStdString(yearbook::damagedIndexNotice(tables)));
    indexRepairDeclined_ = true;
    return;
  }
  indexRepairDeclined_ = !services_.prompts.confirm(
      this, QString::fromStdString(yearbook::indexRepairQuestion(tables)),
      u"Index wiederherstellen"_s);
  if (!indexRepairDeclined_)
    editor_->run([&] { return yearbook::rebuildIndexes(*session_, tables); });
}

void frmVerbrauch::askStartReading() {
  if (session_->database().writeObstacle() || editor_->values().startReadings[yearbook::Meter::Day])
    return;
  // Which meter is meant is seen behind the box as well.
  QWidget* const page = TabStrip->currentWidget();
  TabStrip->setCurrentWidget(Frame1);
  Frame1->pointAtStartReading(true);
  const auto answer = services_.prompts.input(this, u"Anfangszählerstand eingeben"_s,
                                              u"Eingabe Anfangszählerstand"_s, {},
                                              u"Strom, Tagtarif\n0, wenn es keinen gibt"_s);
  Frame1->pointAtStartReading(false);
  TabStrip->setCurrentWidget(page);
  if (!answer) return;
  const auto reading = base::parseNumber(answer->toStdString());
  if (!reading) return;
  if (!isComplete(yearbook::EntryKind::WholeKwh, reading)) {
    editor_->tellWholeUnits(yearbook::EntryKind::WholeKwh);
    return;
  }
  editor_->run([&] { return session_->storeStartReading(yearbook::Meter::Day, reading); });
}

void frmVerbrauch::followModes() {
  const yearbook::FieldValues& values = editor_->values();
  mnuNachtstrom->setText(values.nightShown ? u"Nachtstrom ausblenden"_s
                                           : u"Nachtstrom einblenden"_s);
  mnuPauschale->setChecked(values.flatRate);
  const QString caption = values.flatRate ? u"Hochrechnung nicht aktiv wenn Pauschale aktiviert"_s
                                          : u"Hochrechnung auf das Jahr"_s;
  QAction* button = toolButton(u"Hochrechnung"_s);
  mnuHochrechnung->setText(caption);
  mnuHochrechnung->setEnabled(!values.flatRate);
  button->setToolTip(caption);
  button->setEnabled(!values.flatRate);
  const bool writable = !session_->writeObstacle();
  for (QAction* action : {mnuStMoS, mnuStMoW, mnuStMoG, mnuDelete}) action->setEnabled(writable);
  for (QPushButton* adapt : {Frame1->cmdBeginnS, Frame2->cmdBeginnW, Frame3->cmdBeginnG})
    adapt->setEnabled(writable);
}

void frmVerbrauch::followSteps() {
  const yearbook::StepHistory& history = session_->history();
  const auto follow = [this](QAction* action, const QString& way, const yearbook::Step* step) {
    action->setText(step ? way + u": "_s + QString::fromStdString(step->name) : way);
    action->setEnabled(step && !session_->writeObstacle());
  };
  follow(mnuUndo, u"&Rückgängig"_s, history.last());
  follow(mnuRedo, u"&Wiederherstellen"_s, history.next());
  // A bar that comes with the first digit would move the field under the hand.
  if (history.isTyping() && !fraGeaendert->isWanted()) return;
  const bool fresh = history.depth() > stepsOffered_ || fraGeaendert->isWanted();
  const bool wayBack = history.last() && !history.next() && fresh;
  fraGeaendert->offer(wayBack ? QString::fromStdString(history.last()->notice) : QString());
  stepsOffered_ = history.depth();
}

// What is being typed is a step like any other.
void frmVerbrauch::step(base::Result<void> (yearbook::YearSession::*way)()) {
  if (Frame5->flush()) editor_->run([&] { return (session_.get()->*way)(); });
}

void frmVerbrauch::mnuPauschaleClick(bool checked) {
  const auto saved = session_->storeFlatRate(checked);
  editor_->showAll();
  if (!saved)
    fraHinweis->say(NoticeFrom::FlatRate,
                    u"Die Einstellung der Pauschale gilt nur, bis das Programm endet: "_s +
                        QString::fromStdString(base::germanReason(saved.error())));
}

void frmVerbrauch::mnuNachtstromClick() {
  editor_->run([&] { return session_->setNightShown(!editor_->values().nightShown); });
}

void frmVerbrauch::changeStartMonth(Utility utility) {
  using Kind = yearbook::StartMonthAnswer::Kind;
  if (!finishEntry()) return;
  dialogs::Prompts& prompts = services_.prompts;
  const auto typed = prompts.input(this, u"Bitte Startmonat als Zahl 1 - 12 eingeben!"_s,
                                   u"Eingabe Startmonat (erster Monat der Ablesung)"_s, u"1"_s, {});
  const auto answer = yearbook::parseStartMonth(typed.value_or(QString()).toStdString());
  if (answer.kind == Kind::Cancelled) return;
  if (answer.kind == Kind::NotANumber) {
    prompts.tell(this, u"Nur Zahlen von 1 bis 12 eingeben!"_s, u"Ungültige Eingabe"_s,
                 dialogs::Icon::Critical);
    return;
  }
  if (answer.kind == Kind::OutOfRange) {
    prompts.tell(this, u"Falsche Eingabe"_s, u"Ungültige Zahleneingabe"_s, dialogs::Icon::Critical);
    return;
  }
  if (!editor_->keepBefore(dialogs::Harm::ShiftingStart)) return;
  if (!editor_->run([&] { return session_->shiftStartMonth(utility, answer.month); })) return;
  prompts.tell(this,
               u"Der Startmonat wurde angepasst \nDas Programm muß jetzt neu gestartet werden!"_s,
               u"Anpassen Startmonat"_s, dialogs::Icon::Information);
  services_.navigator.endProgram();
}

std::optional<Utility> frmVerbrauch::selectedUtility() const {
  const QWidget* page = TabStrip->currentWidget();
  if (page == Frame1) return Utility::Electricity;
  if (page == Frame2) return Utility::Water;
  if (page == Frame3) return Utility::Gas;
  return std::nullopt;
}

void frmVerbrauch::clearSelected() {
  const yearbook::PerUtility<QString> questions = {
      u"Sollen alle Eingaben für Strom in diesem Fenster gelöscht werden?"_s,
      u"Sollen alle Eingaben für Wasser in diesem Fenster gelöscht werden?"_s,
      u"Sollen alle Eingaben für Gas in diesem Fenster gelöscht werden?"_s};
  const auto utility = selectedUtility();
  if (!utility) return;
  if (!services_.prompts.confirm(this, questions[*utility], u"Alle Werte löschen"_s)) return;
  if (!editor_->keepBefore(dialogs::Harm::Clearing)) return;
  editor_->run([&] { return session_->clear(*utility); });
}
