#include "yearbook/ui/RemarksPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "yearbook/ui/TitledFrame.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

// Long enough not to write the file with every letter, short enough to lose nothing worth naming.
constexpr int kPauseMilliseconds = 500;

QString titleOf(Utility utility) {
  switch (utility) {
    case Utility::Water:
      return u"Wasser und Abwasser"_s;
    case Utility::Gas:
      return u"Gas"_s;
    case Utility::Electricity:
      break;
  }
  return u"Strom"_s;
}

}  // namespace

RemarksPage::RemarksPage(QWidget* parent, YearEditor& editor)
    : QScrollArea(parent),
      txtAnmerkungenS(this, "txtAnmerkungenS"),
      txtAnmerkungenW(this, "txtAnmerkungenW"),
      txtAnmerkungenG(this, "txtAnmerkungenG"),
      editor_(editor) {
  setObjectName(u"Frame5"_s);
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  auto* content = new QWidget(this);
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins(8, 6, 8, 6);
  columns->setSpacing(10);
  for (Utility utility : kUtilities) columns->addWidget(column(utility), 1, Qt::AlignTop);
  setWidget(content);
  pause_.setSingleShot(true);
  pause_.setInterval(kPauseMilliseconds);
  connect(&pause_, &QTimer::timeout, this, &RemarksPage::flush);
  connect(&editor, &YearEditor::changed, this, &RemarksPage::showValues);
}

const widgets::ControlArray<widgets::EntryField, kMonths>& RemarksPage::fields(
    Utility utility) const {
  switch (utility) {
    case Utility::Water:
      return txtAnmerkungenW;
    case Utility::Gas:
      return txtAnmerkungenG;
    case Utility::Electricity:
      break;
  }
  return txtAnmerkungenS;
}

QWidget* RemarksPage::column(Utility utility) {
  auto* frame = new TitledFrame(titleOf(utility), this);
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(10, 6, 10, 8);
  grid->setVerticalSpacing(4);
  for (int i = 0; i < kMonths; ++i) {
    widgets::EntryField* field = fields(utility)(i);
    auto*& month = months_[utility][i];
    month = new QLabel(frame);
    grid->addWidget(month, i, 0);
    grid->addWidget(field, i, 1);
    if (!editor_.session().holdsLongRemarks(utility)) field->setMaxLength(strom::remark.length);
    field->leaveUndoToWindow();
    connect(field, &QLineEdit::textEdited, this, [this, utility, i] { edited({utility, i}); });
    connect(field, &widgets::EntryField::entered, this, [this] {
      flush();
      editor_.endEntry();
    });
  }
  return frame;
}

void RemarksPage::edited(Place place) {
  if (pending_ && *pending_ != place) flush();
  pending_ = place;
  pause_.start();
}

bool RemarksPage::flush() {
  pause_.stop();
  if (!pending_) return true;
  const Place place = *pending_;
  const widgets::EntryField* field = fields(place.utility)(place.month);
  const std::string text = field->text().toStdString();
  pending_.reset();
  return editor_.type(
      field, [&] { return editor_.session().storeRemark(place.utility, place.month, text); });
}

void RemarksPage::hideEvent(QHideEvent* event) {
  flush();
  QScrollArea::hideEvent(event);
}

void RemarksPage::showValues() {
  for (Utility utility : kUtilities) {
    const MonthNames names = editor_.session().monthNames(utility);
    for (int i = 0; i < kMonths; ++i) {
      const QString month = QString::fromStdString(names[i]);
      const QString remark = QString::fromStdString(editor_.values().remarks[utility][i]);
      widgets::EntryField* field = fields(utility)(i);
      months_[utility][i]->setText(month);
      field->setAccessibleName(u"Anmerkung "_s + titleOf(utility) + u", "_s + month);
      if (pending_ == Place{utility, i} || field->text() == remark) continue;
      field->setText(remark);
      field->setCursorPosition(0);
    }
  }
}

}  // namespace yearbook
