#include "analysis/ui/frmAngebot.h"

#include <QGridLayout>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNumberWidth = 96;

QString dateText(const QLineEdit* field) {
  return field->text().trimmed();
}

}  // namespace

frmAngebot::frmAngebot(const analysis::Offer& offer, const dialogs::Services& services,
                       QWidget* parent)
    : Window(u"frmAngebot"_s,
             u"Angebot "_s + QString::fromStdString(std::string(nameOf(offer.energy))), services,
             parent),
      energy_(offer.energy) {
  cboSteuer->addItems({u"brutto, mit MwSt"_s, u"netto, ohne MwSt"_s});
  cboGebuehr->addItems({u"Euro im Jahr"_s, u"Euro im Monat"_s});
  for (QComboBox* box : {cboSteuer, cboGebuehr}) box->setFocusPolicy(Qt::StrongFocus);
  for (widgets::NumberField* field : {txtGrundgebuehr, txtBonus}) field->setDecimals(2, 2);
  for (widgets::NumberField* field : {txtPreis, txtNachtpreis}) field->setDecimals(2, 4);
  lblFehler->setWordWrap(true);
  cmdUebernehmen->setText(u"Ü&bernehmen"_s);
  cmdUebernehmen->setDefault(true);
  cmdAbbrechen->setText(u"&Abbrechen"_s);
  buildLayout();
  show(offer);
  connect(cmdUebernehmen, &QPushButton::clicked, this, &frmAngebot::takeOver);
  connect(cmdAbbrechen, &QPushButton::clicked, this, &frmAngebot::reject);
}

void frmAngebot::buildLayout() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(8);
  int row = 0;
  const auto add = [&](const QString& caption, QWidget* field, QWidget* beside = nullptr) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    field->setAccessibleName(QString(caption).remove(u'&'));
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1, 1, beside ? 1 : 2);
    if (beside) grid->addWidget(beside, row, 2);
    ++row;
  };
  const auto number = [&](const QString& caption, widgets::NumberField* field, QWidget* unit) {
    field->setFixedWidth(kNumberWidth);
    field->setAlignment(Qt::AlignRight);
    add(caption, field, unit);
  };
  const bool power = energy_ == analysis::Energy::Electricity;
  add(u"&Name"_s, txtName);
  add(u"&Preise"_s, cboSteuer);
  number(power ? u"Preis am &Tag"_s : u"&Arbeitspreis"_s, txtPreis, new QLabel(u"Cent/kWh"_s));
  if (power)
    number(u"Preis nac&hts"_s, txtNachtpreis, new QLabel(u"Cent/kWh, leer: wie am Tag"_s));
  else
    txtNachtpreis->hide();
  number(u"&Grundgebühr"_s, txtGrundgebuehr, cboGebuehr);
  cboGebuehr->setAccessibleName(u"Grundgebühr im Jahr oder im Monat"_s);
  number(u"B&onus im ersten Jahr"_s, txtBonus, new QLabel(u"Euro brutto"_s));
  add(u"P&reisgarantie bis"_s, txtGarantie);
  add(u"Vertrags&ende"_s, txtEnde);
  for (QWidget* date : {static_cast<QWidget*>(txtGarantie), static_cast<QWidget*>(txtEnde)})
    date->setFixedWidth(kNumberWidth);
  grid->setColumnStretch(2, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblFehler, 1);
  buttons->addWidget(cmdUebernehmen);
  buttons->addWidget(cmdAbbrechen);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(16, 12, 16, 12);
  page->setSpacing(12);
  page->addLayout(grid);
  page->addStretch();
  page->addLayout(buttons);
  setMinimumWidth(460);
}

void frmAngebot::show(const analysis::Offer& offer) {
  const auto orEmpty = [](double value) {
    return value == 0 ? std::nullopt : std::optional(value);
  };
  txtName->setText(QString::fromStdString(offer.name));
  cboSteuer->setCurrentIndex(offer.net ? 1 : 0);
  txtPreis->setValue(orEmpty(offer.price));
  txtNachtpreis->setValue(offer.nightPrice);
  txtGrundgebuehr->setValue(orEmpty(offer.baseFee));
  cboGebuehr->setCurrentIndex(offer.feePerMonth ? 1 : 0);
  txtBonus->setValue(orEmpty(offer.bonus));
  txtGarantie->setText(QString::fromStdString(offer.guaranteedUntil));
  txtEnde->setText(QString::fromStdString(offer.contractEnd));
}

analysis::Offer frmAngebot::offer() const {
  analysis::Offer offer;
  offer.energy = energy_;
  offer.name = txtName->text().trimmed().toStdString();
  offer.net = cboSteuer->currentIndex() == 1;
  offer.price = txtPreis->valueOrZero();
  if (energy_ == analysis::Energy::Electricity) offer.nightPrice = txtNachtpreis->value();
  offer.baseFee = txtGrundgebuehr->valueOrZero();
  offer.feePerMonth = cboGebuehr->currentIndex() == 1;
  offer.bonus = txtBonus->valueOrZero();
  offer.guaranteedUntil = dateText(txtGarantie).toStdString();
  offer.contractEnd = dateText(txtEnde).toStdString();
  return offer;
}

QString frmAngebot::problem(QWidget** field) const {
  const auto wrong = [&](QWidget* where, const QString& text) {
    *field = where;
    return text;
  };
  if (txtName->text().trimmed().isEmpty()) return wrong(txtName, u"✕ Der Name fehlt."_s);
  if (!txtPreis->value()) return wrong(txtPreis, u"✕ Der Preis fehlt."_s);
  for (widgets::NumberField* number : {txtPreis, txtNachtpreis, txtGrundgebuehr, txtBonus})
    if (number->valueOrZero() < 0)
      return wrong(number, u"✕ "_s + number->accessibleName() + u": nicht unter 0."_s);
  for (widgets::DateField* date : {txtGarantie, txtEnde})
    if (!dateText(date).isEmpty() && !date->date())
      return wrong(date,
                   u"✕ "_s + date->accessibleName() + u": kein Datum, Beispiel 31.12.2026."_s);
  return {};
}

void frmAngebot::takeOver() {
  QWidget* field = nullptr;
  const QString text = problem(&field);
  lblFehler->setText(text);
  if (!field) return accept();
  field->setFocus();
}
