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
#include "widgets/RoomyCells.h"

using namespace Qt::StringLiterals;

namespace analysis {
namespace {

constexpr reports::PrintMargins kMargins{640, 640};
constexpr int kLeastButton = 88;
constexpr int kHeadRoom = 10;
constexpr int kWidest = 40;  // what a column gets on top of its content

// What stands behind a number, without a heading of its own.
bool isUnit(const reports::Grid& grid, int column) {
  return grid.text(0, column).empty();
}

bool isRight(const reports::Grid& grid, int column) {
  return grid.column(column).alignment == reports::Alignment::RightCenter;
}

// In two lines, as even as its words allow.
QString folded(const QString& head, const QFontMetrics& text) {
  QString best = head;
  for (qsizetype at = head.indexOf(u' '); at >= 0; at = head.indexOf(u' ', at + 1)) {
    QString lines = head;
    lines[at] = u'\n';
    if (text.size(0, lines).width() < text.size(0, best).width()) best = lines;
  }
  return best;
}

void foldHeads(QTreeWidget& tree, bool fold) {
  QTreeWidgetItem* heads = tree.headerItem();
  for (int column = 0; column < tree.columnCount(); ++column) {
    const QString head = heads->text(column).replace(u'\n', u' ');
    heads->setText(column, fold ? folded(head, tree.header()->fontMetrics()) : head);
  }
}

void resizeColumns(QTreeWidget& tree) {
  QHeaderView* header = tree.header();
  // Only the column that the rows are sorted by needs room for the arrow.
  const bool sorted = header->isSortIndicatorShown();
  const int byColumn = sorted ? header->sortIndicatorSection() : -1;
  for (int column = 0; column < tree.columnCount(); ++column) {
    header->setSortIndicatorShown(column == byColumn);
    tree.resizeColumnToContents(column);
  }
  header->setSortIndicatorShown(sorted);
}

// What is left beside the columns goes between them, as far as a row can still be followed. A unit
// stays with its number.
void spread(QTreeWidget& tree, int left) {
  std::vector<int> wider;
  for (int column = 0; column < tree.columnCount(); ++column)
    if (!tree.isColumnHidden(column) && !tree.headerItem()->text(column).isEmpty())
      wider.push_back(column);
  const int each = std::clamp(left / std::max(1, int(wider.size())), 0, kWidest);
  for (const int column : wider) tree.setColumnWidth(column, tree.columnWidth(column) + each);
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

void ReportWindow::resizeEvent(QResizeEvent* event) {
  Window::resizeEvent(event);
  for (QTreeWidget* table : findChildren<QTreeWidget*>()) fitColumns(table);
}

void ReportWindow::showEvent(QShowEvent* event) {
  Window::showEvent(event);
  for (QTreeWidget* table : findChildren<QTreeWidget*>()) fitColumns(table);
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
  if (qobject_cast<widgets::RoomyCells*>(tree->itemDelegate()) == nullptr)
    tree->setItemDelegate(new widgets::RoomyCells(tree));
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
  QHeaderView* header = tree->header();
  header->setStretchLastSection(false);
  header->setMinimumHeight(tree->fontMetrics().height() + kHeadRoom);
  foldHeads(*tree, false);
  resizeColumns(*tree);
  if (!tree->isVisible()) return;
  int room = tree->width() - 2 * tree->frameWidth();
  if (tree->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff)
    room -= tree->verticalScrollBar()->sizeHint().width();
  if (header->length() > room) {
    foldHeads(*tree, true);
    resizeColumns(*tree);
  }
  spread(*tree, room - header->length());
}

void makeQuiet(QLabel* label) {
  label->setForegroundRole(QPalette::PlaceholderText);
}

}  // namespace analysis
