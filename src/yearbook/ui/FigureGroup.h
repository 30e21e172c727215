#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <string>
#include <vector>

#include "yearbook/ui/TitledFrame.h"

namespace yearbook {

// A figure that the program works out: reads like print, right-aligned with the typed fields above
// and below it; can be selected and copied, not changed.
class DerivedField final : public QLineEdit {
  Q_OBJECT
 public:
  explicit DerivedField(QWidget* parent = nullptr);
  // Bold, for sums.
  void emphasize();
  void showText(const std::string& utf8);
};

// A frame of lines "label, value, unit, extra" in aligned columns, in one block or several side by
// side.
class FigureGroup final : public TitledFrame {
  Q_OBJECT
 public:
  FigureGroup(QWidget* parent, const char* name, const QString& title);

  struct Line {
    QLabel* label = nullptr;
    QWidget* value = nullptr;
    QLabel* unit = nullptr;
    QWidget* extra = nullptr;
  };
  // The spoken name of the value is its label and the frame's title. unit and extra may be missing.
  const Line& addLine(const QString& label, QWidget* value, const QString& unit = {},
                      QWidget* extra = nullptr);
  // A quiet line of text below the last one; takes no room while it is empty.
  QLabel* addNote();
  // A thin line above the next one added: a sum follows.
  void addRule();
  // At the foot of the frame, over its whole width.
  void setFoot(QWidget* widget);
  // Lays the lines out again in so many blocks, filled column by column.
  void arrange(int blocks);

 private:
  struct Row {
    Line line;
    QWidget* whole = nullptr;  // instead of a line, over its width
  };
  void place(const Row& row, int gridRow, int block);

  QGridLayout* grid_;
  std::vector<Row> rows_;
  QWidget* foot_ = nullptr;
};

// Enough for "1.234.567,8" in the widget's font, frame and margins included.
int numberWidth(const QWidget* widget);
// A framed field's height, which lines without one have as well.
int fieldHeight(const QWidget* widget);
// From the right edge of a framed field to its text.
int textInset(const QLineEdit& field);

}  // namespace yearbook
