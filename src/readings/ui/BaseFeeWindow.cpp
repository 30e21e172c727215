#include "readings/ui/BaseFeeWindow.h"

#include <QGridLayout>
#include <algorithm>

#include "dialogs/GrossButton.h"
#include "readings/ui/WindowTexts.h"
#include "widgets/FieldMark.h"
#include "widgets/Rule.h"
#include "yearbook/FieldRules.h"
#include "yearbook/ValueDoubts.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
namespace {

using yearbook::kMonths;

constexpr int kFeeDigits = 11;
const yearbook::Decimals kDecimals = yearbook::decimalsOf(yearbook::EntryKind::Amount);

}  // namespace

BaseFeeWindow::BaseFeeWindow(Meter meter, dialogs::Services& services,
                             yearbook::YearSession& session, QWidget* parent)
    : EntryWindow(kFeeTexts[meter].window, kFeeTexts[meter].caption, services, session, parent),
      meter_(meter) {
  setTexts();
  arrange();
  connectControls();
  stored_ = readBaseFees(session_.files(), baseFeePath(session_, meter_));
  showStored();
  new EntryUndo(this, [this] { showSum(); });
  lblOffen->lock(session_, {Command1, Command3, cmdAlleGleich});
}

void BaseFeeWindow::setTexts() {
  Frame1->setTitle(u"Eingabe monatl. Grundgebühr"_s);
  lblCurrentMonth->setText(u"aktueller Monat"_s);
  lblCurrentMonth->setMark(MarkedLabel::Mark::Current);
  lblSum->setAccessibleName(u"Grundgebühr im Jahr"_s);
  Command1->setText(u"&Übernehmen"_s);
  Command3->setText(u"Alle &Werte löschen"_s);
  // Before the button closes: that alone closes without a question.
  connect(Command2, &QPushButton::clicked, this, [this] { byButton_ = true; });
  makeCloseButton(Command2);
  // The months of all four windows run as those of electricity do.
  const auto names = session_.monthNames(yearbook::Utility::Electricity);
  const std::string current = session_.currentMonthName();
  for (int k = 0; k < kMonths; ++k) {
    const QString name = QString::fromStdString(names[k]);
    lblMo(k)->setText(name);
    if (names[k] == current) lblMo(k)->setMark(MarkedLabel::Mark::Current);
    txtVerbrauch(k)->setAccessibleName(u"Grundgebühr "_s + name);
    txtVerbrauch(k)->setToolTip(u"Die Grundgebühr dieses Monats, ohne MwSt"_s);
  }
  cmdAlleGleich->setText(u"Alle wie "_s + lblMo(0)->text());
  cmdAlleGleich->setToolTip(u"Den ersten Betrag in alle Monate eintragen"_s);
  const auto before = session_.values().baseFees[meter_];
  if (before && *before != base::Money())
    lblBisher->setText(
        u"bisher %1 Euro im Jahr"_s.arg(QString::fromStdString(base::formatMoney(*before))));
  lblBisher->setMark(MarkedLabel::Mark::Quiet);
  lblZweifel->setMark(MarkedLabel::Mark::Doubt);
}

void BaseFeeWindow::arrange() {
  auto* frame = new QVBoxLayout(Frame1);
  frame->setContentsMargins(12, 8, 12, 12);
  frame->setSpacing(8);
  frame->addLayout(arrangeMonths());
  auto* foot = new QHBoxLayout;
  foot->addWidget(lblCurrentMonth, 1);
  foot->addWidget(cmdAlleGleich);
  frame->addLayout(foot);
  frame->addWidget(lblZweifel);
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(14, 12, 14, 12);
  window->setSpacing(12);
  window->addWidget(Frame1, 1);
  window->addLayout(footOf(lblOffen, buttonRow({Command3}, {Command1, Command2})));
  letColumnsBePasted({txtVerbrauch.begin(), txtVerbrauch.end()});
  tameButtons();
}

QGridLayout* BaseFeeWindow::arrangeMonths() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(3);
  grid->setColumnStretch(0, 1);
  for (int k = 0; k < kMonths; ++k) {
    txtVerbrauch(k)->setDecimals(kDecimals.least, kDecimals.most);
    setDigits(txtVerbrauch(k), kFeeDigits);
    grid->addWidget(lblMo(k), k, 0);
    grid->addWidget(txtVerbrauch(k), k, 1);
    grid->addWidget(new QLabel(u"Euro netto"_s, this), k, 2);
    const auto figure = [this, k] {
      return grossFigure(meter_, txtVerbrauch(k)->accessibleName(), u"Euro"_s,
                         dialogs::GrossFigure::Period::Month);
    };
    grid->addWidget(new dialogs::GrossButton(txtVerbrauch(k), services_, figure, this), k, 3);
  }
  arrangeSum(grid);
  return grid;
}

void BaseFeeWindow::arrangeSum(QGridLayout* grid) {
  grid->addWidget(widgets::makeRule(this), kMonths, 0, 1, 4);
  grid->addWidget(new QLabel(u"Summe im Jahr"_s, this), kMonths + 1, 0);
  lblSum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  constexpr int kFieldFrame = 4;
  lblSum->setContentsMargins(0, 0, kFieldFrame, 0);
  grid->addWidget(lblSum, kMonths + 1, 1);
  grid->addWidget(new QLabel(u"Euro netto"_s, this), kMonths + 1, 2, 1, 2);
  grid->addWidget(lblBisher, kMonths + 2, 0, 1, 4);
  // A line of its own, so that nothing moves when it speaks.
  lblZweifel->setFixedHeight(2 * fontMetrics().lineSpacing());
  lblZweifel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblZweifel->setWordWrap(true);
}

void BaseFeeWindow::connectControls() {
  for (int k = 0; k + 1 < kMonths; ++k) setTabOrder(txtVerbrauch(k), txtVerbrauch(k + 1));
  setTabOrder({txtVerbrauch(kMonths - 1), Command1, Command2, Command3, cmdAlleGleich});
  for (widgets::NumberField* field : txtVerbrauch)
    connect(field, &widgets::NumberField::valueChanged, this, &BaseFeeWindow::showSum);
  connect(Command1, &QPushButton::clicked, this, &BaseFeeWindow::Command1Click);
  connect(Command3, &QPushButton::clicked, this, &BaseFeeWindow::Command3Click);
  connect(cmdAlleGleich, &QPushButton::clicked, this, &BaseFeeWindow::fillFromFirst);
}

void BaseFeeWindow::Command1Click() {
  // What was typed stays for another try.
  const auto done = storeYearFee(session_, meter_, fees());
  failed_ = !told(done);
  if (!failed_) return accept();
  if (done.error().code != base::ErrorCode::InvalidValue) return;
  // The sum is too large: by the largest of them, most likely.
  const auto byValue = [](const auto* one, const auto* other) {
    return one->valueOrZero() < other->valueOrZero();
  };
  lblOffen->markFault(*std::max_element(txtVerbrauch.begin(), txtVerbrauch.end(), byValue));
}

bool BaseFeeWindow::mayClose() {
  const bool asks = !std::exchange(byButton_, false) || failed_;
  return !asks || fees() == stored_ || goesWithout([this] { Command1Click(); });
}

void BaseFeeWindow::Command3Click() {
  for (widgets::NumberField* field : txtVerbrauch) field->setValue(0);
  showSum();
}

void BaseFeeWindow::fillFromFirst() {
  for (widgets::NumberField* field : txtVerbrauch) field->setValue(txtVerbrauch(0)->valueOrZero());
  showSum();
}

void BaseFeeWindow::showStored() {
  for (int k = 0; k < kMonths; ++k) txtVerbrauch(k)->setValue(stored_[k]);
  showSum();
}

void BaseFeeWindow::showSum() {
  const auto sum = yearFee(fees());
  lblSum->setText(sum ? QString::fromStdString(base::formatMoney(*sum)) : QString());
  lblOffen->showOpen(fees() != stored_);
  showDoubts();
}

void BaseFeeWindow::showDoubts() {
  const MonthlyFees typed = fees();
  QString first;
  for (int k = 0; k < kMonths; ++k) {
    const QString odd =
        QString::fromStdString(yearbook::amountDoubt(typed[k], yearbook::othersThan(k, typed)));
    widgets::markField(txtVerbrauch(k), widgets::Tone::Doubt, odd);
    if (first.isEmpty() && !odd.isEmpty()) first = u"⚠ "_s + lblMo(k)->text() + u": "_s + odd;
  }
  lblZweifel->setText(first);
}

MonthlyFees BaseFeeWindow::fees() const {
  MonthlyFees values{};
  for (int k = 0; k < kMonths; ++k) values[k] = txtVerbrauch(k)->valueOrZero();
  return values;
}

}  // namespace readings
