#pragma once

#include <QLabel>

namespace reports {

// Where a file went, in a narrow column: a name that is wider than the column is broken, not cut.
class OutputNote final : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isTooWide(int width) const { return QLabel::minimumSizeHint().width() > width; }
};

}  // namespace reports
