#pragma once

#include <QWidget>

#include "reports/YearResults.h"

class QLabel;

namespace reports {

// How the year stands, a card per utility, side by side or, in a narrow page, one below the other.
class ResultCards final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultCards(QWidget* parent);
  void show(const PerUtility<YearResult>& results);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Card;
  void place(int columns);
  PerUtility<Card*> cards_{};
  int columns_ = 0;
};

}  // namespace reports
