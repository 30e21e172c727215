#pragma once

#include "dialogs/Window.h"
#include "reports/Grid.h"
#include "reports/ui/PrintActions.h"
#include "widgets/ColorMark.h"
#include "widgets/control.h"

class QBoxLayout;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

namespace analysis {

// What the windows share that show a table of figures and charts beside it: copying, saving as CSV,
// page and PDF, printing. They only look; Escape closes them.
class ReportWindow : public dialogs::Window {
  Q_OBJECT
 public:
  QPushButton* const cmdHilfe = widgets::control<QPushButton>(this, "cmdHilfe");
  QPushButton* const cmdKopieren = widgets::control<QPushButton>(this, "cmdKopieren");
  QPushButton* const cmdCsv = widgets::control<QPushButton>(this, "cmdCsv");
  QPushButton* const cmdHtml = widgets::control<QPushButton>(this, "cmdHtml");
  QPushButton* const cmdPdf = widgets::control<QPushButton>(this, "cmdPdf");
  QPushButton* const cmdDrucken = widgets::control<QPushButton>(this, "cmdDrucken");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

  // Which printer and how; the system's dialog unless set.
  void setPrinterChoice(reports::PrinterChoice choice) { choosePrinter_ = std::move(choice); }

 protected:
  ReportWindow(const QString& name, const QString& caption, const dialogs::Services& services,
               QWidget* parent);

  // The table as it is shown, and for spreadsheets.
  virtual reports::Grid shownTable() const = 0;
  virtual reports::Grid csvTable() const = 0;

  QBoxLayout* buildButtons();
  // That large, or as large as the free screen.
  void openAs(QSize size);
  // Wider where the columns of the table need it.
  void openAs(QSize size, const QTreeWidget& table);
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void copy();
  void save(const QString& filter, const QString& extension, const QByteArray& content);
  void print();
  QByteArray pdf() const;

  reports::PrinterChoice choosePrinter_ = reports::choosePrinter;
};

// A table of texts as rows of a tree, column by column, numbers right. Row heights follow the font.
void showHeadings(QTreeWidget* tree, const reports::Grid& grid);
void showRow(QTreeWidgetItem* item, const reports::Grid& grid, int row);
// Columns as wide as their content; heads in two lines where the table has no room for all of them.
void fitColumns(QTreeWidget* tree);
// The darkest grey that is still quiet beside the text.
void makeQuiet(QLabel* label);

}  // namespace analysis
