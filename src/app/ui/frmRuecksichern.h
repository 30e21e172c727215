#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "dialogs/Services.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/FolderList.h"
#include "widgets/control.h"

// Restore: brings one saved year database and its side files back into the data folder. The saved
// files may be a backup, a safety copy, or the data of an earlier version of the program.
class frmRuecksichern final : public QDialog {
  Q_OBJECT
 public:
  explicit frmRuecksichern(dialogs::Services& services, QWidget* parent = nullptr);

  QLabel* const Label7 = widgets::control<QLabel>(this, "Label7");
  widgets::DriveList* const Drive1 = widgets::control<widgets::DriveList>(this, "Drive1");
  widgets::FolderList* const Dir1 = widgets::control<widgets::FolderList>(this, "Dir1");
  // Shows the safety copies that the program makes by itself.
  QPushButton* const cmdSicherungen = widgets::control<QPushButton>(this, "cmdSicherungen");
  QLabel* const Label2 = widgets::control<QLabel>(this, "Label2");
  widgets::FileList* const File3 = widgets::control<widgets::FileList>(this, "File3");
  QLabel* const Label4 = widgets::control<QLabel>(this, "Label4");
  QLabel* const lblFilename = widgets::control<QLabel>(this, "lblFilename");
  QLabel* const Label1 = widgets::control<QLabel>(this, "Label1");
  widgets::FileList* const FilesWechsel = widgets::control<widgets::FileList>(this, "FilesWechsel");
  QLabel* const Label6 = widgets::control<QLabel>(this, "Label6");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void setTexts();
  void buildLayout();
  void connectControls();
  void activate();
  void Drive1Change(const QString& root);
  void Dir1Change();
  void File3Click(const QString& name);
  void Command1Click();
  void showSafetyCopies();
  std::vector<std::string> sideFiles() const;
  void markSideFiles();

  dialogs::Services& services_;
};
