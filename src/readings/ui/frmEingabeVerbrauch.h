#pragma once

#include "readings/ui/MeterReadingWindow.h"

class frmEingabeVerbrauch final : public readings::MeterReadingWindow {
  Q_OBJECT
 public:
  frmEingabeVerbrauch(dialogs::Services& services, yearbook::YearSession& session, QWidget* parent)
      : MeterReadingWindow(yearbook::Meter::Gas, services, session, parent) {}
};
