#pragma once

#include <vector>

#include "mainwindow/Bar.h"
#include "widgets/control.h"

namespace mainwindow {

// Who has something to say. One later in this list waits until those before it have been read.
enum class NoticeFrom {
  Storing,     // nothing can be stored at present
  FlatRate,    // a setting could not be kept
  Index,       // an index is damaged
  SafetyCopy,  // there is no copy
  NewPrice,    // it was taken for no month
  FirstSteps,  // all of them are done
  Saved,       // "Speichern" in the toolbar speaks of a backup
};

// What went wrong without anybody asking for it, one sentence at a time: a later one waits until
// the one before is closed or no longer true.
class NoticeBar final : public Bar {
  Q_OBJECT
 public:
  explicit NoticeBar(QWidget* parent);
  // Takes the place of what the same one has said; "": that is no longer true.
  void say(NoticeFrom from, const QString& text);

  QLabel* const lblHinweis = widgets::control<QLabel>(this, "lblHinweis");
  // "noch 1 Hinweis"; hidden when there is none.
  QLabel* const lblNochHinweise = widgets::control<QLabel>(this, "lblNochHinweise");
  QToolButton* const cmdGelesen = widgets::control<QToolButton>(this, "cmdGelesen");

 private:
  struct Notice {
    NoticeFrom from;
    QString text;
  };
  void showFirst();

  std::vector<Notice> waiting_;  // by urgency
};

}  // namespace mainwindow
