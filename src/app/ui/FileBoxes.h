#pragma once

#include <QString>

#include "base/Result.h"
#include "dialogs/Services.h"

class QWidget;

// What the start, new-year and backup windows tell of a file action.
namespace app {

// The box with number, file and reason.
void tellFileError(const dialogs::Services& services, QWidget* owner, const base::Error& error,
                   const QString& title = QStringLiteral("Fehler"));

struct CopyTexts {
  QString title;
  QString done;
  QString cancelled;
};
// How a copy run ended: done, stopped by the user, or failed.
void tellCopyOutcome(const dialogs::Services& services, QWidget* owner,
                     const base::Result<void>& outcome, const CopyTexts& texts);

}  // namespace app
