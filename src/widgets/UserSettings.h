#pragma once

#include <QSettings>

namespace widgets {

// What the program remembers of its user from one start to the next and no year holds: a text file
// in the user's own settings folder. Nothing of the household stands in it; without it everything
// works, only as at the first start.
inline QSettings userSettings() {
  return {QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Kalvira"),
          QStringLiteral("Kalvira")};
}

}  // namespace widgets
