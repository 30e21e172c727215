#pragma once

#include <QTabWidget>

namespace widgets {

// A tab strip over equal pages. A page that is larger than the window scrolls, so that nothing is
// out of reach on a small screen.
class PageTabs final : public QTabWidget {
  Q_OBJECT
 public:
  explicit PageTabs(QWidget* parent = nullptr);
  // Takes the frame over; returns the page's index.
  int addFrame(QWidget* frame, const QString& caption);
  // The page that holds the frame, -1 when none does.
  int pageOf(const QWidget* frame) const;
  void showFrame(const QWidget* frame);
};

}  // namespace widgets
