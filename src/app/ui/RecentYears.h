#pragma once

#include <QStringList>

namespace app {

// The years opened last, whole paths, the latest first; those that are gone included.
QStringList recentYears();
// It was opened just now.
void rememberYear(const QString& path);

}  // namespace app
