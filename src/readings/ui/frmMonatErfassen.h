#pragma once

#include <QButtonGroup>
#include <QToolButton>
#include <vector>

#include "readings/ui/MeterRow.h"
#include "widgets/control.h"

class QGridLayout;

// One sheet for a month: all meters of the household, taken over at once.
class frmMonatErfassen final : public readings::EntryWindow {
  Q_OBJECT
 public:
  frmMonatErfassen(const dialogs::Services& services, yearbook::YearSession& session,
                   QWidget* parent);

  const widgets::ControlArray<QToolButton, yearbook::kMonths> optMonat{this, "optMonat"};
  readings::MarkedLabel* const lblAbgelesen =
      widgets::control<readings::MarkedLabel>(this, "lblAbgelesen");
  QLabel* const lblMonat = widgets::control<QLabel>(this, "lblMonat");
  readings::MarkedLabel* const lblHilfe = widgets::control<readings::MarkedLabel>(this, "lblHilfe");
  QLabel* const lblSumme = widgets::control<QLabel>(this, "lblSumme");
  QPushButton* const cmdWeitere = widgets::control<QPushButton>(this, "cmdWeitere");
  widgets::EntryField* const txtAnmerkung =
      widgets::control<widgets::EntryField>(this, "txtAnmerkung");
  readings::MarkedLabel* const lblZustand =
      widgets::control<readings::MarkedLabel>(this, "lblZustand");
  QPushButton* const cmdHilfe = widgets::control<QPushButton>(this, "cmdHilfe");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

  readings::MeterRow* row(yearbook::Meter meter) const { return rows_[meter]; }

 protected:
  bool mayClose() override;

 private:
  void arrange();
  QLayout* arrangeMonths();
  QLayout* arrangeTitle();
  QLayout* arrangeMeters();
  QLayout* arrangeRemark();
  QLayout* arrangeButtons();
  void arrangeHeads(QGridLayout* grid);
  void connectControls();
  void chooseMonth(int position);
  void focusFirstField();
  void load();
  void showMeters();
  void showOutcomes();
  void markRead();
  bool allWhole();
  bool takeOver();

  int positionOf(yearbook::Meter meter) const;
  bool isRead(int month) const;
  bool isInUse(yearbook::Meter meter) const;
  int firstOpenMonth() const;
  std::vector<readings::MeterEntries> entries() const;

  yearbook::PerMeter<readings::MeterRow*> rows_{};
  QLabel* head_[2]{};
  int month_ = 1;  // calendar month
  bool allMeters_ = false;
  bool dirty_ = false;
  QString loadedRemark_;
};
