#pragma once

#include <QComboBox>

namespace widgets {

// The drives to choose from. Only the user's choice is signalled.
class DriveList final : public QComboBox {
  Q_OBJECT
 public:
  explicit DriveList(QWidget* parent = nullptr);
  void setDrives(const QStringList& roots);
  // The root of the drive shown.
  QString drive() const;
  // Shows the drive that holds the path, without chosen().
  void showDriveOf(const QString& path);

 Q_SIGNALS:
  void chosen(const QString& root);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace widgets
