#include <QKeyEvent>
#include <QShortcut>

#include "base/Paths.h"
#include "mainwindow/frmVerbrauch.h"
#include "widgets/MenuKey.h"

// Where the hand goes: the first steps of an empty year, and the keys.

using namespace Qt::Literals::StringLiterals;
using yearbook::FirstStep;
using yearbook::Utility;

namespace {

// What a step is entered with on a utility's page; the first that stands on it and is empty.
struct StepFields {
  QWidget* page;
  yearbook::PerFirstStep<QList<QWidget*>> fields;
};

QWidget* firstEmpty(const QList<QWidget*>& fields) {
  for (QWidget* field : fields) {
    const auto* edit = qobject_cast<QLineEdit*>(field);
    const auto* number = qobject_cast<widgets::NumberField*>(field);
    const bool empty = number ? number->value().value_or(0) == 0 : edit && edit->text().isEmpty();
    if (empty && field->isEnabled()) return field;
  }
  return fields.first();
}

}  // namespace

// In an empty year, and on until all is done once it has been shown.
void frmVerbrauch::followFirstSteps(const std::optional<std::string>& before) {
  guided_ = guided_ || !isBegun(FirstStep::FirstReading, editor_->values());
  if (!guided_) return fraErsteSchritte->takeAway();
  const bool left = fraErsteSchritte->isWanted();
  fraErsteSchritte->offer(
      editor_->values(),
      before ? QString::fromStdString(base::baseName(std::string(base::fileName(*before))))
             : QString());
  const bool lacking = fraErsteSchritte->isWanted();
  if (lacking != left)
    fraHinweis->say(
        mainwindow::NoticeFrom::FirstSteps,
        lacking ? QString()
                : u"Für die erste Abrechnung ist alles da: Die Übersicht zeigt das Ergebnis."_s);
}

// On the page in front, if it lacks that; else on the first that does.
void frmVerbrauch::goToStep(FirstStep step) {
  if (step == FirstStep::FirstReading) return mnuMonatErfassen->trigger();
  const yearbook::PerUtility<StepFields> pages = {{{
      {Frame1,
       {{{{Frame1->txtAnfStandST},
          {Frame1->txtTPreis},
          {Frame1->txtGrundgebS, Frame1->txtMwStS},
          {Frame1->months->advance(0)},
          {}}}}},
      {Frame2,
       {{{{Frame2->txtAnfStandW, Frame2->txtAnfStandAbW},
          {Frame2->cmdPreisJeEinheitW},
          {Frame2->txtGrundgebW, Frame2->txtMwStW},
          {Frame2->months->advance(0)},
          {}}}}},
      {Frame3,
       {{{{Frame3->txtAnfStandG},
          {Frame3->txtPreisGas, Frame3->txtFaktor},
          {Frame3->txtGrundgebG, Frame3->txtMwStG},
          {Frame3->months->advance(0)},
          {}}}}},
  }}};
  Utility target = selectedUtility().value_or(Utility::Electricity);
  const auto lacking = yearbook::lackingIn(step, editor_->values());
  if (isDone(step, editor_->values(), target) && !lacking.empty()) target = lacking.front();
  TabStrip->setCurrentWidget(pages[target].page);
  const auto unpriced = yearbook::unpricedMeters(editor_->values(), target);
  if (step == FirstStep::Prices && unpriced == std::vector{yearbook::Meter::Night})
    return Frame1->cmdPreisJeEinheitSN->setFocus(Qt::TabFocusReason);
  if (step == FirstStep::Prices && unpriced == std::vector{yearbook::Meter::WasteWater})
    return Frame2->cmdPreisJeEinheitAbW->setFocus(Qt::TabFocusReason);
  firstEmpty(pages[target].fields[step])->setFocus(Qt::TabFocusReason);
}

// In a year that is under way the hand lies on the job of every month; an empty one begins with
// its first field.
void frmVerbrauch::focusMonthlyJob() {
  if (yearbook::hasBegun(editor_->values()))
    Frame1->cmdEingabeVerbrauchS->setFocus(Qt::OtherFocusReason);
  else
    Frame1->txtAnfStandST->setFocus(Qt::OtherFocusReason);
}

void frmVerbrauch::addKeys() {
  widgets::addMenuKey(*this);
  connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, this,
          &frmVerbrauch::print);
}

// The page in front, if it can be printed; else the overview is shown first.
void frmVerbrauch::print() {
  if (TabStrip->currentWidget() == Frame4)
    Frame4->cmdDrucken->click();
  else if (TabStrip->currentWidget() == fraDrucke)
    fraDrucke->Command11->click();
  else
    showPrintPage();
}

void frmVerbrauch::takeBack(widgets::EntryField& field) {
  if (Frame5->flush()) editor_->takeBack(field);
}

void frmVerbrauch::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QAbstractButton*>(focusWidget());
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  auto* field = qobject_cast<widgets::EntryField*>(focusWidget());
  if (enter && button != nullptr)
    button->click();
  else if (event->key() == Qt::Key_Escape && field != nullptr)
    takeBack(*field);
  else
    QMainWindow::keyPressEvent(event);
}
