#pragma once

#include "base/File.h"
#include "reports/OverviewBuilder.h"

namespace reports {

// The overview as it is printed, on A4. Needs a QGuiApplication (offscreen will do). The file is
// replaced whole or stays as it was.
base::Result<void> exportPdf(base::FileSystem& files, const std::string& path,
                             const OverviewInput& input, const std::string& documentName);

}  // namespace reports
