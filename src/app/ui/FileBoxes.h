#pragma once

#include <QString>

#include "app/SafetyCopies.h"
#include "base/Result.h"
#include "dialogs/Services.h"

class QWidget;

// What the start, new-year and backup windows tell of a file action.
namespace app {

// The box with number, file and reason.
void tellFileError(const dialogs::Services& services, QWidget* owner, const base::Error& error,
                   const QString& title = QStringLiteral("Fehler"));

// Says that the safety copy before an action failed, and asks whether to go on without. True also
// for a year that is open: the action itself says so.
bool goesOnWithout(const dialogs::Services& services, QWidget* owner, const base::Error& error);
// A safety copy of a year of the data folder, if it is there. False when the action is not to take
// place.
bool keepBefore(const dialogs::Services& services, QWidget* owner, CopyMoment moment,
                const std::string& year);

}  // namespace app
