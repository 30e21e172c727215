#include "yearbook/ui/WaterPage.h"

#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

const QString kPriceTip =
    u"Preis des letzten Monats. Preise gibt das Fenster \"Preise je Monat\" ein."_s;

}  // namespace

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
  result_->addButton(button(cmdDiagrVergleichW, u"Vergleich"_s,
                            u"Verbrauch mit einem anderen Jahr vergleichen"_s));
  bindReadings();
  bindContract();
  placeTwoMeters(water_, wasteWater_, contract_, months, result_);
  chainFields({txtAnfStandW, txtAnfStandAbW, txtGrundgebW, txtMwStW, txtGrundgebAbW, txtMwStAbW},
              *months);
  connect(&editor, &YearEditor::changed, this, &WaterPage::showValues);
}

void WaterPage::buildMeters() {
  water_->addLine(u"Anfangszählerstand"_s, txtAnfStandW, u"m³"_s);
  water_->addLine(u"Endzählerstand"_s, txtEndStandW, u"m³"_s);
  water_->addLine(u"Verbrauch"_s, txtVerbrauchW, u"m³"_s);
  water_->addLine(u"Preis je Einheit"_s, txtPreisW, u"Euro/m³"_s);
  water_->addLine(u"Betrag netto"_s, txtBetragW, u"Euro"_s);
  water_->addLine(u"MwSt"_s, txtMwstWasser, u"Euro"_s);
  water_->addRule();
  water_->addLine(u"Summe"_s, txtSummeW, u"Euro"_s);
  button(cmdEingabeVerbrauchW, u"Eingabe Zählerstand..."_s, u"Eingabe Zählerstand Wasser"_s);
  button(cmdPreisJeEinheitW, u"Preise je Monat..."_s, u"Preise Wasser je Monat eingeben"_s);
  water_->setFoot(buttonRow(water_, "FrameTastenW", {cmdEingabeVerbrauchW, cmdPreisJeEinheitW}));

  wasteWater_->addLine(u"Anfangszählerstand"_s, txtAnfStandAbW, u"m³"_s);
  wasteWater_->addLine(u"Endzählerstand"_s, txtEndStandAbW, u"m³"_s);
  wasteWater_->addLine(u"Verbrauch"_s, txtVerbrauchAbW, u"m³"_s);
  wasteWater_->addLine(u"Preis je Einheit"_s, txtPreisAbW, u"Euro/m³"_s);
  wasteWater_->addLine(u"Betrag netto"_s, txtBetragAbW, u"Euro"_s);
  wasteWater_->addLine(u"MwSt"_s, txtMwstAbwasser, u"Euro"_s);
  wasteWater_->addRule();
  wasteWater_->addLine(u"Summe"_s, txtSummeAbW, u"Euro"_s);
  button(cmdEingabeVerbrauchAbW, u"Eingabe Zählerstand..."_s, u"Eingabe Zählerstand Abwasser"_s);
  button(cmdPreisJeEinheitAbW, u"Preise je Monat..."_s, u"Preise Abwasser je Monat eingeben"_s);
  wasteWater_->setFoot(
      buttonRow(wasteWater_, "FrameTastenAbW", {cmdEingabeVerbrauchAbW, cmdPreisJeEinheitAbW}));
  for (DerivedField* price : {txtPreisW, txtPreisAbW}) price->setToolTip(kPriceTip);
  for (DerivedField* sum : {txtSummeW, txtSummeAbW}) sum->emphasize();
}

void WaterPage::buildContract() {
  button(cmdWMonatl, u"Eingabe monatlich"_s, u"Grundgebühr Wasser monatlich eingeben"_s);
  button(cmdWWMonatl, u"Eingabe monatlich"_s, u"Grundgebühr Abwasser monatlich eingeben"_s);
  button(cmdBeginnW, u"anpassen"_s,
         u"Hier können Sie den Start - Monat (den Monat Ihrer Abrechnung) anpassen."_s);
  contract_->addLine(u"Grundgebühr Wasser"_s, txtGrundgebW, u"Euro"_s, cmdWMonatl);
  contract_->addLine(u"MwSt Wasser"_s, txtMwStW, u"%"_s);
  contract_->addLine(u"MwSt Grundgebühr"_s, txtw, u"Euro"_s);
  contract_->addLine(u"Startmonat"_s, lblStartmonatW, {}, cmdBeginnW);
  cmdBeginnW->setAccessibleName(u"Startmonat anpassen"_s);
  contract_->addLine(u"Grundgebühr Abwasser"_s, txtGrundgebAbW, u"Euro"_s, cmdWWMonatl);
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
  txtEndStandW->showText(texts.water.endReading);
  txtVerbrauchW->showText(texts.water.consumption);
  txtPreisW->showText(priceText(values.waterPrice));
  txtBetragW->showText(texts.water.amount);
  txtMwstWasser->showText(texts.water.vat);
  txtSummeW->showText(texts.water.gross);
  txtEndStandAbW->showText(texts.wasteWater.endReading);
  txtVerbrauchAbW->showText(texts.wasteWater.consumption);
  txtPreisAbW->showText(priceText(values.wasteWaterPrice));
  txtBetragAbW->showText(texts.wasteWater.amount);
  txtMwstAbwasser->showText(texts.wasteWater.vat);
  txtSummeAbW->showText(texts.wasteWater.gross);
  txtSum1W->showText(texts.gross);
  txtw->showText(texts.baseFeeWaterVat);
  txtaw->showText(texts.baseFeeWasteWaterVat);
  lblStartmonatW->setText(months->month(0)->text());
}

}  // namespace yearbook
