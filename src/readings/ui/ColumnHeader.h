#pragma once

#include <QLabel>
#include <vector>

namespace readings {

// One line of headings whose text sets the columns apart by runs of blanks. Each heading is drawn
// at the left edge of its column instead, whatever the font.
class ColumnHeader : public QLabel {
  Q_OBJECT
 public:
  explicit ColumnHeader(QWidget* parent = nullptr);

  // Siblings whose left edges are the columns'.
  void setColumns(std::vector<const QWidget*> columns) { columns_ = std::move(columns); }

  int headingWidth(int index) const;

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QStringList headings() const;

  std::vector<const QWidget*> columns_;
};

}  // namespace readings
