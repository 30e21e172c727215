#include "yearbook/ui/WaterPage.h"

#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
WaterPage::WaterPage(QWidget* parent, YearEditor& editor)
    : UtilityPage(parent, "Frame2", editor),
      months(new MonthTable(content(), editor, Utility::Water,
                            {"FrameMonateW", "lblMoW", "Check2", "lblVerbrauch", "txtAbschlagW",
                             "txtSumAbschlW", "cmdAbschlW"},
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
  bindReadings();
  bindContract();
  placeTwoMeters(water_, wasteWater_, contract_, months, result_);
  chainFields({txtAnfStandW, txtAnfStandAbW, txtGrundgebW, txtMwStW, txtGrundgebAbW, txtMwStAbW},
              *months);
  connect(&editor, &YearEditor::changed, this, &WaterPage::showValues);
}

void WaterPage::buildMeters() {
  addMeterLines(water_, waterFields_, u"m³"_s, u"Euro/m³"_s);
  entryButtons(cmdEingabeVerbrauchW, u"Eingabe Zählerstand Wasser"_s, cmdPreisJeEinheitW,
               u"Preise Wasser je Monat eingeben"_s);
  water_->setFoot(buttonRow(water_, "FrameTastenW", {cmdEingabeVerbrauchW, cmdPreisJeEinheitW}));
  addMeterLines(wasteWater_, wasteWaterFields_, u"m³"_s, u"Euro/m³"_s);
  entryButtons(cmdEingabeVerbrauchAbW, u"Eingabe Zählerstand Abwasser"_s, cmdPreisJeEinheitAbW,
               u"Preise Abwasser je Monat eingeben"_s);
  wasteWater_->setFoot(
      buttonRow(wasteWater_, "FrameTastenAbW", {cmdEingabeVerbrauchAbW, cmdPreisJeEinheitAbW}));
}

void WaterPage::buildContract() {
  addBaseFeeLine(contract_, u"Grundgebühr Wasser"_s, txtGrundgebW, cmdWMonatl,
                 u"Grundgebühr Wasser monatlich eingeben"_s);
  contract_->addLine(u"MwSt Wasser"_s, txtMwStW, u"%"_s);
  contract_->addLine(u"MwSt Grundgebühr"_s, txtw, u"Euro"_s);
  addStartMonthLine(contract_, lblStartmonatW, cmdBeginnW);
  addBaseFeeLine(contract_, u"Grundgebühr Abwasser"_s, txtGrundgebAbW, cmdWWMonatl,
                 u"Grundgebühr Abwasser monatlich eingeben"_s);
  contract_->addLine(u"MwSt Abwasser"_s, txtMwStAbW, u"%"_s);
  contract_->addLine(u"MwSt Grundgebühr"_s, txtaw, u"Euro"_s);
  txtw->setAccessibleName(u"MwSt auf Grundgebühr Wasser"_s);
  txtaw->setAccessibleName(u"MwSt auf Grundgebühr Abwasser"_s);
  txtMwStAbW->setToolTip(u"Für Abwasser wird keine MwSt berechnet"_s);
}

void WaterPage::bindReadings() {
  YearSession& session = editor().session();
  editor().bind({txtAnfStandW, EntryKind::WholeCubicMetres,
                 [](const FieldValues& values) { return values.startWater; },
                 [&session](auto value) { return session.storeStartWater(value); }});
  editor().bind(
      {txtAnfStandAbW, EntryKind::WholeCubicMetres,
       [](const FieldValues& values) { return values.startWasteWater; },
       [&session](auto value) { return session.storeNumber(zstaende::startWasteWater, value); }});
}

void WaterPage::bindContract() {
  editor().bindBaseFee(txtGrundgebW, zstaende::baseFeeWater, &FieldValues::baseFeeWater);
  editor().bindBaseFee(txtGrundgebAbW, zstaende::baseFeeWasteWater,
                       &FieldValues::baseFeeWasteWater);
  editor().bindSetting(txtMwStW, EntryKind::Percent, zstaende::vatWater, &FieldValues::vatWater);
  editor().bindSetting(txtMwStAbW, EntryKind::Percent, zstaende::vatWasteWater,
                       &FieldValues::vatWasteWater);
}

void WaterPage::showValues() {
  const FieldValues& values = editor().values();
  const WaterTexts texts = waterTexts(values);
  showMeter(waterFields_, texts.water);
  showMeter(wasteWaterFields_, texts.wasteWater);
  txtPreisW->showText(priceText(values.waterPrice));
  txtPreisAbW->showText(priceText(values.wasteWaterPrice));
  txtSum1W->showText(texts.gross);
  txtw->showText(texts.baseFeeWaterVat);
  txtaw->showText(texts.baseFeeWasteWaterVat);
  lblStartmonatW->setText(months->month(0)->text());
}

}  // namespace yearbook
