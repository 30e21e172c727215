#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <functional>
#include <memory>

#include "dialogs/Window.h"
#include "dialogs/clsPrintDialog.h"
#include "projection/Projection.h"
#include "widgets/DateField.h"
#include "widgets/control.h"
#include "yearbook/YearSession.h"

// Extends the cost of the day tariff so far to a year of 365 days.
class frmHochrechnung final : public dialogs::Window {
  Q_OBJECT
 public:
  frmHochrechnung(const dialogs::Services& services, yearbook::YearSession& year,
                  QWidget* parent = nullptr);

  void Calculate();
  void Print();

  QLabel* const Label2 = widgets::control<QLabel>(this, "Label2");
  QGroupBox* const fraStartDatum = widgets::control<QGroupBox>(this, "fraStartDatum");
  QLabel* const lblHinweis = widgets::control<QLabel>(this, "lblHinweis");
  widgets::DateField* const txtDatumStrom =
      widgets::control<widgets::DateField>(this, "txtDatumStrom");
  widgets::DateField* const Text1 = widgets::control<widgets::DateField>(this, "Text1");
  QLineEdit* const txtAnzTagBisher = widgets::control<QLineEdit>(this, "txtAnzTagBisher");
  QLineEdit* const txtVerbrBisher = widgets::control<QLineEdit>(this, "txtVerbrBisher");
  QLineEdit* const txtDurchschnitt = widgets::control<QLineEdit>(this, "txtDurchschnitt");
  QLineEdit* const txtPreisJeTg = widgets::control<QLineEdit>(this, "txtPreisJeTg");
  QLineEdit* const lblNetto = widgets::control<QLineEdit>(this, "lblNetto");
  QLineEdit* const lblInklMwSt = widgets::control<QLineEdit>(this, "lblInklMwSt");
  QLabel* const Label8 = widgets::control<QLabel>(this, "Label8");
  QLineEdit* const lblInklGrundgeb = widgets::control<QLineEdit>(this, "lblInklGrundgeb");
  QLabel* const lblFehlt = widgets::control<QLabel>(this, "lblFehlt");
  QCheckBox* const chkGrundgeb = widgets::control<QCheckBox>(this, "chkGrundgeb");
  QPushButton* const Command12 = widgets::control<QPushButton>(this, "Command12");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");

  // Where the window is printed; the system's dialog unless a test puts another in its place.
  std::function<std::unique_ptr<clsPrintDialog>()> makePrintDialog;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void done(int result) override;

 private:
  std::array<QLineEdit*, 7> displayFields() const;
  void buildForm();
  void buildLayout();
  void setTexts();
  projection::ProjectionOutcome calculate();
  void calculateUnasked();
  void focusFault(const projection::ProjectionOutcome& outcome);
  void goTo(widgets::DateField* field);
  void fieldLeft(widgets::DateField* field);
  void storeStartDate();
  void showStartDate();
  void warn(const std::string& message);
  void showFigures(const projection::ProjectionFigures& figures);
  void showBaseFee(bool shown);
  QString yearName() const;
  QString pageText() const;
  void printOn(QPrinter& printer);

  yearbook::YearSession& year_;
  bool calculatedOnce_ = false;
  bool startLeft_ = false;  // and not looked at since
  bool escaped_ = false;
};
