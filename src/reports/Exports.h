#pragma once

#include <string>

#include "base/File.h"
#include "reports/DetailTable.h"
#include "reports/OverviewBuilder.h"

// The tables as files, without a screen. A file is replaced whole or stays as it was; errors carry
// the path.
namespace reports {

base::Result<void> exportHtml(base::FileSystem& files, const std::string& path,
                              const OverviewInput& input);
// The detailed months of all meters; another table can stand below them.
base::Result<void> exportCsv(base::FileSystem& files, const std::string& path,
                             const DetailInput& input, const std::string& below = {});
// The overview as the terminal shows it, with the plain sentences below.
std::string overviewText(const OverviewInput& input);

// Names of the exported pages, one per calendar month: "Verbrauchsabrechnung 11.html".
std::string overviewPageName(int month);
std::string detailPageName(int month);
// The page keeps its name from year to year. One that another year has left there is kept under
// this name: "Verbrauchsabrechnung 11 (Verbrauch2024).html".
std::string keptPageName(std::string_view pageName, const std::string& year);
// What a file of that year is called when nobody chooses a name: "Haushalt 2025 – Monate".
std::string proposedName(const std::string& yearPath, std::string_view table);

}  // namespace reports
