#include "widgets/DriveList.h"

#include <QWheelEvent>

namespace widgets {

DriveList::DriveList(QWidget* parent) : QComboBox(parent) {
  connect(this, &QComboBox::activated, this, [this] { Q_EMIT chosen(drive()); });
}

void DriveList::setDrives(const QStringList& roots) {
  clear();
  addItems(roots);
}

QString DriveList::drive() const {
  return currentText();
}

void DriveList::showDriveOf(const QString& path) {
  int best = -1;
  for (int i = 0; i < count(); ++i) {
    const bool holds = path.startsWith(itemText(i), Qt::CaseInsensitive);
    if (holds && (best < 0 || itemText(i).size() > itemText(best).size())) best = i;
  }
  if (best >= 0) setCurrentIndex(best);
}

void DriveList::wheelEvent(QWheelEvent* event) {
  // Scrolling past must not change the drive.
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

}  // namespace widgets
