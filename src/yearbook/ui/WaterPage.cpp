#include "yearbook/ui/WaterPage.h"

#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
WaterPage::WaterPage(QWidget* parent, YearEditor& editor)
    : UtilityPage(parent, "Frame2", editor),
      months(
          new MonthTable(content(), editor, Utility::Water,
                         {"FrameMonateW", "lblMoW", "Check2", "lblVerbrauch", "txtAbschlagW",
                          "txtSumAbschlW", "cmdAbschlW", "cmdAbschlFuellenW", "cmdMonatErfassenW"},
                         u"m³"_s)),
      water_(new FigureGroup(content(), "FrameWasser", u"Wasser"_s)),
      wasteWater_(new FigureGroup(content(), "FrameAbwasser", u"Abwasser"_s)),
      contract_(new FigureGroup(content(), "FrameVertragW", u"Vertrag"_s)),
      result_(new ResultGroup(content(), u"Istwert Wasser und Abwasser"_s, txtSum1W)) {
  buildMeters();
  buildContract();
  result_->addButton(button(cmdDiagrammWasser, u"Wasser"_s, u"Diagramm Verbrauch Wasser"_s));
  result_->addButton(button(cmdDiagrammAbwasser, u"Abwasser"_s, u"Diagramm Verbrauch Abwasser"_s));
  result_->addButton(
      button(cmdDiagrammWW, u"Beide"_s, u"Diagramm Verbrauch Wasser und Abwasser"_s));
  result_->addButton(comparisonButton(cmdDiagrVergleichW));
  bindFields();
  placeMeters({water_, wasteWater_, contract_, months, result_});
  chainFields({cmdEingabeVerbrauchW, txtAnfStandW, txtAnfStandAbW, txtGrundgebW, txtMwStW,
               txtGrundgebAbW, txtMwStAbW},
              *months);
  connect(&editor, &YearEditor::changed, this, &WaterPage::showValues);
}

void WaterPage::buildMeters() {
  addMeterLines(water_, waterFields_, Meter::Water);
  entryButtons(cmdEingabeVerbrauchW, u"Eingabe Zählerstand Wasser"_s, cmdPreisJeEinheitW,
               u"Preise Wasser je Monat eingeben"_s);
  water_->setFoot(buttonRow(water_, "FrameTastenW", {cmdEingabeVerbrauchW, cmdPreisJeEinheitW}));
  addMeterLines(wasteWater_, wasteWaterFields_, Meter::WasteWater,
                button(cmdWieWasser, u"wie Wasser"_s,
                       u"Der Anfangszählerstand des Wassers gilt auch für das Abwasser"_s));
  entryButtons(cmdEingabeVerbrauchAbW, u"Eingabe Zählerstand Abwasser"_s, cmdPreisJeEinheitAbW,
               u"Preise Abwasser je Monat eingeben"_s);
  wasteWater_->setFoot(
      buttonRow(wasteWater_, "FrameTastenAbW", {cmdEingabeVerbrauchAbW, cmdPreisJeEinheitAbW}));
}

void WaterPage::buildContract() {
  addBaseFeeLine(contract_, u"Grundgebühr Wasser im Jahr"_s, txtGrundgebW, Meter::Water, cmdWMonatl,
                 u"Grundgebühr Wasser monatlich eingeben"_s);
  addVatLine(contract_, u"MwSt Wasser"_s, txtMwStW, Meter::Water, baseFeeVat("FrameMwStW", txtw));
  addStartMonthLine(contract_, lblStartmonatW, cmdBeginnW);
  addBaseFeeLine(contract_, u"Grundgebühr Abwasser im Jahr"_s, txtGrundgebAbW, Meter::WasteWater,
                 cmdWWMonatl, u"Grundgebühr Abwasser monatlich eingeben"_s);
  contract_->addLine(u"MwSt Abwasser"_s, txtMwStAbW, u"%"_s, baseFeeVat("FrameMwStAbW", txtaw));
  txtw->setAccessibleName(u"MwSt auf Grundgebühr Wasser"_s);
  txtaw->setAccessibleName(u"MwSt auf Grundgebühr Abwasser"_s);
  txtMwStAbW->setToolTip(u"Für Abwasser wird keine MwSt berechnet"_s);
}

// Beside its rate: lines are what this page has too many of.
QWidget* WaterPage::baseFeeVat(const char* name, DerivedField* amount) {
  amount->setFixedSize(amount->fontMetrics().horizontalAdvance(u"1.234,56"_s) + 16,
                       fieldHeight(amount));
  return buttonRow(contract_, name,
                   {new QLabel(u"MwSt Grundgebühr"_s), amount, new QLabel(u"Euro"_s)});
}

void WaterPage::bindFields() {
  editor().bindStartReading(txtAnfStandW, Meter::Water);
  editor().bindStartReading(txtAnfStandAbW, Meter::WasteWater);
  connect(cmdWieWasser, &QPushButton::clicked, this, [this] {
    txtAnfStandAbW->setFocus();
    txtAnfStandAbW->enterValue(editor().values().startReadings[Meter::Water]);
    txtAnfStandAbW->finish();
  });
  editor().bindBaseFee(txtGrundgebW, Meter::Water);
  editor().bindBaseFee(txtGrundgebAbW, Meter::WasteWater);
  editor().bindVat(txtMwStW, Meter::Water);
  editor().bindVat(txtMwStAbW, Meter::WasteWater);
}

void WaterPage::showValues() {
  const FieldValues& values = editor().values();
  showMeter(waterFields_, Meter::Water);
  showMeter(wasteWaterFields_, Meter::WasteWater);
  cmdWieWasser->setEnabled(values.startReadings[Meter::Water].has_value() &&
                           !txtAnfStandAbW->isReadOnly());
  txtPreisW->showText(priceText(values.prices[Meter::Water]));
  txtPreisAbW->showText(priceText(values.prices[Meter::WasteWater]));
  txtw->showText(meterLines(values, Meter::Water).baseFeeVat);
  txtaw->showText(meterLines(values, Meter::WasteWater).baseFeeVat);
  result_->showTotal(values, Utility::Water);
  lblStartmonatW->setText(months->month(0)->text());
}

}  // namespace yearbook
