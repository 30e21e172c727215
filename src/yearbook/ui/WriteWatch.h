#pragma once

#include <QTimer>

#include "yearbook/ui/YearEditor.h"

namespace yearbook {

// A year that cannot be stored at present (no permission, no space, the stick was taken out) is
// shown for reading: its fields take no entries. Looks every few seconds whether that is over.
class WriteWatch final : public QObject {
  Q_OBJECT
 public:
  // For the entry fields below pages.
  WriteWatch(YearEditor& editor, QWidget* pages);

 Q_SIGNALS:
  // Once each time: why nothing can be stored, or "" when it can again.
  void noticed(const QString& notice);

 private:
  void look();
  void tryAgain();

  YearEditor& editor_;
  QWidget* pages_;
  QString notice_;
  QTimer again_{this};
};

}  // namespace yearbook
