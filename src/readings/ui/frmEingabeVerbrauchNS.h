#pragma once

#include "readings/ui/MeterReadingWindow.h"

class frmEingabeVerbrauchNS final : public readings::MeterReadingWindow {
  Q_OBJECT
 public:
  frmEingabeVerbrauchNS(dialogs::Services& services, yearbook::YearSession& session,
                        QWidget* parent)
      : MeterReadingWindow(yearbook::Meter::Night, services, session, parent) {}
};
