#include "yearbook/ui/GasPage.h"

#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {

GasPage::GasPage(QWidget* parent, YearEditor& editor)
    : UtilityPage(parent, "Frame3", editor),
      months(
          new MonthTable(content(), editor, Utility::Gas,
                         {"FrameMonateG", "lblMo", "Check3", "lblVerbrGas", "txtAbschlagG",
                          "txtSumAbschlG", "cmdAbschlG", "cmdAbschlFuellenG", "cmdMonatErfassenG"},
                         u"m³"_s)),
      gas_(new FigureGroup(content(), "FrameGas", u"Gas"_s)),
      contract_(new FigureGroup(content(), "FrameVertragG", u"Vertrag"_s)),
      result_(new ResultGroup(content(), u"Istwert Gas"_s, txtSum2G)) {
  buildMeter();
  buildContract();
  result_->addNote(u"Betrag Gas = Verbrauch  m³  x  Faktor  x  Cent/kwh"_s);
  result_->addButton(button(cmdDiagrammGas, u"Gas"_s, u"Diagramm Verbrauch Gas"_s));
  result_->addButton(comparisonButton(cmdDiagrVergleichG));
  bindFields();
  placeMeters({gas_, nullptr, contract_, months, result_});
  chainFields({cmdEingabeVerbrauchG, txtAnfStandG, txtFaktor, txtPreisGas, txtGrundgebG, txtMwStG},
              *months);
  connect(&editor, &YearEditor::changed, this, &GasPage::showValues);
}

void GasPage::buildMeter() {
  gas_->setMeter(Meter::Gas);
  gas_->addLine(u"Anfangszählerstand"_s, txtAnfStandG, u"m³"_s);
  gas_->addLine(u"Endzählerstand"_s, txtEndStandG, u"m³"_s);
  gas_->addLine(u"Verbrauch"_s, txtVerbrauchG, u"m³"_s);
  gas_->addLine(u"Faktor"_s, txtFaktor, u"kWh/m³"_s);
  txtFaktor->setToolTip(u"Brennwert mal Zustandszahl, wie auf der Rechnung des Versorgers"_s);
  gas_->addLine(u"Verbrauch in kWh"_s, txtGaskWh, u"kWh"_s);
  addPriceLine(gas_, txtPreisGas, Meter::Gas);
  gas_->addLine(u"Betrag netto"_s, txtBetragG, u"Euro"_s);
  gas_->addLine(u"MwSt"_s, txtMwStGas, u"Euro"_s);
  gas_->addRule();
  txtSummeG->emphasize();
  gas_->addLine(u"Summe"_s, txtSummeG, u"Euro"_s);
  entryButtons(cmdEingabeVerbrauchG, u"Eingabe Zählerstand Gas"_s, cmdPreisJeEinheitG,
               u"Preise Gas je Monat eingeben"_s);
  gas_->setFoot(buttonRow(gas_, "FrameTastenG", {cmdEingabeVerbrauchG, cmdPreisJeEinheitG}));
}

void GasPage::buildContract() {
  addBaseFeeLine(contract_, u"Grundgebühr im Jahr"_s, txtGrundgebG, Meter::Gas, cmdMonatlGas,
                 u"Grundgebühr Gas monatlich eingeben"_s);
  addVatLine(contract_, u"MwSt"_s, txtMwStG, Meter::Gas);
  addStartMonthLine(contract_, lblStartmonatG, cmdBeginnG);
}

void GasPage::bindFields() {
  editor().bindStartReading(txtAnfStandG, Meter::Gas);
  editor().bind({txtFaktor, EntryKind::Factor,
                 [](const FieldValues& values) { return values.gasFactor; },
                 [this](auto value) { return editor().session().storeGasFactor(value); }});
  editor().bindPrice(txtPreisGas, Meter::Gas);
  editor().bindBaseFee(txtGrundgebG, Meter::Gas);
  editor().bindVat(txtMwStG, Meter::Gas);
}

void GasPage::showValues() {
  const FieldValues& values = editor().values();
  const MeterLines lines = meterLines(values, Meter::Gas);
  txtEndStandG->showText(lines.endReading);
  txtVerbrauchG->showText(lines.consumption);
  txtGaskWh->showText(gasKwhText(values));
  txtBetragG->showText(lines.amount);
  txtMwStGas->showText(lines.vat);
  txtSummeG->showText(lines.gross);
  result_->showTotal(values, Utility::Gas);
  lblStartmonatG->setText(months->month(0)->text());
}

}  // namespace yearbook
