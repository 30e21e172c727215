#pragma once

#include "base/File.h"
#include "reports/OverviewBuilder.h"
#include "reports/ui/GridPrinter.h"

namespace reports {

// Why results of a year that is under way are not the table's last line.
QString asOfLastReadingNote();
// The year's name, and the result of each utility in a sentence.
PageWords overviewWords(const OverviewInput& input);

// The overview as it is printed, on A4. Needs a QGuiApplication (offscreen will do). The file is
// replaced whole or stays as it was.
base::Result<void> exportPdf(base::FileSystem& files, const std::string& path,
                             const OverviewInput& input, const std::string& documentName);

}  // namespace reports
