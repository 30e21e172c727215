#pragma once

#include "readings/ui/MeterReadingWindow.h"

class frmEingabeVerbrauchS final : public readings::MeterReadingWindow {
  Q_OBJECT
 public:
  frmEingabeVerbrauchS(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : MeterReadingWindow(yearbook::Meter::Day, services, session, parent) {}
};
