#pragma once

#include <QTableView>
#include <memory>

#include "reports/Grid.h"

namespace reports {

// Widths of texts on a screen, in twips.
TextWidth measureOn(const QPaintDevice& device);
QFont toQFont(const CellFont& font);
Qt::Alignment toQtAlignment(const Grid& grid, int row, int column);

// Shows a Grid, read-only: merged titles, bands, border lines, colours (readable in dark palettes
// too), widths and heights in twips. It asks for the room that the table needs and enlarges the
// table when it gets more. Copying (Ctrl+C, context menu) gives spreadsheets what is selected, or
// the whole table where at most one cell is.
class FlexGrid : public QTableView {
  Q_OBJECT
 public:
  explicit FlexGrid(QWidget* parent = nullptr);
  ~FlexGrid() override;

  void setGrid(Grid grid);
  const Grid& grid() const;
  void copyToClipboard() const;
  // Whether the columns share out a room that is wider than the table.
  void setFillsWidth(bool fills);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Model;
  class Delegate;
  // The selected part as a grid of its own; the whole where at most one cell is selected.
  Grid chosenPart() const;
  double pixels(double twips) const;
  QSize tableSize(double zoom) const;
  void fitToRoom();
  void applySizes();

  std::unique_ptr<Model> model_;
  double zoom_ = 1.0;
  bool fillsWidth_ = false;
  double stretch_ = 1.0;  // of the columns' widths alone
};

}  // namespace reports
