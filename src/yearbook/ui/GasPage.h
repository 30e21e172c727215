#pragma once

#include "yearbook/ui/UtilityPage.h"

namespace yearbook {

// Gas: read in m³, billed in kWh.
class GasPage final : public UtilityPage {
  Q_OBJECT
 public:
  GasPage(QWidget* parent, YearEditor& editor);

  widgets::NumberField* const txtAnfStandG =
      widgets::control<widgets::NumberField>(content(), "txtAnfStandG");
  DerivedField* const txtEndStandG = widgets::control<DerivedField>(content(), "txtEndStandG");
  DerivedField* const txtVerbrauchG = widgets::control<DerivedField>(content(), "txtVerbrauchG");
  widgets::NumberField* const txtFaktor =
      widgets::control<widgets::NumberField>(content(), "txtFaktor");
  DerivedField* const txtGaskWh = widgets::control<DerivedField>(content(), "txtGaskWh");
  widgets::NumberField* const txtPreisGas =
      widgets::control<widgets::NumberField>(content(), "txtPreisGas");
  DerivedField* const txtBetragG = widgets::control<DerivedField>(content(), "txtBetragG");
  DerivedField* const txtMwStGas = widgets::control<DerivedField>(content(), "txtMwStGas");
  DerivedField* const txtSummeG = widgets::control<DerivedField>(content(), "txtSummeG");
  QPushButton* const cmdEingabeVerbrauchG =
      widgets::control<QPushButton>(content(), "cmdEingabeVerbrauchG");
  QPushButton* const cmdPreisJeEinheitG =
      widgets::control<QPushButton>(content(), "cmdPreisJeEinheitG");

  // Contract.
  widgets::NumberField* const txtGrundgebG =
      widgets::control<widgets::NumberField>(content(), "txtGrundgebG");
  QPushButton* const cmdMonatlGas = widgets::control<QPushButton>(content(), "cmdMonatlGas");
  widgets::NumberField* const txtMwStG =
      widgets::control<widgets::NumberField>(content(), "txtMwStG");
  QLabel* const lblStartmonatG = widgets::control<QLabel>(content(), "lblStartmonatG");
  QPushButton* const cmdBeginnG = widgets::control<QPushButton>(content(), "cmdBeginnG");

  // Result.
  DerivedField* const txtSum2G = widgets::control<DerivedField>(content(), "txtSum2G");
  QPushButton* const cmdDiagrammGas = widgets::control<QPushButton>(content(), "cmdDiagrammGas");
  QPushButton* const cmdDiagrVergleichG =
      widgets::control<QPushButton>(content(), "cmdDiagrVergleichG");

  MonthTable* const months;

 private:
  void buildMeter();
  void buildContract();
  void bindFields();
  void showValues();

  FigureGroup* gas_;
  FigureGroup* contract_;
  ResultGroup* result_;
};

}  // namespace yearbook
