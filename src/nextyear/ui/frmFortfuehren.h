#pragma once

#include <QRadioButton>
#include <QTreeWidget>

#include "nextyear/CarryOver.h"
#include "readings/ui/EntryWindow.h"
#include "readings/ui/MarkedLabel.h"
#include "widgets/control.h"

// What an empty year takes from the one before: groups to tick, with what would be stored.
class frmFortfuehren final : public readings::EntryWindow {
  Q_OBJECT
 public:
  frmFortfuehren(const dialogs::Services& services, yearbook::YearSession& session,
                 nextyear::Plan plan, QWidget* parent);

  QLabel* const lblTitel = widgets::control<QLabel>(this, "lblTitel");
  readings::MarkedLabel* const lblUnveraendert =
      widgets::control<readings::MarkedLabel>(this, "lblUnveraendert");
  QTreeWidget* const trvAngaben = widgets::control<QTreeWidget>(this, "trvAngaben");
  QLabel* const lblAbschlaege = widgets::control<QLabel>(this, "lblAbschlaege");
  QRadioButton* const optWieZuletzt = widgets::control<QRadioButton>(this, "optWieZuletzt");
  QRadioButton* const optPassend = widgets::control<QRadioButton>(this, "optPassend");
  readings::MarkedLabel* const lblHinweis =
      widgets::control<readings::MarkedLabel>(this, "lblHinweis");
  QPushButton* const cmdHilfe = widgets::control<QPushButton>(this, "cmdHilfe");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

 private:
  void setTexts();
  void arrange();
  void showLines();
  void showLine(QTreeWidgetItem* head, const nextyear::Line& line);
  void makeQuiet(QTreeWidgetItem* item, int column);
  nextyear::Choice choice() const;
  void takeOver();

  const nextyear::Plan plan_;
  nextyear::Choice shown_;
};
