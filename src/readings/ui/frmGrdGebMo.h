#pragma once

#include "readings/ui/BaseFeeWindow.h"

class frmGrdGebMo final : public readings::BaseFeeWindow {
  Q_OBJECT
 public:
  frmGrdGebMo(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : BaseFeeWindow(yearbook::Meter::Day, services, session, parent) {}
};
