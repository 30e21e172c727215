#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QTableWidget>
#include <QToolButton>

#include "readingbook/BookOfYear.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/MarkedLabel.h"
#include "widgets/DateField.h"
#include "widgets/control.h"

class QStackedLayout;
class QVBoxLayout;

// The reading book of the open year: dated readings of a meter on the left, what the months get
// from them on the right. An entry is stored at once; the months get what is ticked.
class frmAblesebuch final : public readings::EntryWindow {
  Q_OBJECT
 public:
  frmAblesebuch(const dialogs::Services& services, yearbook::YearSession& session, QWidget* parent);

  const widgets::ControlArray<QToolButton, 5> optZaehler{this, "optZaehler"};
  QTableWidget* const grdAblesungen = widgets::control<QTableWidget>(this, "grdAblesungen");
  QTableWidget* const grdMonate = widgets::control<QTableWidget>(this, "grdMonate");
  QLabel* const lblAblesungen = widgets::control<QLabel>(this, "lblAblesungen");
  widgets::DateField* const txtDatum = widgets::control<widgets::DateField>(this, "txtDatum");
  widgets::NumberField* const txtStand = widgets::control<widgets::NumberField>(this, "txtStand");
  QLabel* const lblEinheit = widgets::control<QLabel>(this, "lblEinheit");
  QCheckBox* const chkWechsel = widgets::control<QCheckBox>(this, "chkWechsel");
  QLabel* const lblNeuerAnfang = widgets::control<QLabel>(this, "lblNeuerAnfang");
  widgets::NumberField* const txtNeuerAnfang =
      widgets::control<widgets::NumberField>(this, "txtNeuerAnfang");
  widgets::EntryField* const txtAnmerkung =
      widgets::control<widgets::EntryField>(this, "txtAnmerkung");
  // In the place of the table while the meter has no reading.
  QPushButton* const cmdErste = widgets::control<QPushButton>(this, "cmdErste");
  QPushButton* const cmdEintragen = widgets::control<QPushButton>(this, "cmdEintragen");
  QPushButton* const cmdLoeschen = widgets::control<QPushButton>(this, "cmdLoeschen");
  readings::MarkedLabel* const lblFehler =
      widgets::control<readings::MarkedLabel>(this, "lblFehler");
  readings::MarkedLabel* const lblVerteilung =
      widgets::control<readings::MarkedLabel>(this, "lblVerteilung");
  readings::MarkedLabel* const lblZustand =
      widgets::control<readings::MarkedLabel>(this, "lblZustand");
  QPushButton* const cmdHilfe = widgets::control<QPushButton>(this, "cmdHilfe");
  QPushButton* const cmdTabelle = widgets::control<QPushButton>(this, "cmdTabelle");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

  readingbook::Meter meter() const;

 private:
  void setTexts();
  void arrange();
  QVBoxLayout* arrangeEntries();
  QWidget* makeEmptyPage();
  QVBoxLayout* arrangeMonths();
  void connectControls();

  void load();
  void showMeter();
  void showEntries();
  void showMonths();
  void addMonthLine(int line, const QString& name, const readingbook::PlannedReading& reading,
                    bool ticked);
  void monthTicked(QTableWidgetItem* item);
  void showState();
  void showProblem(const QString& text);

  void enter();
  void removeSelected();
  void readTable();
  void takeOver();
  std::optional<int> calendarYear(std::optional<base::Date> typed = {}) const;
  readingbook::Taken ticked() const;

  readingbook::ReadingBook book_;
  readingbook::MonthsPlan plan_;
  bool filling_ = false;
  QStackedLayout* pages_ = nullptr;
};
