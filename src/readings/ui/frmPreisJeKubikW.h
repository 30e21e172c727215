#pragma once

#include "readings/ui/UnitPriceWindow.h"

class frmPreisJeKubikW final : public readings::UnitPriceWindow {
  Q_OBJECT
 public:
  frmPreisJeKubikW(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : UnitPriceWindow(yearbook::Meter::Water, services, session, parent) {}
};
