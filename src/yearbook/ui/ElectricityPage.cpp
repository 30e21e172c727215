#include "yearbook/ui/ElectricityPage.h"

#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
ElectricityPage::ElectricityPage(QWidget* parent, YearEditor& editor)
    : UtilityPage(parent, "Frame1", editor),
      FrameNachtstrom(new FigureGroup(content(), "FrameNachtstrom", u"Nachtstrom"_s)),
      Frame22(buttonRow(content(), "Frame22", {cmdDiagrammNachtstrom})),
      Frame23(buttonRow(content(), "Frame23", {cmdEingabeVerbrauchNS, cmdPreisJeEinheitSN})),
      Frame13(new FigureGroup(content(), "Frame13", u"Vertrag"_s)),
      months(new MonthTable(content(), editor, Utility::Electricity,
                            {"FrameMonateS", "lblMoS", "Check1", "lblVerbrS", "txtAbschlagS",
                             "txtSumAbschlS", "cmdAbschlS"},
                            u"kWh"_s)),
      day_(new FigureGroup(content(), "FrameTagstrom", u"Tagstrom"_s)),
      result_(new ResultGroup(content(), u"Istwert Strom"_s, txtIstwertS)) {
  buildDay();
  buildNight();
  buildContract();
  buildResult();
  bindFields();
  bindDate();
  showNight(true);
  chainFields({txtAnfStandST, txtTPreis, txtAnfStandSN, txtGrundgebS, txtMwStS, txtDatumStrom,
               txtKwImJahrFrei},
              *months);
  connect(&editor, &YearEditor::changed, this, &ElectricityPage::showValues);
}

void ElectricityPage::buildDay() {
  day_->addLine(u"Anfangszählerstand"_s, txtAnfStandST, u"kWh"_s);
  day_->addLine(u"Endzählerstand"_s, txtEndStandST, u"kWh"_s);
  day_->addLine(u"Verbrauch"_s, txtVerbrauchTS, u"kWh"_s);
  day_->addLine(u"Preis je Einheit"_s, txtTPreis, u"Cent/kWh"_s);
  txtTPreis->setToolTip(
      u"Preis des letzten Monats. Eine Eingabe hier gilt für alle zwölf Monate."_s);
  day_->addLine(u"Betrag netto"_s, txtBetragTS, u"Euro"_s);
  day_->addLine(u"MwSt"_s, txtMwStTS, u"Euro"_s);
  day_->addRule();
  txtSummeS->emphasize();
  day_->addLine(u"Summe"_s, txtSummeS, u"Euro"_s);
  button(cmdEingabeVerbrauchS, u"Eingabe Zählerstand..."_s, u"Eingabe Zählerstand Strom"_s);
  button(cmdPreisJeEinheitS, u"Preise je Monat..."_s, u"Preise Strom je Monat eingeben"_s);
  day_->setFoot(buttonRow(day_, "FrameTasten", {cmdEingabeVerbrauchS, cmdPreisJeEinheitS}));
}

void ElectricityPage::buildNight() {
  FrameNachtstrom->addLine(u"Anfangszählerstand"_s, txtAnfStandSN, u"kWh"_s);
  FrameNachtstrom->addLine(u"Endzählerstand"_s, txtEndStandSN, u"kWh"_s);
  FrameNachtstrom->addLine(u"Verbrauch"_s, txtVerbrauchNS, u"kWh"_s);
  FrameNachtstrom->addLine(u"Preis je Einheit"_s, txtNPreis, u"Cent/kWh"_s);
  txtNPreis->setToolTip(
      u"Preis des letzten Monats. Preise gibt das Fenster \"Preise je Monat\" ein."_s);
  FrameNachtstrom->addLine(u"Betrag netto"_s, txtBetragNS, u"Euro"_s);
  FrameNachtstrom->addLine(u"MwSt"_s, txtMwStNSt, u"Euro"_s);
  FrameNachtstrom->addRule();
  txtSummeNS->emphasize();
  FrameNachtstrom->addLine(u"Summe"_s, txtSummeNS, u"Euro"_s);
  button(cmdEingabeVerbrauchNS, u"Eingabe Zählerstand..."_s,
         u"Eingabe Zählerstand Nacht - Strom"_s);
  button(cmdPreisJeEinheitSN, u"Preise je Monat..."_s, u"Preise Nachtstrom je Monat eingeben"_s);
  FrameNachtstrom->setFoot(Frame23);
}

void ElectricityPage::buildContract() {
  button(cmdMonatlStrom, u"Eingabe monatlich"_s, u"Grundgebühr Strom monatlich eingeben"_s);
  Frame13->addLine(u"Grundgebühr im Jahr"_s, txtGrundgebS, u"Euro"_s, cmdMonatlStrom);
  Frame13->addLine(u"MwSt"_s, txtMwStS, u"%"_s);
  const QString hint =
      u"Eingabe Pauschale. (Freie kWs im Jahr, die im monatlichen Grundpreis enthalten sind)"_s;
  const QString tip = u"Anzahl KwS die im Grundpreis pro Jahr enthalten sind"_s;
  lblPauschale->setText(u"kWh frei im Jahr"_s);
  lblPauschale->setToolTip(tip);
  txtKwImJahrFrei->setToolTip(tip);
  txtKwImJahrFrei->setAccessibleName(u"Pauschale, kWh frei im Jahr"_s);
  txtKwImJahrFrei->setWhatsThis(hint);
  txtKwImJahrFrei->setStatusTip(hint);
  freeKwhLabel_ = Frame13->addLine(u"Pauschale"_s, txtKwImJahrFrei, {}, lblPauschale).label;
  Frame13->addLine(u"Start-Datum"_s, txtDatumStrom);
  txtDatumStrom->setToolTip(u"Datum des Anfangszählerstandes, zum Beispiel 01.01.2009"_s);
  button(cmdBeginnS, u"anpassen"_s,
         u"Hier können Sie den Start - Monat (den Monat Ihrer Abrechnung) anpassen."_s);
  Frame13->addLine(u"Startmonat"_s, lblStartmonatS, {}, cmdBeginnS);
  cmdBeginnS->setAccessibleName(u"Startmonat anpassen"_s);
}

void ElectricityPage::buildResult() {
  result_->addButton(button(cmdDiagrammStrom, u"Strom"_s, u"Diagramm Verbrauch Strom"_s));
  button(cmdDiagrammNachtstrom, u"Nachtstrom"_s, u"Diagramm Verbrauch Nachtstrom"_s);
  result_->addButton(Frame22);
  result_->addButton(
      button(cmdDiagrVergleich, u"Vergleich"_s, u"Verbrauch mit einem anderen Jahr vergleichen"_s));
}

void ElectricityPage::bindFields() {
  editor().bindSetting(txtAnfStandST, EntryKind::WholeKwh, zstaende::startDay,
                       &FieldValues::startDay);
  editor().bindSetting(txtAnfStandSN, EntryKind::WholeKwh, zstaende::startNight,
                       &FieldValues::startNight);
  editor().bind({txtTPreis, EntryKind::Price,
                 [](const FieldValues& values) { return values.dayPrice; },
                 [this](auto value) { return editor().session().storeDayPrice(value); }});
  editor().bindBaseFee(txtGrundgebS, zstaende::baseFeeElectricity,
                       &FieldValues::baseFeeElectricity);
  editor().bindSetting(txtMwStS, EntryKind::Percent, zstaende::vatElectricity,
                       &FieldValues::vatElectricity);
  editor().bind(
      {txtKwImJahrFrei, EntryKind::WholeKwh,
       [](const FieldValues& values) { return orZero(values.freeKwh); },
       [this](auto value) { return editor().session().storeNumber(zstaende::freeKwh, value); }});
}

void ElectricityPage::bindDate() {
  connect(txtDatumStrom, &QLineEdit::textEdited, this, [this](const QString& typed) {
    if (isWholeStartDate(typed.toStdString())) storeDate();
  });
  connect(txtDatumStrom, &widgets::EntryField::entered, this, [this] {
    if (isStartDate(txtDatumStrom->text().toStdString()))
      storeDate();
    else
      refuseDate();
  });
}

void ElectricityPage::storeDate() {
  const std::string typed = txtDatumStrom->text().toStdString();
  if (!editor().run([&] { return editor().session().storeStartDate(typed); })) showDate();
}

void ElectricityPage::refuseDate() {
  editor().refuse(
      u"Ungültige Datumseingabe! \nBitte geben Sie ein gültiges Datum ein.\n"
      u"Beispiel:  01.01.2009"_s,
      u"Eingabe Datum"_s, dialogs::Icon::Warning);
  showDate();
}

void ElectricityPage::showDate() {
  txtDatumStrom->setText(QString::fromStdString(editor().values().startDate));
}

void ElectricityPage::showValues() {
  const FieldValues& values = editor().values();
  const ElectricityTexts texts = electricityTexts(values);
  txtEndStandST->showText(texts.day.endReading);
  txtVerbrauchTS->showText(texts.day.consumption);
  txtBetragTS->showText(texts.day.amount);
  txtMwStTS->showText(texts.day.vat);
  txtSummeS->showText(texts.day.gross);
  txtEndStandSN->showText(texts.night.endReading);
  txtVerbrauchNS->showText(texts.night.consumption);
  txtNPreis->showText(priceText(values.nightPrice));
  txtBetragNS->showText(texts.night.amount);
  txtMwStNSt->showText(texts.night.vat);
  txtSummeNS->showText(texts.night.gross);
  txtIstwertS->showText(texts.gross);
  result_->setTotalNote(texts.grossNote);
  if (!txtDatumStrom->hasFocus() || !txtDatumStrom->isModified()) showDate();
  lblStartmonatS->setText(months->month(0)->text());
  for (QWidget* widget :
       {static_cast<QWidget*>(txtKwImJahrFrei), static_cast<QWidget*>(lblPauschale),
        static_cast<QWidget*>(freeKwhLabel_)})
    widget->setVisible(values.flatRate);
  if (values.nightShown != nightShown()) showNight(values.nightShown);
}

void ElectricityPage::showNight(bool shown) {
  for (QWidget* frame : {static_cast<QWidget*>(FrameNachtstrom), Frame22, Frame23})
    frame->setVisible(shown);
  if (shown)
    placeTwoMeters(day_, FrameNachtstrom, Frame13, months, result_);
  else
    placeOneMeter(day_, Frame13, months, result_);
}

}  // namespace yearbook
