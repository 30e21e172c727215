#pragma once

#include "readings/ui/UnitPriceWindow.h"

class frmPreisJeKubikAbW final : public readings::UnitPriceWindow {
  Q_OBJECT
 public:
  frmPreisJeKubikAbW(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : UnitPriceWindow(yearbook::Meter::WasteWater, services, session, parent) {}
};
