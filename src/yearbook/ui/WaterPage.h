#pragma once

#include "yearbook/ui/UtilityPage.h"

namespace yearbook {

// Water with waste water.
class WaterPage final : public UtilityPage {
  Q_OBJECT
 public:
  WaterPage(QWidget* parent, YearEditor& editor);

  // Water.
  widgets::NumberField* const txtAnfStandW =
      widgets::control<widgets::NumberField>(content(), "txtAnfStandW");
  DerivedField* const txtEndStandW = widgets::control<DerivedField>(content(), "txtEndStandW");
  DerivedField* const txtVerbrauchW = widgets::control<DerivedField>(content(), "txtVerbrauchW");
  DerivedField* const txtPreisW = widgets::control<DerivedField>(content(), "txtPreisW");
  DerivedField* const txtBetragW = widgets::control<DerivedField>(content(), "txtBetragW");
  DerivedField* const txtMwstWasser = widgets::control<DerivedField>(content(), "txtMwstWasser");
  DerivedField* const txtSummeW = widgets::control<DerivedField>(content(), "txtSummeW");
  QPushButton* const cmdEingabeVerbrauchW =
      widgets::control<QPushButton>(content(), "cmdEingabeVerbrauchW");
  QPushButton* const cmdPreisJeEinheitW =
      widgets::control<QPushButton>(content(), "cmdPreisJeEinheitW");

  // Waste water.
  widgets::NumberField* const txtAnfStandAbW =
      widgets::control<widgets::NumberField>(content(), "txtAnfStandAbW");
  QPushButton* const cmdWieWasser = widgets::control<QPushButton>(content(), "cmdWieWasserAnf");
  DerivedField* const txtEndStandAbW = widgets::control<DerivedField>(content(), "txtEndStandAbW");
  DerivedField* const txtVerbrauchAbW =
      widgets::control<DerivedField>(content(), "txtVerbrauchAbW");
  DerivedField* const txtPreisAbW = widgets::control<DerivedField>(content(), "txtPreisAbW");
  DerivedField* const txtBetragAbW = widgets::control<DerivedField>(content(), "txtBetragAbW");
  DerivedField* const txtMwstAbwasser =
      widgets::control<DerivedField>(content(), "txtMwstAbwasser");
  DerivedField* const txtSummeAbW = widgets::control<DerivedField>(content(), "txtSummeAbW");
  QPushButton* const cmdEingabeVerbrauchAbW =
      widgets::control<QPushButton>(content(), "cmdEingabeVerbrauchAbW");
  QPushButton* const cmdPreisJeEinheitAbW =
      widgets::control<QPushButton>(content(), "cmdPreisJeEinheitAbW");

  // Contract.
  widgets::NumberField* const txtGrundgebW =
      widgets::control<widgets::NumberField>(content(), "txtGrundgebW");
  QPushButton* const cmdWMonatl = widgets::control<QPushButton>(content(), "cmdWMonatl");
  widgets::NumberField* const txtMwStW =
      widgets::control<widgets::NumberField>(content(), "txtMwStW");
  DerivedField* const txtw = widgets::control<DerivedField>(content(), "txtw");
  widgets::NumberField* const txtGrundgebAbW =
      widgets::control<widgets::NumberField>(content(), "txtGrundgebAbW");
  QPushButton* const cmdWWMonatl = widgets::control<QPushButton>(content(), "cmdWWMonatl");
  widgets::NumberField* const txtMwStAbW =
      widgets::control<widgets::NumberField>(content(), "txtMwStAbW");
  DerivedField* const txtaw = widgets::control<DerivedField>(content(), "txtaw");
  QLabel* const lblStartmonatW = widgets::control<QLabel>(content(), "lblStartmonatW");
  QPushButton* const cmdBeginnW = widgets::control<QPushButton>(content(), "cmdBeginnW");

  // Result.
  DerivedField* const txtSum1W = widgets::control<DerivedField>(content(), "txtSum1W");
  QPushButton* const cmdDiagrammWasser =
      widgets::control<QPushButton>(content(), "cmdDiagrammWasser");
  QPushButton* const cmdDiagrammAbwasser =
      widgets::control<QPushButton>(content(), "cmdDiagrammAbwasser");
  QPushButton* const cmdDiagrammWW = widgets::control<QPushButton>(content(), "cmdDiagrammWW");
  QPushButton* const cmdDiagrVergleichW =
      widgets::control<QPushButton>(content(), "cmdDiagrVergleichW");

  MonthTable* const months;

 private:
  void buildMeters();
  void buildContract();
  QWidget* baseFeeVat(const char* name, DerivedField* amount);
  void bindFields();
  void showValues();

  const MeterFrame waterFields_{txtAnfStandW, txtEndStandW,  txtVerbrauchW, txtPreisW,
                                txtBetragW,   txtMwstWasser, txtSummeW};
  const MeterFrame wasteWaterFields_{txtAnfStandAbW, txtEndStandAbW,  txtVerbrauchAbW, txtPreisAbW,
                                     txtBetragAbW,   txtMwstAbwasser, txtSummeAbW};
  FigureGroup* water_;
  FigureGroup* wasteWater_;
  FigureGroup* contract_;
  ResultGroup* result_;
};

}  // namespace yearbook
