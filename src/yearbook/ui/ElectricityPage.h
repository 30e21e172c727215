#pragma once

#include "widgets/DateField.h"
#include "yearbook/ui/UtilityPage.h"

namespace yearbook {

// "Zählerstände und Preise Strom": day and night tariff.
class ElectricityPage final : public UtilityPage {
  Q_OBJECT
 public:
  ElectricityPage(QWidget* parent, YearEditor& editor);

  // Day tariff.
  widgets::NumberField* const txtAnfStandST =
      widgets::control<widgets::NumberField>(content(), "txtAnfStandST");
  DerivedField* const txtEndStandST = widgets::control<DerivedField>(content(), "txtEndStandST");
  DerivedField* const txtVerbrauchTS = widgets::control<DerivedField>(content(), "txtVerbrauchTS");
  widgets::NumberField* const txtTPreis =
      widgets::control<widgets::NumberField>(content(), "txtTPreis");
  DerivedField* const txtBetragTS = widgets::control<DerivedField>(content(), "txtBetragTS");
  DerivedField* const txtMwStTS = widgets::control<DerivedField>(content(), "txtMwStTS");
  DerivedField* const txtSummeS = widgets::control<DerivedField>(content(), "txtSummeS");
  QPushButton* const cmdEingabeVerbrauchS =
      widgets::control<QPushButton>(content(), "cmdEingabeVerbrauchS");
  QPushButton* const cmdPreisJeEinheitS =
      widgets::control<QPushButton>(content(), "cmdPreisJeEinheitS");

  // Night tariff.
  widgets::NumberField* const txtAnfStandSN =
      widgets::control<widgets::NumberField>(content(), "txtAnfStandSN");
  DerivedField* const txtEndStandSN = widgets::control<DerivedField>(content(), "txtEndStandSN");
  DerivedField* const txtVerbrauchNS = widgets::control<DerivedField>(content(), "txtVerbrauchNS");
  DerivedField* const txtNPreis = widgets::control<DerivedField>(content(), "txtNPreis");
  DerivedField* const txtBetragNS = widgets::control<DerivedField>(content(), "txtBetragNS");
  DerivedField* const txtMwStNSt = widgets::control<DerivedField>(content(), "txtMwStNSt");
  DerivedField* const txtSummeNS = widgets::control<DerivedField>(content(), "txtSummeNS");
  QPushButton* const cmdEingabeVerbrauchNS =
      widgets::control<QPushButton>(content(), "cmdEingabeVerbrauchNS");
  QPushButton* const cmdPreisJeEinheitSN =
      widgets::control<QPushButton>(content(), "cmdPreisJeEinheitSN");

  // Contract.
  widgets::NumberField* const txtGrundgebS =
      widgets::control<widgets::NumberField>(content(), "txtGrundgebS");
  QPushButton* const cmdMonatlStrom = widgets::control<QPushButton>(content(), "cmdMonatlStrom");
  widgets::NumberField* const txtMwStS =
      widgets::control<widgets::NumberField>(content(), "txtMwStS");
  widgets::DateField* const txtDatumStrom =
      widgets::control<widgets::DateField>(content(), "txtDatumStrom");
  QLabel* const lblStartmonatS = widgets::control<QLabel>(content(), "lblStartmonatS");
  QPushButton* const cmdBeginnS = widgets::control<QPushButton>(content(), "cmdBeginnS");
  widgets::NumberField* const txtKwImJahrFrei =
      widgets::control<widgets::NumberField>(content(), "txtKwImJahrFrei");
  QLabel* const lblPauschale = widgets::control<QLabel>(content(), "lblPauschale");

  // Result.
  DerivedField* const txtIstwertS = widgets::control<DerivedField>(content(), "txtIstwertS");
  QPushButton* const cmdDiagrammStrom =
      widgets::control<QPushButton>(content(), "cmdDiagrammStrom");
  QPushButton* const cmdDiagrammNachtstrom =
      widgets::control<QPushButton>(content(), "cmdDiagrammNachtstrom");
  QPushButton* const cmdDiagrVergleich =
      widgets::control<QPushButton>(content(), "cmdDiagrVergleich");

  // Everything of the night tariff, shown and hidden together.
  FigureGroup* const FrameNachtstrom;
  QWidget* const Frame22;
  QWidget* const Frame23;
  // The contract: moves into the place of the hidden night tariff.
  FigureGroup* const Frame13;
  MonthTable* const months;

  // While it is asked for: the day tariff's start reading in sight and on a tinted ground.
  void pointAtStartReading(bool asked);

  bool nightShown() const { return !FrameNachtstrom->isHidden(); }

 private:
  void buildMeters();
  void buildContract();
  void buildResult();
  void bindFields();
  void bindDate();
  void storeDate();
  void refuseDate();
  void retypeDate();
  void showDate();
  void showValues();
  void showNight(bool shown);

  const MeterFrame dayFields_{txtAnfStandST, txtEndStandST, txtVerbrauchTS, txtTPreis,
                              txtBetragTS,   txtMwStTS,     txtSummeS};
  const MeterFrame nightFields_{txtAnfStandSN, txtEndStandSN, txtVerbrauchNS, txtNPreis,
                                txtBetragNS,   txtMwStNSt,    txtSummeNS};
  FigureGroup* day_;
  ResultGroup* result_;
  QLabel* freeKwhLabel_ = nullptr;
  bool dateRefused_ = false;  // what stands in the field is not what is stored
};

}  // namespace yearbook
