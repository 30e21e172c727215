#pragma once

#include <QString>

#include "base/Result.h"

namespace dialogs {

// What the box about an entry says that could not be stored.
inline QString notStoredText(const base::Error& error) {
  return QStringLiteral("Die Änderung konnte nicht gespeichert werden.\n") +
         QString::fromStdString(base::germanMessage(error));
}

}  // namespace dialogs
