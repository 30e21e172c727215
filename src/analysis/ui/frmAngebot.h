#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "analysis/Tariffs.h"
#include "dialogs/Window.h"
#include "widgets/DateField.h"
#include "widgets/NumberField.h"
#include "widgets/control.h"

// One offer as it stands in the letter: entered afresh, or changed.
class frmAngebot final : public dialogs::Window {
  Q_OBJECT
 public:
  frmAngebot(const analysis::Offer& offer, const dialogs::Services& services, QWidget* parent);

  QLineEdit* const txtName = widgets::control<QLineEdit>(this, "txtName");
  QComboBox* const cboSteuer = widgets::control<QComboBox>(this, "cboSteuer");
  widgets::NumberField* const txtPreis = widgets::control<widgets::NumberField>(this, "txtPreis");
  widgets::NumberField* const txtNachtpreis =
      widgets::control<widgets::NumberField>(this, "txtNachtpreis");
  widgets::NumberField* const txtGrundgebuehr =
      widgets::control<widgets::NumberField>(this, "txtGrundgebuehr");
  QComboBox* const cboGebuehr = widgets::control<QComboBox>(this, "cboGebuehr");
  widgets::NumberField* const txtBonus = widgets::control<widgets::NumberField>(this, "txtBonus");
  widgets::DateField* const txtGarantie = widgets::control<widgets::DateField>(this, "txtGarantie");
  widgets::DateField* const txtEnde = widgets::control<widgets::DateField>(this, "txtEnde");
  QLabel* const lblFehler = widgets::control<QLabel>(this, "lblFehler");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdAbbrechen = widgets::control<QPushButton>(this, "cmdAbbrechen");

  analysis::Offer offer() const;

 private:
  void buildLayout();
  void show(const analysis::Offer& offer);
  // What is wrong, and the field; "" when nothing is.
  QString problem(QWidget** field) const;
  void takeOver();

  analysis::Energy energy_;
};
