#pragma once

#include "readings/ui/UnitPriceWindow.h"

class frmPreisJeKwsN final : public readings::UnitPriceWindow {
  Q_OBJECT
 public:
  frmPreisJeKwsN(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : UnitPriceWindow(yearbook::Meter::Night, services, session, parent) {}
};
