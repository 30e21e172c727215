#pragma once

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QTreeWidget>

#include "analysis/Tariffs.h"
#include "analysis/ui/ReportWindow.h"
#include "analysis/ui/SceneView.h"
#include "widgets/NumberField.h"

// Offers beside the present contract: what each costs for the household's consumption, where it
// breaks even. Every change of the offers is stored at once in "Tarife.dat".
class frmTarife final : public analysis::ReportWindow {
  Q_OBJECT
 public:
  // open: the year that is open, nullptr where none is.
  frmTarife(const dialogs::Services& services, analysis::Year year,
            const yearbook::YearSession* open, QWidget* parent);

  QButtonGroup* const grpEnergie = new QButtonGroup(this);
  QComboBox* const cboVerbrauch = widgets::control<QComboBox>(this, "cboVerbrauch");
  widgets::NumberField* const txtVerbrauch =
      widgets::control<widgets::NumberField>(this, "txtVerbrauch");
  QLabel* const lblVerbrauch = widgets::control<QLabel>(this, "lblVerbrauch");
  QTreeWidget* const lstAngebote = widgets::control<QTreeWidget>(this, "lstAngebote");
  QPushButton* const cmdNeu = widgets::control<QPushButton>(this, "cmdNeu");
  QPushButton* const cmdAendern = widgets::control<QPushButton>(this, "cmdAendern");
  QPushButton* const cmdLoeschen = widgets::control<QPushButton>(this, "cmdLoeschen");
  QLabel* const lblHinweis = widgets::control<QLabel>(this, "lblHinweis");
  QButtonGroup* const grpDiagramm = new QButtonGroup(this);
  analysis::SceneView* const picKosten = new analysis::SceneView(QStringLiteral("picKosten"), this);

 protected:
  reports::Grid shownTable() const override;
  reports::Grid csvTable() const override;

 private:
  void buildLayout();
  QWidget* buildHead();
  QWidget* buildOfferButtons();
  QWidget* buildChartSwitch();
  void connectControls();
  void chooseEnergy();
  void compare();
  void showTable();
  void showChart();
  analysis::Basis chosenBasis() const;
  // The index of the chosen offer in the file, -1 for none.
  int chosenOffer() const;
  void edit(int index);
  void remove();
  void store(const analysis::OfferFile& changed);

  analysis::YearFolder folder_;
  analysis::Year year_;
  analysis::OfferFile file_;
  std::optional<base::Error> unreadable_;  // the offers cannot be read: nothing is stored over them
  analysis::Energy energy_ = analysis::Energy::Electricity;
  std::vector<std::optional<analysis::Basis>> bases_;
  analysis::Comparison comparison_;
};
