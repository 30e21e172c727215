#include "analysis/ui/ReportWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QPrinter>
#include <QScreen>
#include <QScrollBar>
#include <QTreeWidget>

#include "dialogs/Prompts.h"
#include "reports/DetailTable.h"
#include "reports/FlexGridHTML.h"
#include "reports/GridText.h"
#include "widgets/TonedCells.h"

using namespace Qt::StringLiterals;

namespace analysis {
namespace {

constexpr reports::PrintMargins kMargins{640, 640};
constexpr int kLeastButton = 88;

// Room between the rows.
class RowDelegate final : public widgets::TonedCells {
 public:
  using TonedCells::TonedCells;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int kRoom = 8;
    const QSize hint = TonedCells::sizeHint(option, index);
    return {hint.width(), option.fontMetrics.height() + kRoom};
  }
};

// What stands behind a number, without a heading of its own.
bool isUnit(const reports::Grid& grid, int column) {
  return grid.text(0, column).empty();
}

bool isRight(const reports::Grid& grid, int column) {
  return grid.column(column).alignment == reports::Alignment::RightCenter;
}

}  // namespace

ReportWindow::ReportWindow(const QString& name, const QString& caption,
                           const dialogs::Services& services, QWidget* parent)
    : Window(name, caption, services, parent) {
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  cmdHilfe->setText(u"&Hilfe"_s);
  cmdKopieren->setText(u"Tabelle &kopieren"_s);
  cmdCsv->setText(u"Als &CSV speichern..."_s);
  cmdHtml->setText(u"Als H&TML speichern..."_s);
  cmdPdf->setText(u"Als &PDF speichern..."_s);
  cmdDrucken->setText(u"&Drucken..."_s);
  cmdSchliessen->setText(u"&Schließen"_s);
  for (QPushButton* button :
       {cmdHilfe, cmdKopieren, cmdCsv, cmdHtml, cmdPdf, cmdDrucken, cmdSchliessen}) {
    button->setMinimumWidth(kLeastButton);
    button->setAccessibleName(button->text().remove(u'&'));
  }
  connect(cmdHilfe, &QPushButton::clicked, this, &ReportWindow::showHelp);
  connect(cmdKopieren, &QPushButton::clicked, this, &ReportWindow::copy);
  connect(cmdCsv, &QPushButton::clicked, this, [this] {
    save(u"*.csv (CSV-Tabelle)|*.csv"_s, u".csv"_s,
         QByteArray::fromStdString(reports::toCsv(csvTable())));
  });
  connect(cmdHtml, &QPushButton::clicked, this, [this] {
    save(u"*.html (HTML-Seite)|*.html"_s, u".html"_s,
         QByteArray::fromStdString(
             reports::FlexGridHTML::page(shownTable(), reports::plainScreen())));
  });
  connect(cmdPdf, &QPushButton::clicked, this,
          [this] { save(u"*.pdf (PDF-Datei)|*.pdf"_s, u".pdf"_s, pdf()); });
  connect(cmdDrucken, &QPushButton::clicked, this, &ReportWindow::print);
  connect(cmdSchliessen, &QPushButton::clicked, this, &ReportWindow::reject);
}

QBoxLayout* ReportWindow::buildButtons() {
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(cmdHilfe);
  buttons->addStretch();
  for (QPushButton* button : {cmdKopieren, cmdCsv, cmdHtml, cmdPdf, cmdDrucken, cmdSchliessen})
    buttons->addWidget(button);
  return buttons;
}

void ReportWindow::openAs(QSize size) {
  resize(size.boundedTo(screen()->availableSize()));
}

void ReportWindow::openAs(QSize size, const QTreeWidget& table) {
  const QMargins margins = layout()->contentsMargins();
  const int columns = table.header()->length() + table.verticalScrollBar()->sizeHint().width() +
                      2 * table.frameWidth() + margins.left() + margins.right();
  openAs(size.expandedTo({columns, 0}));
}

void ReportWindow::copy() {
  const reports::Grid table = shownTable();
  auto* copied = new QMimeData;
  copied->setText(QString::fromStdString(reports::toTabSeparated(table)));
  copied->setHtml(QString::fromStdString(reports::toClipboardHtml(table)));
  QApplication::clipboard()->setMimeData(copied);
}

void ReportWindow::save(const QString& filter, const QString& extension,
                        const QByteArray& content) {
  const QString title = accessibleName().isEmpty() ? windowTitle() : accessibleName();
  const QString proposed = QString::fromStdString(services_.paths.DataFolder) + title;
  const QString path =
      services_.prompts.saveFile(this, filter, title + u" speichern"_s, proposed, extension);
  if (path.isEmpty()) return;
  const auto saved =
      services_.files.replaceFile(path.toStdString(), base::asBytes(content.toStdString()));
  if (!saved)
    services_.prompts.tell(this, QString::fromStdString(base::germanMessage(saved.error())),
                           windowTitle(), dialogs::Icon::Warning);
}

QByteArray ReportWindow::pdf() const {
  const reports::Grid table = shownTable();
  return reports::GridPrinter(table, windowTitle(), kMargins).toPdf();
}

void ReportWindow::print() {
  const reports::Grid table = shownTable();
  reports::printGrid(reports::GridPrinter(table, windowTitle(), kMargins), services_, this,
                     choosePrinter_);
}

void showHeadings(QTreeWidget* tree, const reports::Grid& grid) {
  tree->setColumnCount(grid.columns());
  tree->setUniformRowHeights(true);
  if (dynamic_cast<RowDelegate*>(tree->itemDelegate()) == nullptr)
    tree->setItemDelegate(new RowDelegate(tree));
  tree->setAllColumnsShowFocus(true);
  for (int column = 0; column < grid.columns(); ++column) {
    tree->headerItem()->setText(column, QString::fromStdString(grid.text(0, column)));
    tree->headerItem()->setTextAlignment(
        column, (isRight(grid, column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
}

void showRow(QTreeWidgetItem* item, const reports::Grid& grid, int row) {
  for (int column = 0; column < grid.columns(); ++column) {
    item->setText(column, QString::fromStdString(grid.text(row, column)).trimmed());
    if (isUnit(grid, column)) item->setData(column, widgets::kToneRole, int(widgets::Tone::Quiet));
    if (isRight(grid, column)) item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    if (!grid.cell(row, column).bold) continue;
    QFont font = QApplication::font();
    font.setBold(true);
    item->setFont(column, font);
  }
}

void fitColumns(QTreeWidget* tree) {
  constexpr int kApart = 8, kRoom = 10;
  QHeaderView* header = tree->header();
  header->setStretchLastSection(false);
  header->setMinimumHeight(tree->fontMetrics().height() + kRoom);
  // Only the column that the rows are sorted by needs room for the arrow.
  const bool sorted = header->isSortIndicatorShown();
  const int byColumn = sorted ? header->sortIndicatorSection() : -1;
  for (int column = 0; column < tree->columnCount(); ++column) {
    header->setSortIndicatorShown(column == byColumn);
    tree->resizeColumnToContents(column);
    tree->setColumnWidth(column, tree->columnWidth(column) + kApart);
  }
  header->setSortIndicatorShown(sorted);
}

void makeQuiet(QLabel* label) {
  label->setForegroundRole(QPalette::PlaceholderText);
}

}  // namespace analysis
