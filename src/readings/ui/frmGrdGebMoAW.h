#pragma once

#include "readings/ui/BaseFeeWindow.h"

class frmGrdGebMoAW final : public readings::BaseFeeWindow {
  Q_OBJECT
 public:
  frmGrdGebMoAW(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : BaseFeeWindow(yearbook::Meter::WasteWater, services, session, parent) {}
};
