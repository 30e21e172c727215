#pragma once

#include "readings/ui/MeterReadingWindow.h"

class frmEingabeVerbrauchAbW final : public readings::MeterReadingWindow {
  Q_OBJECT
 public:
  frmEingabeVerbrauchAbW(dialogs::Services& services, yearbook::YearSession& session,
                         QWidget* parent)
      : MeterReadingWindow(yearbook::Meter::WasteWater, services, session, parent) {}
};
