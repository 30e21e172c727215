#include "reports/ui/PrintActions.h"

#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

#include "base/Paths.h"
#include "dialogs/Prompts.h"
#include "dialogs/SaveAs.h"
#include "dialogs/Shell.h"
#include "reports/Exports.h"
#include "reports/ui/GridColors.h"
#include "widgets/UserSettings.h"

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

void captionPdf(QPushButton* button) {
  caption(button, u"Als P&DF speichern…"_s, u"Die Seiten, wie sie gedruckt werden, als Datei"_s);
}

void dressOutputNote(QLabel* note) {
  note->setForegroundRole(QPalette::PlaceholderText);
  note->setTextFormat(Qt::PlainText);
  note->setTextInteractionFlags(Qt::TextSelectableByMouse);
  note->setWordWrap(true);
  // A long path makes neither the column of buttons wider nor the table smaller.
  note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  note->hide();
}

void sayBelow(QLabel* note, const QString& text) {
  note->setText(text);
  note->setVisible(!text.isEmpty());
}

void sayWhere(QLabel* note, const QString& path) {
  if (!path.isEmpty()) sayBelow(note, u"Gespeichert unter "_s + path);
}

QString footerOf(const std::string& yearPath) {
  return QString::fromStdString(base::baseName(base::fileName(yearPath)));
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

namespace {

// Which year a page is of stands nowhere in it.
QString yearKeyOf(const std::string& path) {
  return u"Seiten/"_s +
         QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding({}, "/"));
}

// Where the page of another year will be kept; "" when there is nothing to keep.
std::string keptPage(const std::string& path, const std::string& yearPath,
                     const base::FileSystem& files) {
  const std::string former =
      widgets::userSettings().value(yearKeyOf(path)).toString().toStdString();
  if (former == yearPath || !files.exists(path)) return {};
  const std::string year = former.empty() ? "bisher" : base::baseName(base::fileName(former));
  return std::string(base::folderOf(path)) + keptPageName(base::fileName(path), year);
}

}  // namespace

QString pageNotice(const std::string& path, const std::string& yearPath,
                   const dialogs::Services& services) {
  const std::string kept = keptPage(path, yearPath, services.files);
  if (kept.empty()) return {};
  return u"Export HTML ersetzt eine Seite, die nicht von diesem Jahr ist. Sie bleibt als „%1“ "
         "erhalten."_s.arg(QString::fromStdString(std::string(base::fileName(kept))));
}

void exportPage(const Grid& grid, const std::string& path, const std::string& yearPath,
                const dialogs::Services& services, QWidget* owner) {
  if (const std::string kept = keptPage(path, yearPath, services.files); !kept.empty())
    base::ignore(services.files.copyFile(path, kept),
                 "the page can be written from its year again");
  const QString shown = QString::fromStdString(path);
  base::Result<void> written;
  {
    const HourGlass waiting;
    FlexGridHTML::write(grid, path, services.files, screenOf(*owner, owner->palette()), &written);
  }
  if (written) {
    widgets::userSettings().setValue(yearKeyOf(path), QString::fromStdString(yearPath));
    services.prompts.tell(owner, u"Datei gespeichert unter "_s + shown);
  } else {
    base::ignore(written, "the page that does not open is the message");
  }
  services.shell.openDocument(shown);
}

QString savePdf(const GridPrinter& pages, const std::string& name,
                const dialogs::Services& services, QWidget* owner) {
  return dialogs::saveAs({u"PDF-Seiten (*.pdf)|*.pdf"_s, u"Tabelle als PDF speichern"_s,
                          QString::fromStdString(name) + u".pdf"_s, u".pdf"_s},
                         pages.toPdf(), services, owner);
}

}  // namespace reports
