#pragma once

#include <QFrame>
#include <QPushButton>

#include "reports/YearReport.h"
#include "reports/ui/FlexGrid.h"
#include "reports/ui/OutputNote.h"
#include "reports/ui/PrintActions.h"
#include "reports/ui/ResultCards.h"
#include "widgets/control.h"

namespace reports {

// The overview page of the main window: the year's bill of all utilities in one table, with
// printing and export beside it and a card per utility above. The table is built anew
// each time the page is shown.
class OverviewPage final : public QFrame {
  Q_OBJECT
 public:
  OverviewPage(const dialogs::Services& services, const yearbook::YearSession& year,
               QWidget* parent = nullptr);

  void rebuild();
  void cmdDruckenClick();
  void cmdExpHtmlClick();
  void cmdVorschauClick();
  void cmdPdfClick();

  FlexGrid* const grdDruck = widgets::control<FlexGrid>(this, "grdDruck");
  QPushButton* const cmdDrucken = widgets::control<QPushButton>(this, "cmdDrucken");
  QPushButton* const cmdExpHtml = widgets::control<QPushButton>(this, "cmdExpHtml");
  QPushButton* const cmdVorschau = widgets::control<QPushButton>(this, "cmdVorschau");
  QPushButton* const cmdPdf = widgets::control<QPushButton>(this, "cmdPdf");
  // Why the table's last line differs from the cards of a year that is under way, where there is
  // room for it.
  QLabel* const lblStand = widgets::control<QLabel>(this, "lblStand");
  OutputNote* const lblAusgabe = widgets::control<OutputNote>(this, "lblAusgabe");
  QPushButton* const cmdKopieren = widgets::control<QPushButton>(this, "cmdKopieren");
  ResultCards* const fraErgebnisse = new ResultCards(this);

  PrinterChoice printerChoice = choosePrinter;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildLayout();
  void showStand();
  GridPrinter pages() const;
  std::string htmlPage() const;

  const dialogs::Services& services_;
  const yearbook::YearSession& year_;
  bool underWay_ = false;
};

}  // namespace reports
