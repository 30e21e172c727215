#include "reports/ui/PdfExport.h"

#include "reports/YearResults.h"
#include "reports/ui/PrintActions.h"

namespace reports {

PageWords overviewWords(const OverviewInput& input) {
  PageWords words{footerOf(input.yearFileName), {}};
  for (const std::string& sentence : plainSummary(input))
    words.below += QString::fromStdString(sentence);
  return words;
}

base::Result<void> exportPdf(base::FileSystem& files, const std::string& path,
                             const OverviewInput& input, const std::string& documentName) {
  const Grid grid = buildOverview(input);
  const QByteArray pdf = GridPrinter(grid, QString::fromStdString(documentName), kOverviewMargins,
                                     overviewWords(input))
                             .toPdf();
  return files.replaceFile(path,
                           base::asBytes({pdf.constData(), static_cast<std::size_t>(pdf.size())}));
}

}  // namespace reports
