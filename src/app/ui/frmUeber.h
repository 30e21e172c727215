#pragma once

#include <QLabel>

#include "dialogs/Window.h"
#include "widgets/control.h"

// What this program is, which files it reads, where the data lie.
class frmUeber final : public dialogs::Window {
  Q_OBJECT
 public:
  frmUeber(const dialogs::Services& services, QWidget* parent);

  QLabel* const lblProgramm = widgets::control<QLabel>(this, "lblProgramm");
  QLabel* const lblVersion = widgets::control<QLabel>(this, "lblVersion");
  QLabel* const lblQt = widgets::control<QLabel>(this, "lblQt");
  QLabel* const lblFormate = widgets::control<QLabel>(this, "lblFormate");
  QLabel* const lblDatenordner = widgets::control<QLabel>(this, "lblDatenordner");
  QLabel* const lblProgrammordner = widgets::control<QLabel>(this, "lblProgrammordner");
  QPushButton* const cmdOrdner = widgets::control<QPushButton>(this, "cmdOrdner");
  QPushButton* const cmdBericht = widgets::control<QPushButton>(this, "cmdBericht");
  QLabel* const lblKopiert = widgets::control<QLabel>(this, "lblKopiert");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

  // The same and what of the computer may matter, as text for a mail. No figure of the household.
  QString report() const;

 private:
  void setTexts();
  void arrange();
  void openDataFolder();
};
