#pragma once

#include <QLabel>
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
void captionPdf(QPushButton* button);
// A quiet line below the buttons: where its file went, what is to be known before.
void dressOutputNote(QLabel* note);
void sayBelow(QLabel* note, const QString& text);
// Nothing is said of a path that is empty.
void sayWhere(QLabel* note, const QString& path);
// At the foot of each page: the year's name.
QString footerOf(const std::string& yearPath);

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
// message; the path is opened all the same, and the system says what it finds there. A page that
// another year has left under that name is kept beside it.
void exportPage(const Grid& grid, const std::string& path, const std::string& yearPath,
                const dialogs::Services& services, QWidget* owner);
// "" unless the page there is another year's: what will become of it.
QString pageNotice(const std::string& path, const std::string& yearPath,
                   const dialogs::Services& services);
// All pages as a file where the user wants it; "" when there is none.
QString savePdf(const GridPrinter& pages, const std::string& name,
                const dialogs::Services& services, QWidget* owner);

}  // namespace reports
