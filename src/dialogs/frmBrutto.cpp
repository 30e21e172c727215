#include "dialogs/frmBrutto.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "base/GermanNumber.h"

using namespace Qt::Literals::StringLiterals;
using Period = dialogs::GrossFigure::Period;

frmBrutto::frmBrutto(const dialogs::Services& services, dialogs::GrossFigure figure,
                     QWidget* parent)
    : Window(u"frmBrutto"_s, u"Brutto umrechnen"_s, services, parent), figure_(std::move(figure)) {
  setModal(true);
  setTexts();
  arrange();
  // Where the rate is known, Tab and Enter pass it by.
  setTabOrder(
      {optMonat, optJahr, txtBrutto, txtMwSt, chkMwStEintragen, cmdUebernehmen, cmdSchliessen});
  for (widgets::NumberField* field : {txtBrutto, txtMwSt})
    connect(field, &widgets::NumberField::valueChanged, this, &frmBrutto::showNet);
  connect(optMonat, &QRadioButton::toggled, this, &frmBrutto::showNet);
  connect(cmdUebernehmen, &QPushButton::clicked, this, &QDialog::accept);
  showNet();
  txtBrutto->setFocus();
}

void frmBrutto::setTexts() {
  lblWofuer->setText(figure_.name);
  optMonat->setText(u"im &Monat"_s);
  optJahr->setText(u"im &Jahr"_s);
  (figure_.period == Period::Month ? optMonat : optJahr)->setChecked(true);
  txtBrutto->setAccessibleName(u"Brutto in "_s + figure_.unit);
  txtBrutto->setToolTip(u"Der Betrag mit MwSt, wie er auf der Rechnung steht"_s);
  txtMwSt->setAccessibleName(u"MwSt in Prozent"_s);
  txtMwSt->allowOnly(u"0123456789,."_s);
  txtMwSt->setValue(figure_.vat);
  txtMwSt->setDecimals(0, 4);
  txtMwSt->setReadOnly(figure_.vat.has_value());
  txtMwSt->setFrame(!figure_.vat);
  if (figure_.vat) txtMwSt->setFocusPolicy(Qt::ClickFocus);
  txtBrutto->setDecimals(2, 4);
  txtNetto->setReadOnly(true);
  txtNetto->setFrame(false);
  txtNetto->setFocusPolicy(Qt::ClickFocus);
  txtNetto->setAccessibleName(u"Netto in "_s + figure_.unit);
  lblHinweis->setText(figure_.vat ? QString()
                                  : u"Der Satz der MwSt ist hier noch nicht eingetragen."_s);
  chkMwStEintragen->setText(u"Diesen Satz auch beim &Vertrag eintragen"_s);
  chkMwStEintragen->setToolTip(u"Sonst gilt er nur für diese Umrechnung."_s);
  chkMwStEintragen->setChecked(true);
  cmdUebernehmen->setText(u"&Übernehmen"_s);
  cmdUebernehmen->setDefault(true);
  makeCloseButton(cmdSchliessen, u"&Schließen"_s);
}

void frmBrutto::arrange() {
  QFont bold = font();
  bold.setBold(true);
  lblWofuer->setFont(bold);
  txtNetto->setFont(bold);
  lblHinweis->setForegroundRole(QPalette::PlaceholderText);
  lblHinweis->setWordWrap(true);
  // A wrapped text asks for no height of its own.
  lblHinweis->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  lblHinweis->setMinimumHeight(std::max(0, lblHinweis->heightForWidth(lblHinweis->minimumWidth())));
  lblHinweis->setVisible(!lblHinweis->text().isEmpty());
  chkMwStEintragen->setVisible(!figure_.vat);
  auto* lines = new QGridLayout;
  lines->setHorizontalSpacing(8);
  lines->setVerticalSpacing(8);
  lines->setColumnStretch(2, 1);
  const auto addLine = [&](const QString& caption, QLineEdit* field, const QString& unit) {
    const int row = lines->rowCount();
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setFixedSize(fontMetrics().horizontalAdvance(u"1.234.567,8901"_s),
                        field->sizeHint().height());
    if (field->isReadOnly()) {
      QPalette plain;
      plain.setColor(QPalette::Base, Qt::transparent);
      field->setPalette(plain);
    }
    lines->addWidget(new QLabel(caption, this), row, 0);
    lines->addWidget(field, row, 1);
    lines->addWidget(new QLabel(unit, this), row, 2);
  };
  const bool fee = figure_.period != Period::None;
  optMonat->setVisible(fee);
  optJahr->setVisible(fee);
  if (fee) {
    auto* periods = new QHBoxLayout;
    periods->setSpacing(12);
    periods->addWidget(optMonat);
    periods->addWidget(optJahr);
    periods->addStretch();
    lines->addLayout(periods, 0, 1, 1, 2);
  }
  addLine(u"Brutto"_s, txtBrutto, figure_.unit + u" brutto"_s);
  addLine(u"MwSt"_s, txtMwSt, u"%"_s);
  const QString kept = figure_.period == Period::Month  ? u" netto im Monat"_s
                       : figure_.period == Period::Year ? u" netto im Jahr"_s
                                                        : u" netto"_s;
  addLine(u"Netto"_s, txtNetto, figure_.unit + kept);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(12);
  rows->addWidget(lblWofuer);
  rows->addLayout(lines);
  rows->addWidget(lblHinweis);
  rows->addWidget(chkMwStEintragen);
  rows->addStretch();
  rows->addLayout(buttonRow());
}

QLayout* frmBrutto::buttonRow() {
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdUebernehmen);
  buttons->addWidget(cmdSchliessen);
  return buttons;
}

base::FeeShare frmBrutto::share() const {
  if (figure_.period == Period::Year && optMonat->isChecked()) return {12, 1};
  if (figure_.period == Period::Month && optJahr->isChecked()) return {1, 12};
  return {};
}

std::optional<double> frmBrutto::net() const {
  const auto gross = txtBrutto->value();
  return gross ? base::netOf(*gross, txtMwSt->value(), share()) : std::nullopt;
}

std::optional<double> frmBrutto::newVat() const {
  return figure_.vat || !chkMwStEintragen->isChecked() ? std::nullopt : txtMwSt->value();
}

void frmBrutto::showNet() {
  const auto result = net();
  const std::string shortest = result ? base::formatShort(*result, 4, true) : std::string();
  const std::string padded = result ? base::formatNumber(*result, 2) : std::string();
  txtNetto->setText(QString::fromStdString(shortest.size() > padded.size() ? shortest : padded));
  cmdUebernehmen->setEnabled(result.has_value());
}
