#pragma once

#include "readings/ui/BaseFeeWindow.h"

class frmGrdGebMoG final : public readings::BaseFeeWindow {
  Q_OBJECT
 public:
  frmGrdGebMoG(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : BaseFeeWindow(yearbook::Meter::Gas, services, session, parent) {}
};
