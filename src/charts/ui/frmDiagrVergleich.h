#pragma once

#include <QShowEvent>
#include <optional>

#include "charts/YearComparison.h"
#include "charts/ui/ChartWindow.h"

// The open year beside another one, month by calendar month. Asks for the other year when it is
// first shown; without one it shows the open year alone.
class frmDiagrVergleich final : public charts::ChartWindow {
  Q_OBJECT
 public:
  frmDiagrVergleich(const dialogs::Services& services, const yearbook::YearSession& year,
                    QWidget* parent = nullptr);

  // Five members, 1 to 5.
  QRadioButton* Option1(int index) const {
    return selections_.at(static_cast<std::size_t>(index - charts::kFirstComparison));
  }
  QPushButton* const cmdAnderesJahr = widgets::control<QPushButton>(this, "cmdAnderesJahr");
  QAction* const mnuAnderesJahr = new QAction(this);

  // "Anderes Jahr öffnen"; cancelling leaves the chart as it is.
  void cmdAnderesJahrClick();
  // Once the other year has been asked for and electricity compared, goes on with the main meter of
  // that utility.
  void goOnWith(yearbook::Utility utility);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void load();
  charts::YearData openYear() const;
  void draw() override;

  const yearbook::YearSession& year_;
  std::optional<charts::YearData> otherYear_;
  std::array<QRadioButton*, charts::kLastComparison> selections_{};
  int index_ = charts::kFirstComparison;
  int firstIndex_ = charts::kFirstComparison;
  bool asked_ = false;
};
