#include "reports/ui/FlexGrid.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <cmath>

#include "reports/GridText.h"
#include "reports/ui/GridColors.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

// Between the edge of a cell and its text.
constexpr int kTextInset = 60;
constexpr double kSmallestZoom = 0.85;
constexpr double kLargestZoom = 1.6;
// Lengths become whole pixels downwards: the table must not outgrow the room it was fitted to.
int wholePixels(double pixels) {
  return static_cast<int>(std::floor(pixels + 1e-6));
}

// Downwards, so that a drag at the window's edge does not lay the table out anew at every pixel.
double inSteps(double zoom) {
  return std::floor(zoom * 64) / 64;
}

}  // namespace

TextWidth measureOn(const QPaintDevice& device) {
  const double twipsPerPixel = static_cast<double>(kTwipsPerInch) / device.logicalDpiX();
  return [twipsPerPixel, &device](std::string_view utf8, const CellFont& font) {
    const QFontMetricsF metrics(toQFont(font), &device);
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    return static_cast<int>(std::ceil(metrics.horizontalAdvance(text) * twipsPerPixel));
  };
}

QFont toQFont(const CellFont& font) {
  QFont result(QString::fromStdString(font.name));
  result.setPointSizeF(font.pointSize);
  result.setBold(font.bold);
  result.setItalic(font.italic);
  result.setUnderline(font.underline);
  return result;
}

Qt::Alignment toQtAlignment(const Grid& grid, int row, int column) {
  switch (grid.placement(row, column)) {
    case Alignment::LeftTop:
      return Qt::AlignLeft | Qt::AlignTop;
    case Alignment::LeftBottom:
      return Qt::AlignLeft | Qt::AlignBottom;
    case Alignment::CenterTop:
      return Qt::AlignHCenter | Qt::AlignTop;
    case Alignment::CenterCenter:
      return Qt::AlignCenter;
    case Alignment::CenterBottom:
      return Qt::AlignHCenter | Qt::AlignBottom;
    case Alignment::RightTop:
      return Qt::AlignRight | Qt::AlignTop;
    case Alignment::RightCenter:
      return Qt::AlignRight | Qt::AlignVCenter;
    case Alignment::RightBottom:
      return Qt::AlignRight | Qt::AlignBottom;
    case Alignment::General:
      if (grid.cell(row, column).value.index() >= 2) return Qt::AlignRight | Qt::AlignVCenter;
      break;
    case Alignment::LeftCenter:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

class FlexGrid::Model final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void setGrid(Grid grid) {
    beginResetModel();
    grid_ = std::move(grid);
    endResetModel();
  }
  const Grid& grid() const { return grid_; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : grid_.rows();
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : grid_.columns();
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const int row = index.row();
    const int column = index.column();
    const Cell& cell = grid_.cell(row, column);
    switch (role) {
      case Qt::DisplayRole:
        return QString::fromStdString(grid_.text(row, column));
      case Qt::FontRole:
        return toQFont(grid_.font(row, column));
      case Qt::TextAlignmentRole:
        return QVariant::fromValue(toQtAlignment(grid_, row, column));
      case Qt::BackgroundRole:
        return cell.back ? QVariant(QBrush(screenBackground(cell.back, palette()))) : QVariant();
      case Qt::ForegroundRole:
        return cell.fore ? QVariant(QBrush(screenForeground(cell.fore, palette()))) : QVariant();
      case Qt::AccessibleTextRole:
        return spokenText(row, column);
      default:
        return {};
    }
  }

 private:
  // An amount is read out with the label of its row.
  QString spokenText(int row, int column) const {
    QString text = QString::fromStdString(grid_.text(row, column));
    if (column == 0 || text.trimmed().isEmpty() || grid_.cell(row, column).value.index() < 2)
      return text;
    for (int label = column - 1; label >= 0; --label)
      if (std::holds_alternative<std::string>(grid_.cell(row, label).value))
        return QString::fromStdString(grid_.text(row, label)).trimmed() + u": "_s + text;
    return text;
  }
  QPalette palette() const {
    const auto* view = qobject_cast<const QWidget*>(QObject::parent());
    return view ? view->palette() : QApplication::palette();
  }
  Grid grid_{0, 0};
};

class FlexGrid::Delegate final : public QStyledItemDelegate {
 public:
  explicit Delegate(FlexGrid& view) : QStyledItemDelegate(&view), view_(view) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const Cell& cell = view_.grid().cell(index.row(), index.column());
    const QPalette& palette = view_.palette();
    const bool selected = option.state & QStyle::State_Selected;
    const QVariant back = index.data(Qt::BackgroundRole);
    painter->save();
    painter->fillRect(option.rect, selected         ? palette.brush(QPalette::Highlight)
                                   : back.isValid() ? back.value<QBrush>()
                                                    : palette.brush(QPalette::Base));
    lines(*painter, option.rect, cell, palette);
    text(*painter, option.rect, index, selected);
    painter->restore();
  }

 private:
  void lines(QPainter& painter, const QRect& rect, const Cell& cell,
             const QPalette& palette) const {
    QColor faint = palette.color(QPalette::Text);
    faint.setAlphaF(0.14F);
    painter.setPen(faint);
    painter.drawLine(rect.topRight(), rect.bottomRight());
    if (!cell.lineBelow) painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    if (cell.lineAbove) {
      painter.setPen(screenForeground(cell.lineAbove, palette));
      painter.drawLine(rect.topLeft(), rect.topRight());
    }
    if (cell.lineBelow) {
      painter.setPen(screenForeground(cell.lineBelow, palette));
      painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
  }

  void text(QPainter& painter, const QRect& rect, const QModelIndex& index, bool selected) const {
    QFont font = index.data(Qt::FontRole).value<QFont>();
    font.setPointSizeF(font.pointSizeF() * view_.zoom_);
    painter.setFont(font);
    const QVariant own = index.data(Qt::ForegroundRole);
    painter.setPen(selected        ? view_.palette().color(QPalette::HighlightedText)
                   : own.isValid() ? own.value<QBrush>().color()
                                   : view_.palette().color(QPalette::Text));
    const int inset = static_cast<int>(std::lround(view_.pixels(kTextInset)));
    painter.drawText(rect.adjusted(inset, 0, -inset, 0),
                     static_cast<int>(index.data(Qt::TextAlignmentRole).value<Qt::Alignment>()) |
                         Qt::TextSingleLine,
                     index.data(Qt::DisplayRole).toString());
  }

  FlexGrid& view_;
};

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), model_(std::make_unique<Model>(this)) {
  setModel(model_.get());
  setItemDelegate(new Delegate(*this));
  setShowGrid(false);
  setEditTriggers(NoEditTriggers);
  setCornerButtonEnabled(false);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
    header->hide();
    header->setMinimumSectionSize(0);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  auto* copy = new QAction(u"Tabelle kopieren"_s, this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(copy, &QAction::triggered, this, &FlexGrid::copyToClipboard);
}

FlexGrid::~FlexGrid() {
  setModel(nullptr);
}

const Grid& FlexGrid::grid() const {
  return model_->grid();
}

void FlexGrid::setGrid(Grid grid) {
  model_->setGrid(std::move(grid));
  clearSpans();
  const Grid& shown = model_->grid();
  for (const CellRange& range : shown.mergedRanges())
    setSpan(range.top, range.left, range.bottom - range.top + 1, range.right - range.left + 1);
  for (int row = 0; row < shown.rows(); ++row) setRowHidden(row, shown.row(row).hidden);
  for (int column = 0; column < shown.columns(); ++column)
    setColumnHidden(column, shown.column(column).hidden);
  fitToRoom();
  applySizes();
  updateGeometry();
}

double FlexGrid::pixels(double twips) const {
  return twips * logicalDpiX() / kTwipsPerInch * zoom_;
}

QSize FlexGrid::tableSize(double zoom) const {
  const double scale = static_cast<double>(logicalDpiX()) / kTwipsPerInch * zoom;
  int width = 2 * frameWidth();
  int height = 2 * frameWidth();
  for (int column = 0; column < grid().columns(); ++column)
    if (!grid().column(column).hidden) width += wholePixels(grid().column(column).width * scale);
  for (int row = 0; row < grid().rows(); ++row)
    if (!grid().row(row).hidden) height += wholePixels(grid().row(row).height * scale);
  return {width, height};
}

// The height decides how large the table is shown; a table that nearly fits is made a little
// smaller, so that its last rows need no scrolling.
void FlexGrid::fitToRoom() {
  const QSize natural = tableSize(1.0);
  const double byHeight = static_cast<double>(height()) / std::max(1, natural.height());
  const bool fits = byHeight >= kSmallestZoom;
  const double wanted = fits ? inSteps(std::min(byHeight, kLargestZoom)) : 1.0;
  const int bar = fits ? 0 : verticalScrollBar()->sizeHint().width();
  if (!fillsWidth_) setMaximumWidth(tableSize(wanted).width() + bar);
  const double byWidth = static_cast<double>(width() - bar) / std::max(1, natural.width());
  zoom_ = std::min(wanted, std::max(inSteps(byWidth), 1.0));
  double table = 0;
  for (int column = 0; column < grid().columns(); ++column)
    if (!grid().column(column).hidden) table += pixels(grid().column(column).width);
  const double room = width() - bar - 2.0 * frameWidth();
  stretch_ = fillsWidth_ && table > 0 ? std::max(1.0, room / table) : 1.0;
}

void FlexGrid::setFillsWidth(bool fills) {
  fillsWidth_ = fills;
  setMaximumWidth(QWIDGETSIZE_MAX);
  fitToRoom();
  applySizes();
}

void FlexGrid::applySizes() {
  for (int column = 0; column < grid().columns(); ++column)
    setColumnWidth(column, wholePixels(pixels(grid().column(column).width) * stretch_));
  for (int row = 0; row < grid().rows(); ++row)
    setRowHeight(row, wholePixels(pixels(grid().row(row).height)));
}

QSize FlexGrid::sizeHint() const {
  return tableSize(1.0) + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize FlexGrid::minimumSizeHint() const {
  return {sizeHint().width(), 140};
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  const double zoom = zoom_;
  const double stretch = stretch_;
  fitToRoom();
  if (zoom_ != zoom || stretch_ != stretch) applySizes();
}

void FlexGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) viewport()->update();
}

Grid FlexGrid::chosenPart() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  Grid part = grid();
  if (selected.size() <= 1) return part;
  std::vector<bool> rows(static_cast<std::size_t>(part.rows()));
  std::vector<bool> columns(static_cast<std::size_t>(part.columns()));
  for (const QModelIndex& index : selected) {
    rows[static_cast<std::size_t>(index.row())] = true;
    columns[static_cast<std::size_t>(index.column())] = true;
  }
  for (int row = 0; row < part.rows(); ++row)
    if (!rows[static_cast<std::size_t>(row)]) part.row(row).hidden = true;
  for (int column = 0; column < part.columns(); ++column)
    if (!columns[static_cast<std::size_t>(column)]) part.column(column).hidden = true;
  return part;
}

void FlexGrid::copyToClipboard() const {
  const Grid part = chosenPart();
  auto* copied = new QMimeData;
  copied->setText(QString::fromStdString(toTabSeparated(part)));
  copied->setHtml(QString::fromStdString(toClipboardHtml(part)));
  QApplication::clipboard()->setMimeData(copied);
}

}  // namespace reports
