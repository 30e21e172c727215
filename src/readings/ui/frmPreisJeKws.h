#pragma once

#include "readings/ui/UnitPriceWindow.h"

class frmPreisJeKws final : public readings::UnitPriceWindow {
  Q_OBJECT
 public:
  frmPreisJeKws(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : UnitPriceWindow(yearbook::Meter::Day, services, session, parent) {}
};
