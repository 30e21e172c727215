#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "base/Result.h"
#include "reports/Grid.h"

class QPagedPaintDevice;
class QPainter;
class QPrinter;

namespace reports {

// Twips from the edges of the paper.
struct PrintMargins {
  int leftRight = 0;
  int topBottom = 0;
};
// Of the overview, on the printer as in a PDF file.
inline constexpr PrintMargins kOverviewMargins{640, 640};

// What stands on the paper beside the table.
struct PageWords {
  QString year;       // at the foot of each page, where the table is of one year
  QStringList below;  // lines below the table's end
};

// Puts a grid on pages: widths and heights as the grid says, made smaller in proportion where the
// paper is too narrow; merged cells, bands, border lines and fonts; breaks between rows, heads
// repeated, in the middle of the paper, "Haushalt 2025 · Seite 1 von 2" at the foot.
class GridPrinter {
 public:
  GridPrinter(const Grid& grid, QString documentName, PrintMargins margins, PageWords words = {});

  // Name of the print job, portrait, the whole paper addressable.
  void prepare(QPrinter& printer) const;
  // The pages that the printer is to print. IoError when the printer takes none.
  base::Result<void> print(QPrinter& printer) const;
  // All pages on A4. Needs a QGuiApplication, no screen and no printer.
  QByteArray toPdf() const;

 private:
  struct Frame;
  Frame frameOn(const QPagedPaintDevice& device) const;
  void drawWords(QPainter& painter, const Frame& frame, int page) const;
  base::Result<void> paint(QPagedPaintDevice& device, int firstPage, int lastPage) const;

  const Grid& grid_;
  QString documentName_;
  PrintMargins margins_;
  PageWords words_;
};

}  // namespace reports
