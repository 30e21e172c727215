#pragma once

#include "readings/ui/UnitPriceWindow.h"

class frmPreisJeKubikG final : public readings::UnitPriceWindow {
  Q_OBJECT
 public:
  frmPreisJeKubikG(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : UnitPriceWindow(yearbook::Meter::Gas, services, session, parent) {}
};
