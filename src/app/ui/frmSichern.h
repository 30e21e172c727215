#pragma once

#include "app/ui/CopyWindow.h"

// Backup: copies every year database and every side file of the data folder into a folder that the
// user chooses.
class frmSichern final : public app::CopyWindow {
  Q_OBJECT
 public:
  explicit frmSichern(const dialogs::Services& services, QWidget* parent = nullptr);

  widgets::FileList* const FileVerbrauch =
      widgets::control<widgets::FileList>(this, "FileVerbrauch");
  QPushButton* const cmdNeuerOrdner = widgets::control<QPushButton>(this, "cmdNeuerOrdner");
  QLabel* const lblWechsel = widgets::control<QLabel>(this, "lblWechsel");

 protected:
  QString firstFolder() const override;
  void activate() override;
  void Dir1Change() override;

 private:
  void Command1Click();
  void makeFolder();
};
