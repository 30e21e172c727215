#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QPushButton>
#include <array>

#include "reports/YearReport.h"
#include "reports/ui/FlexGrid.h"
#include "reports/ui/OutputNote.h"
#include "reports/ui/PrintActions.h"
#include "widgets/control.h"

namespace reports {

// The print page of the main window: the detailed months of the ticked meters.
class DetailPage final : public QFrame {
  Q_OBJECT
 public:
  DetailPage(const dialogs::Services& services, const yearbook::YearSession& year,
             QWidget* parent = nullptr);

  void cmdTabelleClick();
  void Command11Click();
  void Command10Click();
  void cmdVorschauAlleClick();
  void cmdCsvClick();
  void cmdPdfClick();

  QCheckBox* const chkStrom = widgets::control<QCheckBox>(this, "chkStrom");
  QCheckBox* const chkStromNS = widgets::control<QCheckBox>(this, "chkStromNS");
  QCheckBox* const chkWasser = widgets::control<QCheckBox>(this, "chkWasser");
  QCheckBox* const chkAbwasser = widgets::control<QCheckBox>(this, "chkAbwasser");
  QCheckBox* const chkGas = widgets::control<QCheckBox>(this, "chkGas");
  QPushButton* const cmdTabelle = widgets::control<QPushButton>(this, "cmdTabelle");
  FlexGrid* const grdDruckAlle = widgets::control<FlexGrid>(this, "grdDruckAlle");
  QPushButton* const Command11 = widgets::control<QPushButton>(this, "Command11");
  QPushButton* const cmdVorschauAlle = widgets::control<QPushButton>(this, "cmdVorschauAlle");
  QPushButton* const Command10 = widgets::control<QPushButton>(this, "Command10");
  QPushButton* const cmdPdf = widgets::control<QPushButton>(this, "cmdPdf");
  OutputNote* const lblAusgabe = widgets::control<OutputNote>(this, "lblAusgabe");
  QPushButton* const cmdCsv = widgets::control<QPushButton>(this, "cmdCsv");
  QPushButton* const cmdKopierenAlle = widgets::control<QPushButton>(this, "cmdKopierenAlle");

  PrinterChoice printerChoice = choosePrinter;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  PerMeter<QCheckBox*> boxes() const;
  MeterChoice ticked() const;
  void setCaptions();
  void buildLayout();
  void followNightTariff();
  std::array<QPushButton*, 6> outputs() const;
  void boxTicked();
  bool followTicks();
  GridPrinter pages() const;
  std::string htmlPage() const;

  const dialogs::Services& services_;
  const yearbook::YearSession& year_;
  bool nightShown_ = true;
  bool outdated_ = false;  // something was ticked that the table does not show yet
};

}  // namespace reports
