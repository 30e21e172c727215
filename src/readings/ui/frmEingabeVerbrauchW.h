#pragma once

#include "readings/ui/MeterReadingWindow.h"

class frmEingabeVerbrauchW final : public readings::MeterReadingWindow {
  Q_OBJECT
 public:
  frmEingabeVerbrauchW(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : MeterReadingWindow(yearbook::Meter::Water, services, session, parent) {}
};
