#include <algorithm>

#include "readings/ui/MeterReadingWindow.h"

// Where waste water is read off the water meter: its window takes over what that of water holds.

using namespace Qt::Literals::StringLiterals;

namespace readings {

void MeterReadingWindow::offerWater() {
  cmdWieWasser = widgets::control<QPushButton>(this, "cmdWieWasser");
  cmdWieWasser->setText(u"wie &Wasser"_s);
  cmdWieWasser->setToolTip(
      u"Die Zählerstände und den Zählerwechsel des Wassers eintragen, wo das Abwasser am "
      "Wasserzähler abgelesen wird"_s);
  cmdWieWasser->setAccessibleName(u"Zählerstände wie Wasser"_s);
  cmdWieWasser->setEnabled(!session_.writeObstacle());
  connect(cmdWieWasser, &QPushButton::clicked, this, &MeterReadingWindow::takeWater);
}

// Typed, as it were: stored when it is taken over.
void MeterReadingWindow::takeWater() {
  const MeterYear water = meterYear(session_, Meter::Water);
  const MeterChange change =
      readMeterChange(session_.files(), meterChangePath(session_, Meter::Water));
  optWechsel(change.position)->setChecked(true);
  txtWechsel->setValue(change.newStart);
  for (int k = 0; k < kMonths; ++k) txtVerbrauch(k)->setValue(std::max(water.readings[k], 0.0));
  showEntries();
}

}  // namespace readings
