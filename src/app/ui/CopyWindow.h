#pragma once

#include <QLabel>
#include <functional>

#include "app/Backup.h"
#include "dialogs/Window.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/FolderList.h"
#include "widgets/control.h"

class QVBoxLayout;

namespace app {

// What the backup and the restore window share: the folder of the copies on the left, years and
// side files on the right, and the run that copies. Both leave the data folder as the current
// folder.
class CopyWindow : public dialogs::Window {
  Q_OBJECT
 public:
  QLabel* const Label7 = widgets::control<QLabel>(this, "Label7");
  widgets::DriveList* const Drive1 = widgets::control<widgets::DriveList>(this, "Drive1");
  widgets::FolderList* const Dir1 = widgets::control<widgets::FolderList>(this, "Dir1");
  QLabel* const Label2 = widgets::control<QLabel>(this, "Label2");
  widgets::FileList* const FilesWechsel = widgets::control<widgets::FileList>(this, "FilesWechsel");
  QLabel* const Label6 = widgets::control<QLabel>(this, "Label6");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");

 protected:
  CopyWindow(const QString& name, const QString& caption, const dialogs::Services& services,
             QWidget* parent);

  // For the right column, each with its share of the height.
  void addYears(widgets::FileList* years, int stretch);
  void addSideFiles(QLabel* heading, int stretch);
  static void makeBold(QLabel* label);
  // What is listed is not a choice.
  static void onlyShow(widgets::FileList* list);

  // The folder with which the window comes up.
  virtual QString firstFolder() const;
  // When the window has come up, with its first folder.
  virtual void activate() = 0;
  // When another folder is chosen.
  virtual void Dir1Change() = 0;

  struct CopyTexts {
    QString title;
    QString done;
    QString cancelled;
  };
  // Copies, shows how far it is when that takes longer than a moment, and tells how it ended. True
  // when all is copied.
  bool run(const CopyTexts& texts,
           const std::function<base::Result<void>(const CopyProgress& progress)>& copy);

  void showEvent(QShowEvent* event) override;

  QVBoxLayout* const left_;
  QVBoxLayout* const right_;

 private:
  void buildLayout();
  void Drive1Change(const QString& root);
};

}  // namespace app
