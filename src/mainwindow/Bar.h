#pragma once

#include <QFrame>
#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QToolButton>

namespace mainwindow {

// A bar below the menus: a sentence, a way to go from there, and a button that closes it. A stripe
// and a tint, so that it stays quiet in light and dark. Hidden until a BarPlace shows it.
class Bar : public QFrame {
  Q_OBJECT
 public:
  // It has something to say, although another bar may stand in its place.
  bool isWanted() const { return wanted_; }

 Q_SIGNALS:
  void wantedChanged();
  void closedByHand();

 protected:
  explicit Bar(QWidget* parent);
  void want(bool wanted);
  void closeByHand();
  void arrange(QLabel* text, QPushButton* way, QToolButton* close);
  static void captionClose(QToolButton* close);
  // Read out to those who cannot see it come, as soon as it is shown.
  void announce(QWidget* text);
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* toAnnounce_ = nullptr;
  bool wanted_ = false;
};

// Where the bars stand, one at a time: the first that is wanted, and the next one when it is gone.
// A bar that goes by itself, or a lower one in its place, leaves the height as it was: tabs and
// fields below must not slip away under a hand that is about to click. Back from another window,
// the hand begins anew.
class BarPlace final : public QWidget {
  Q_OBJECT
 public:
  // In the order in which they matter.
  BarPlace(QWidget* parent, const QList<Bar*>& bars);

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The height is that of the highest bar that is wanted: one that waits will come back.
  void settle();
  void showFirst();

  const QList<Bar*> bars_;
};

}  // namespace mainwindow
