#include "reports/ui/PdfExport.h"

#include "reports/ui/GridPrinter.h"
#include "reports/ui/PrintActions.h"

namespace reports {

base::Result<void> exportPdf(base::FileSystem& files, const std::string& path,
                             const OverviewInput& input, const std::string& documentName) {
  const Grid grid = buildOverview(input);
  const QByteArray pdf = GridPrinter(grid, QString::fromStdString(documentName), kOverviewMargins,
                                     footerOf(input.yearFileName))
                             .toPdf();
  return files.replaceFile(path,
                           base::asBytes({pdf.constData(), static_cast<std::size_t>(pdf.size())}));
}

}  // namespace reports
