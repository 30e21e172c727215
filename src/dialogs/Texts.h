#pragma once

#include <QString>

#include "base/OpenOutcome.h"

namespace dialogs {

// What the box about an entry says that could not be stored.
inline QString notStoredText(const base::Error& error) {
  const QString told =
      base::outcomeIsOpen(error)
          ? QStringLiteral(
                "Beim Speichern der Änderung ist ein Fehler aufgetreten. Ob sie "
                "gespeichert ist, zeigt sich, wenn das Jahr wieder geöffnet wird.\n")
          : QStringLiteral("Die Änderung konnte nicht gespeichert werden.\n");
  return told + QString::fromStdString(base::germanMessage(error));
}

}  // namespace dialogs
