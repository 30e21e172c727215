#pragma once

#include <QByteArray>
#include <QString>

#include "dialogs/Services.h"

class QWidget;

namespace dialogs {

struct SaveRequest {
  QString filter;     // "description|pattern"
  QString title;      // of the file dialog and of the box that says what failed
  QString name;       // proposed
  QString extension;  // ".csv"
};

// Asks where to, beginning in the folder of the last time, at first in the data folder, and writes
// the file whole. The path; "" when it was cancelled or could not be written, which is told.
QString saveAs(const SaveRequest& request, const QByteArray& content, const Services& services,
               QWidget* owner);

}  // namespace dialogs
