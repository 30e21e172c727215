#include "reports/ui/PdfExport.h"

#include "reports/YearResults.h"
#include "reports/ui/PrintActions.h"

using namespace Qt::StringLiterals;

namespace reports {

QString asOfLastReadingNote() {
  return u"Bis zur letzten Ablesung zählen Abschläge und Grundgebühr anteilig; die Tabelle zählt "
         "alles, was eingetragen ist."_s;
}

PageWords overviewWords(const OverviewInput& input) {
  PageWords words{footerOf(input.yearFileName), {}};
  const auto results = yearResults(input);
  for (const YearResult& result : results) {
    std::string line = result.name + ": " + result.headline;
    if (!result.fitting.empty()) line += ". " + result.fitting;
    line += '.';
    if (!result.doubt.empty()) line += ' ' + result.doubt;
    words.below += QString::fromStdString(line);
  }
  if (isUnderWay(results)) words.below += asOfLastReadingNote();
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
