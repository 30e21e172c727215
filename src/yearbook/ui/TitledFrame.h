#pragma once

#include <QGroupBox>

namespace yearbook {

// A frame with a bold title over plain contents.
class TitledFrame : public QGroupBox {
  Q_OBJECT
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace yearbook
