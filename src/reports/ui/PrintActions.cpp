#include "reports/ui/PrintActions.h"

#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

#include "dialogs/Prompts.h"
#include "dialogs/Shell.h"
#include "reports/ui/GridColors.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

class HourGlass {
 public:
  HourGlass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~HourGlass() { QGuiApplication::restoreOverrideCursor(); }
  HourGlass(const HourGlass&) = delete;
  HourGlass& operator=(const HourGlass&) = delete;
};

}  // namespace

void caption(QAbstractButton* button, const QString& text, const QString& hint) {
  button->setText(text);
  button->setToolTip(hint);
  button->setAccessibleName(QString(text).remove(u'&'));
}

void captionAll(const PrintButtons& buttons, const QString& table) {
  caption(buttons.print, u"&Drucken"_s, u"Übersicht drucken"_s);
  caption(buttons.preview, u"Vo&rschau"_s, u"Zeigt die Seiten, wie sie gedruckt werden"_s);
  caption(buttons.html, u"&Export HTML"_s,
          u"Speichert die %1 als HTML-Seite im Datenordner und öffnet sie"_s.arg(table));
  caption(buttons.copy, u"Tabelle &kopieren"_s,
          u"Kopiert die Tabelle, zum Einfügen in eine Tabellenkalkulation"_s);
}

bool choosePrinter(QPrinter& printer, QWidget* owner) {
  QPrintDialog dialog(&printer, owner);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  return dialog.exec() == QDialog::Accepted;
}

void printGrid(const GridPrinter& pages, const dialogs::Services& services, QWidget* owner,
               const PrinterChoice& choose) {
  QPrinter printer(QPrinter::HighResolution);
  pages.prepare(printer);
  if (!choose(printer, owner)) return;
  base::Result<void> printed;
  {
    const HourGlass waiting;
    printed = pages.print(printer);
  }
  if (!printed)
    services.prompts.tell(owner, QString::fromStdString(base::germanMessage(printed.error())),
                          u"Drucken"_s, dialogs::Icon::Warning);
}

void previewGrid(const GridPrinter& pages, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);
  pages.prepare(printer);
  QPrintPreviewDialog dialog(&printer, owner);
  dialog.setObjectName(u"Druckvorschau"_s);
  dialog.setWindowTitle(u"Druckvorschau"_s);
  dialog.resize(900, 700);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, owner,
                   [&pages](QPrinter* target) {
                     base::ignore(pages.print(*target), "the preview stays empty, which is seen");
                   });
  dialog.exec();
}

void exportPage(const Grid& grid, const std::string& path, const dialogs::Services& services,
                QWidget* owner) {
  const QString shown = QString::fromStdString(path);
  base::Result<void> written;
  {
    const HourGlass waiting;
    FlexGridHTML::write(grid, path, services.files, screenOf(*owner, owner->palette()), &written);
  }
  if (written)
    services.prompts.tell(owner, u"Datei gespeichert unter "_s + shown);
  else
    base::ignore(written, "the page that does not open is the message");
  services.shell.openDocument(shown);
}

}  // namespace reports
