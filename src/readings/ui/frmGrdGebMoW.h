#pragma once

#include "readings/ui/BaseFeeWindow.h"

class frmGrdGebMoW final : public readings::BaseFeeWindow {
  Q_OBJECT
 public:
  frmGrdGebMoW(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : BaseFeeWindow(yearbook::Meter::Water, services, session, parent) {}
};
