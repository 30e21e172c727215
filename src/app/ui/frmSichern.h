#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "dialogs/Services.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/FolderList.h"
#include "widgets/control.h"

// Backup: copies every year database and every side file of the data folder into a folder that the
// user chooses.
class frmSichern final : public QDialog {
  Q_OBJECT
 public:
  explicit frmSichern(dialogs::Services& services, QWidget* parent = nullptr);

  QLabel* const Label7 = widgets::control<QLabel>(this, "Label7");
  widgets::DriveList* const Drive1 = widgets::control<widgets::DriveList>(this, "Drive1");
  widgets::FolderList* const Dir1 = widgets::control<widgets::FolderList>(this, "Dir1");
  QLabel* const Label2 = widgets::control<QLabel>(this, "Label2");
  widgets::FileList* const FileVerbrauch =
      widgets::control<widgets::FileList>(this, "FileVerbrauch");
  QLabel* const lblWechsel = widgets::control<QLabel>(this, "lblWechsel");
  widgets::FileList* const FilesWechsel = widgets::control<widgets::FileList>(this, "FilesWechsel");
  QLabel* const Label6 = widgets::control<QLabel>(this, "Label6");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void setTexts();
  void buildLayout();
  void activate();
  void Drive1Change(const QString& root);
  void Dir1Change();
  void Command1Click();

  dialogs::Services& services_;
};
