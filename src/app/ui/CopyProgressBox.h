#pragma once

#include <QProgressDialog>

#include "app/Backup.h"

namespace app {

// Shows how far a copy run is and lets the user stop it between two files. Appears only when the
// run takes longer than a moment; until it is gone, the wait cursor is shown.
class CopyProgressBox final {
 public:
  CopyProgressBox(QWidget* owner, const QString& title);
  ~CopyProgressBox();
  CopyProgressBox(const CopyProgressBox&) = delete;
  CopyProgressBox& operator=(const CopyProgressBox&) = delete;

  CopyProgress progress();

 private:
  QProgressDialog box_;
};

}  // namespace app
