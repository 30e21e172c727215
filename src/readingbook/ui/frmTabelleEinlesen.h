#pragma once

#include <QComboBox>
#include <QTableWidget>

#include "readingbook/BookOfYear.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/MarkedLabel.h"
#include "widgets/control.h"

// A table from a file on its way into the reading book: which column is what, and what would come
// of it. Nothing is stored here.
class frmTabelleEinlesen final : public readings::EntryWindow {
  Q_OBJECT
 public:
  frmTabelleEinlesen(const dialogs::Services& services, yearbook::YearSession& session,
                     QWidget* parent);

  // Asks for the file and shows it. False when there is none, or none that can be read.
  bool chooseFile();
  // With the table's readings.
  const readingbook::ReadingBook& book() const { return import_.book; }

  QLabel* const lblDatei = widgets::control<QLabel>(this, "lblDatei");
  readings::MarkedLabel* const lblWas = widgets::control<readings::MarkedLabel>(this, "lblWas");
  QComboBox* const cboDatum = widgets::control<QComboBox>(this, "cboDatum");
  const widgets::ControlArray<QComboBox, 5> cboZaehler{this, "cboZaehler"};
  QTableWidget* const grdVorschau = widgets::control<QTableWidget>(this, "grdVorschau");
  readings::MarkedLabel* const lblErgebnis =
      widgets::control<readings::MarkedLabel>(this, "lblErgebnis");
  QPushButton* const cmdHilfe = widgets::control<QPushButton>(this, "cmdHilfe");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

 private:
  void arrange();
  void offerColumns();
  void showPreview();
  int addLine(const QStringList& texts);
  void showProblem(const readingbook::TableProblem& problem);
  void showEntry(const readingbook::TableEntry& row);
  void showOutcome();

  std::vector<readingbook::TableRow> rows_;
  readingbook::TableColumns columns_;
  readingbook::BookImport import_;
};
