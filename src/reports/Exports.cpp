#include "reports/Exports.h"

#include "base/Paths.h"
#include "reports/FlexGridHTML.h"
#include "reports/GridText.h"
#include "reports/YearResults.h"

namespace reports {

base::Result<void> exportHtml(base::FileSystem& files, const std::string& path,
                              const OverviewInput& input) {
  const std::string page = FlexGridHTML::page(buildOverview(input), plainScreen());
  return files.replaceFile(path, base::asBytes(page));
}

base::Result<void> exportCsv(base::FileSystem& files, const std::string& path,
                             const DetailInput& input, const std::string& below) {
  std::string csv = toCsv(buildDetailTable(input, {true, true, true, true, true}));
  if (!below.empty()) csv += "\r\n" + below;
  return files.replaceFile(path, base::asBytes(csv));
}

std::string overviewText(const OverviewInput& input) {
  std::string text = toPlainText(buildOverview(input)) + '\n';
  for (const std::string& sentence : plainSummary(input)) text += sentence + '\n';
  return text;
}

std::string overviewPageName(int month) {
  return "Verbrauchsabrechnung " + std::to_string(month) + ".html";
}

std::string detailPageName(int month) {
  return "Verbrauchsabrechnung " + std::to_string(month) + " Monate.html";
}

std::string keptPageName(std::string_view pageName, const std::string& year) {
  const std::string_view stem = pageName.substr(0, pageName.rfind('.'));
  return std::string(stem) + " (" + year + ").html";
}

std::string proposedName(const std::string& yearPath, std::string_view table) {
  return base::baseName(base::fileName(yearPath)) + " – " + std::string(table);
}

}  // namespace reports
