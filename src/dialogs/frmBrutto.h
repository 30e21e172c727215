#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <functional>
#include <optional>

#include "base/GrossNet.h"
#include "dialogs/Window.h"
#include "widgets/NumberField.h"
#include "widgets/control.h"

namespace dialogs {

// A net figure that a bill shows with VAT: what it is and how it stands there.
struct GrossFigure {
  enum class Period { None, Month, Year };
  QString name;                    // "Grundgebühr im Jahr, Vertrag"
  QString unit;                    // "Euro", without a word about VAT
  Period period = Period::None;    // what the field's figure is for; None for unit prices
  std::optional<double> vat = {};  // percent, of the year
  // Enters the rate that the year lacks, or tells why it could not be stored; needed without vat.
  std::function<void(double)> storeVat = {};
};

}  // namespace dialogs

// "Brutto umrechnen": the figure as the bill shows it goes in, the net one comes out and may be
// taken. The rate is the year's; one that the year lacks is typed, and entered there if wanted.
class frmBrutto final : public dialogs::Window {
  Q_OBJECT
 public:
  frmBrutto(const dialogs::Services& services, dialogs::GrossFigure figure, QWidget* parent);

  // As far as it can be told from what is typed.
  std::optional<double> net() const;
  // The rate that the year is to get; nothing when it has one or is not to get this one.
  std::optional<double> newVat() const;

  QLabel* const lblWofuer = widgets::control<QLabel>(this, "lblWofuer");
  QRadioButton* const optMonat = widgets::control<QRadioButton>(this, "optMonat");
  QRadioButton* const optJahr = widgets::control<QRadioButton>(this, "optJahr");
  widgets::NumberField* const txtBrutto = widgets::control<widgets::NumberField>(this, "txtBrutto");
  widgets::NumberField* const txtMwSt = widgets::control<widgets::NumberField>(this, "txtMwSt");
  QCheckBox* const chkMwStEintragen = widgets::control<QCheckBox>(this, "chkMwStEintragen");
  QLineEdit* const txtNetto = widgets::control<QLineEdit>(this, "txtNetto");
  QLabel* const lblHinweis = widgets::control<QLabel>(this, "lblHinweis");
  QPushButton* const cmdUebernehmen = widgets::control<QPushButton>(this, "cmdUebernehmen");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

 private:
  void setTexts();
  void arrange();
  QLayout* buttonRow();
  void showNet();
  base::FeeShare share() const;

  const dialogs::GrossFigure figure_;
};
