#pragma once

#include <QPrinter>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "dialogs/Services.h"
#include "reports/ui/GridPrinter.h"

// Printing a table from a window: dialog, preview, and what the user is told.
namespace reports {

// Text, tooltip and spoken name of a button.
void caption(QAbstractButton* button, const QString& text, const QString& hint = {});
// The buttons that both tables have beside them; table is what the export's tooltip calls it.
struct PrintButtons {
  QPushButton* print;
  QPushButton* preview;
  QPushButton* html;
  QPushButton* copy;
};
void captionAll(const PrintButtons& buttons, const QString& table);

// Lets the user choose the printer and its settings; false when cancelled.
using PrinterChoice = std::function<bool(QPrinter& printer, QWidget* owner)>;
// The system's print dialog.
bool choosePrinter(QPrinter& printer, QWidget* owner);

// Asks for the printer and prints. Cancelling prints nothing and says nothing; a printer that
// takes no pages gets a message.
void printGrid(const GridPrinter& pages, const dialogs::Services& services, QWidget* owner,
               const PrinterChoice& choose);
// The pages in a window, as they will come out.
void previewGrid(const GridPrinter& pages, QWidget* owner);

// Writes the page, tells where it went and has it opened. A page that could not be written gets no
// message; the path is opened all the same, and the system says what it finds there.
void exportPage(const Grid& grid, const std::string& path, const dialogs::Services& services,
                QWidget* owner);

}  // namespace reports
