#include "yearbook/ui/ElectricityPage.h"

#include <QTimer>

#include "widgets/FieldMark.h"
#include "yearbook/FieldTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {

ElectricityPage::ElectricityPage(QWidget* parent, YearEditor& editor)
    : UtilityPage(parent, "Frame1", editor),
      FrameNachtstrom(new FigureGroup(content(), "FrameNachtstrom", u"Nachtstrom"_s)),
      Frame22(buttonRow(content(), "Frame22", {cmdDiagrammNachtstrom})),
      Frame23(buttonRow(content(), "Frame23", {cmdEingabeVerbrauchNS, cmdPreisJeEinheitSN})),
      Frame13(new FigureGroup(content(), "Frame13", u"Vertrag"_s)),
      months(
          new MonthTable(content(), editor, Utility::Electricity,
                         {"FrameMonateS", "lblMoS", "Check1", "lblVerbrS", "txtAbschlagS",
                          "txtSumAbschlS", "cmdAbschlS", "cmdAbschlFuellenS", "cmdMonatErfassenS"},
                         u"kWh"_s)),
      day_(new FigureGroup(content(), "FrameTagstrom", u"Tagstrom"_s)),
      result_(new ResultGroup(content(), u"Istwert Strom"_s, txtIstwertS)) {
  buildMeters();
  buildContract();
  buildResult();
  bindFields();
  bindDate();
  showNight(true);
  chainFields({cmdEingabeVerbrauchS, txtAnfStandST, txtTPreis, txtAnfStandSN, txtGrundgebS,
               txtMwStS, txtDatumStrom, txtKwImJahrFrei},
              *months);
  connect(&editor, &YearEditor::changed, this, &ElectricityPage::showValues);
}

void ElectricityPage::buildMeters() {
  addMeterLines(day_, dayFields_, Meter::Day);
  entryButtons(cmdEingabeVerbrauchS, u"Eingabe Zählerstand Strom"_s, cmdPreisJeEinheitS,
               u"Preise Strom je Monat eingeben"_s);
  day_->setFoot(buttonRow(day_, "FrameTasten", {cmdEingabeVerbrauchS, cmdPreisJeEinheitS}));
  addMeterLines(FrameNachtstrom, nightFields_, Meter::Night);
  entryButtons(cmdEingabeVerbrauchNS, u"Eingabe Zählerstand Nacht - Strom"_s, cmdPreisJeEinheitSN,
               u"Preise Nachtstrom je Monat eingeben"_s);
  FrameNachtstrom->setFoot(Frame23);
}

void ElectricityPage::buildContract() {
  addBaseFeeLine(Frame13, u"Grundgebühr im Jahr"_s, txtGrundgebS, Meter::Day, cmdMonatlStrom,
                 u"Grundgebühr Strom monatlich eingeben"_s);
  addVatLine(Frame13, u"MwSt"_s, txtMwStS, Meter::Day);
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
  addStartMonthLine(Frame13, lblStartmonatS, cmdBeginnS);
}

void ElectricityPage::buildResult() {
  result_->addButton(button(cmdDiagrammStrom, u"Strom"_s, u"Diagramm Verbrauch Strom"_s));
  button(cmdDiagrammNachtstrom, u"Nachtstrom"_s, u"Diagramm Verbrauch Nachtstrom"_s);
  result_->addButton(Frame22);
  result_->addButton(comparisonButton(cmdDiagrVergleich));
}

void ElectricityPage::bindFields() {
  editor().bindStartReading(txtAnfStandST, Meter::Day);
  editor().bindStartReading(txtAnfStandSN, Meter::Night);
  editor().bindPrice(txtTPreis, Meter::Day);
  editor().bindBaseFee(txtGrundgebS, Meter::Day);
  editor().bindVat(txtMwStS, Meter::Day);
  editor().bind({txtKwImJahrFrei, EntryKind::WholeKwh,
                 [](const FieldValues& values) { return orZero(values.freeKwh); },
                 [this](auto value) { return editor().session().storeFreeKwh(value); }});
}

void ElectricityPage::bindDate() {
  txtDatumStrom->leaveUndoToWindow();
  connect(txtDatumStrom, &QLineEdit::textEdited, this, [this](const QString& typed) {
    if (dateRefused_) retypeDate();
    if (isWholeStartDate(typed.toStdString())) storeDate();
  });
  connect(txtDatumStrom, &widgets::EntryField::entered, this, [this] {
    if (dateRefused_) return;
    if (isStartDate(txtDatumStrom->text().toStdString()))
      storeDate();
    else
      refuseDate();
    editor().endEntry();
  });
}

void ElectricityPage::storeDate() {
  const std::string typed = txtDatumStrom->text().toStdString();
  dateRefused_ = false;
  widgets::markField(txtDatumStrom, widgets::Tone::Error, {});
  if (!editor().type(txtDatumStrom, [&] { return editor().session().storeStartDate(typed); }))
    showDate();
}

void ElectricityPage::refuseDate() {
  editor().refuse(
      u"Ungültige Datumseingabe! \nBitte geben Sie ein gültiges Datum ein.\n"
      u"Beispiel:  01.01.2009"_s,
      u"Eingabe Datum"_s, dialogs::Icon::Warning);
  if (txtDatumStrom->text().isEmpty()) return showDate();
  // What was typed stays, to be mended rather than typed anew.
  widgets::markField(txtDatumStrom, widgets::Tone::Error, u"Diesen Tag gibt es nicht."_s);
  dateRefused_ = true;
  QTimer::singleShot(0, txtDatumStrom, [this] { txtDatumStrom->setFocus(Qt::TabFocusReason); });
}

// What was refused is a change again when it is typed again, be it the same.
void ElectricityPage::retypeDate() {
  txtDatumStrom->finish();
  dateRefused_ = false;
  widgets::markField(txtDatumStrom, widgets::Tone::Error, {});
}

void ElectricityPage::pointAtStartReading(bool asked) {
  if (asked) ensureWidgetVisible(txtAnfStandST);
  QPalette ground;
  if (asked)
    ground.setColor(QPalette::Base, widgets::tinted(txtAnfStandST->palette(), QPalette::Base,
                                                    widgets::Tone::Accent));
  txtAnfStandST->setPalette(ground);
}

void ElectricityPage::showDate() {
  dateRefused_ = false;
  widgets::markField(txtDatumStrom, widgets::Tone::Error, {});
  txtDatumStrom->setText(QString::fromStdString(editor().values().startDate));
}

void ElectricityPage::showValues() {
  const FieldValues& values = editor().values();
  showMeter(dayFields_, Meter::Day);
  showMeter(nightFields_, Meter::Night);
  txtNPreis->showText(priceText(values.prices[Meter::Night]));
  result_->showTotal(values, Utility::Electricity);
  if (!dateRefused_ && (!txtDatumStrom->hasFocus() || !txtDatumStrom->isModified())) showDate();
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
  placeMeters({day_, shown ? FrameNachtstrom : nullptr, Frame13, months, result_});
}

}  // namespace yearbook
