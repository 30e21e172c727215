#include "reports/ui/GridPrinter.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>

#include "reports/PageBreaking.h"
#include "reports/ui/FlexGrid.h"
#include "reports/ui/GridColors.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr int kTextInset = 60;
constexpr int kFooterHeight = 400;  // room for the page number, inside the bottom margin's edge
constexpr int kWordsHeight = 260;   // of a line below the table
constexpr int kWordsGap = 240;
constexpr int kThinLine = 8;
constexpr int kBandLine = 15;

// Draws one page; lengths are twips of the grid.
class PagePainter {
 public:
  PagePainter(QPainter& painter, const Grid& grid) : painter_(painter), grid_(grid) {
    double left = 0;
    for (int column = 0; column < grid.columns(); ++column) {
      lefts_.push_back(left);
      if (!grid.column(column).hidden) left += grid.column(column).width;
    }
    lefts_.push_back(left);
  }

  // Backgrounds first, band lines over faint lines, so that no neighbour covers them.
  void draw(const std::vector<int>& rows) {
    const std::vector<Placed> cells = placedCells(rows);
    for (const Placed& placed : cells)
      if (placed.cell->back)
        painter_.fillRect(placed.rect, paperColor(placed.cell->back, palette_));
    painter_.setPen(QPen(paperColor(grid_.gridColor, palette_), kThinLine));
    painter_.setBrush(Qt::NoBrush);
    for (const Placed& placed : cells) painter_.drawRect(placed.rect);
    for (const Placed& placed : cells) {
      bandLine(placed.rect.topLeft(), placed.rect.topRight(), placed.cell->lineAbove);
      bandLine(placed.rect.bottomLeft(), placed.rect.bottomRight(), placed.cell->lineBelow);
    }
    for (const Placed& placed : cells) text(placed.rect, placed.row, placed.column);
  }

 private:
  struct Placed {
    int row, column;
    QRectF rect;
    const Cell* cell;
  };

  std::vector<Placed> placedCells(const std::vector<int>& rows) const {
    std::vector<Placed> cells;
    double top = 0;
    for (std::size_t place = 0; place < rows.size(); ++place) {
      const int row = rows[place];
      for (int column = 0; column < grid_.columns(); ++column) {
        const CellRange range = grid_.mergedRange(row, column);
        if (range.left < column || range.top < row) continue;
        const double left = lefts_[static_cast<std::size_t>(column)];
        const double width = lefts_[static_cast<std::size_t>(range.right) + 1] - left;
        double height = 0;
        for (std::size_t i = place; i < rows.size() && rows[i] >= row && rows[i] <= range.bottom;
             ++i)
          height += grid_.row(rows[i]).height;
        if (width > 0)
          cells.push_back({row, column, {left, top, width, height}, &grid_.cell(row, column)});
      }
      top += grid_.row(row).height;
    }
    return cells;
  }

  void bandLine(const QPointF& from, const QPointF& to, CellColor color) {
    if (!color) return;
    painter_.setPen(QPen(paperColor(color, palette_), kBandLine));
    painter_.drawLine(from, to);
  }

  void text(const QRectF& rect, int row, int column) {
    const QString text = QString::fromStdString(grid_.text(row, column));
    if (text.trimmed().isEmpty()) return;
    const CellFont font = grid_.font(row, column);
    QFont shown = toQFont(font);
    shown.setPixelSize(qRound(font.pointSize * kTwipsPerPoint));
    const QRectF room = rect.adjusted(kTextInset, 0, -kTextInset, 0);
    // The printer's face may run wider than the one that the columns were measured with.
    const double needed = QFontMetricsF(shown).horizontalAdvance(text);
    if (needed > room.width())
      shown.setPixelSize(std::max(1, static_cast<int>(shown.pixelSize() * room.width() / needed)));
    painter_.setFont(shown);
    const CellColor fore = grid_.cell(row, column).fore;
    painter_.setPen(fore ? paperColor(fore, palette_) : QColor(Qt::black));
    painter_.drawText(
        room,
        static_cast<int>(toQtAlignment(grid_, row, column)) | Qt::TextSingleLine | Qt::TextDontClip,
        text);
  }

  QPainter& painter_;
  const Grid& grid_;
  const QPalette palette_ = QGuiApplication::palette();
  std::vector<double> lefts_;
};

}  // namespace

// Where the table stands on the paper of a device. Twips of the paper.
struct GridPrinter::Frame {
  QRectF body;
  double scale = 1.0;  // paper twips per grid twip
  int tableWidth = 0;  // grid twips
  std::vector<std::vector<int>> pages;

  double tableLeft() const { return (body.width() - tableWidth * scale) / 2; }
};

GridPrinter::GridPrinter(const Grid& grid, QString documentName, PrintMargins margins,
                         PageWords words)
    : grid_(grid),
      documentName_(std::move(documentName)),
      margins_(margins),
      words_(std::move(words)) {}

void GridPrinter::prepare(QPrinter& printer) const {
  printer.setDocName(documentName_);
  printer.setPageOrientation(QPageLayout::Portrait);
  printer.setFullPage(true);
}

GridPrinter::Frame GridPrinter::frameOn(const QPagedPaintDevice& device) const {
  const QPageLayout layout = device.pageLayout();
  const QRectF paper = layout.fullRect(QPageLayout::Point);
  const QMarginsF smallest = layout.minimumMargins();
  const auto margin = [](double wanted, double unprintable) {
    return std::max(wanted, unprintable * kTwipsPerPoint);
  };
  Frame frame;
  const double left = margin(margins_.leftRight, smallest.left());
  const double right = margin(margins_.leftRight, smallest.right());
  const double top = margin(margins_.topBottom, smallest.top());
  const double bottom = margin(margins_.topBottom, smallest.bottom());
  frame.body = QRectF(left, top, paper.width() * kTwipsPerPoint - left - right,
                      paper.height() * kTwipsPerPoint - top - bottom);
  for (int column = 0; column < grid_.columns(); ++column)
    if (!grid_.column(column).hidden) frame.tableWidth += grid_.column(column).width;
  frame.scale = std::min(1.0, frame.body.width() / std::max(1, frame.tableWidth));
  const int below =
      words_.below.isEmpty() ? 0 : kWordsGap + kWordsHeight * int(words_.below.size());
  frame.pages = breakIntoPages(
      grid_, static_cast<int>((frame.body.height() - kFooterHeight - below) / frame.scale));
  return frame;
}

void GridPrinter::drawWords(QPainter& painter, const Frame& frame, int page) const {
  QFont font = toQFont({grid_.fontName, grid_.pointSize});
  font.setPixelSize(8 * kTwipsPerPoint);
  painter.setFont(font);
  painter.setPen(Qt::black);
  const int pages = static_cast<int>(frame.pages.size());
  const QString year = words_.year.isEmpty() ? QString() : words_.year + u" · "_s;
  painter.drawText(
      QRectF(0, frame.body.height() - kFooterHeight, frame.body.width(), kFooterHeight),
      Qt::AlignHCenter | Qt::AlignBottom, year + u"Seite %1 von %2"_s.arg(page).arg(pages));
  if (page < pages) return;
  double top = kWordsGap;
  for (const int row : frame.pages.back()) top += grid_.row(row).height * frame.scale;
  for (const QString& line : words_.below) {
    painter.drawText(QRectF(frame.tableLeft(), top, frame.tableWidth * frame.scale, kWordsHeight),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
    top += kWordsHeight;
  }
}

base::Result<void> GridPrinter::paint(QPagedPaintDevice& device, int firstPage,
                                      int lastPage) const {
  const Frame frame = frameOn(device);
  const int pages = static_cast<int>(frame.pages.size());
  const int first = std::clamp(firstPage, 1, pages);
  const int last = lastPage <= 0 ? pages : std::clamp(lastPage, first, pages);
  QPainter painter;
  if (!painter.begin(&device))
    return base::fail(base::ErrorCode::IoError, "Der Drucker nimmt keine Seiten an");
  for (int page = first; page <= last; ++page) {
    if (page > first && !device.newPage())
      return base::fail(base::ErrorCode::IoError, "Der Drucker nimmt keine weiteren Seiten an");
    painter.save();
    painter.scale(static_cast<double>(device.logicalDpiX()) / kTwipsPerInch,
                  static_cast<double>(device.logicalDpiY()) / kTwipsPerInch);
    painter.translate(frame.body.topLeft());
    drawWords(painter, frame, page);
    painter.translate(frame.tableLeft(), 0);
    painter.scale(frame.scale, frame.scale);
    PagePainter(painter, grid_).draw(frame.pages[static_cast<std::size_t>(page - 1)]);
    painter.restore();
  }
  if (!painter.end())
    return base::fail(base::ErrorCode::IoError, "Der Drucker hat den Auftrag nicht angenommen");
  return {};
}

base::Result<void> GridPrinter::print(QPrinter& printer) const {
  if (auto done = paint(printer, printer.fromPage(), printer.toPage()); !done) return done;
  if (printer.printerState() == QPrinter::Error)
    return base::fail(base::ErrorCode::IoError, "Der Drucker meldet einen Fehler");
  return {};
}

QByteArray GridPrinter::toPdf() const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(documentName_);
  writer.setCreator(QStringLiteral("Kalvira"));
  writer.setResolution(600);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF());
  base::ignore(paint(writer, 0, 0), "a writer into memory takes every page");
  return bytes;
}

}  // namespace reports
