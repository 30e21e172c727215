#pragma once

#include "app/ui/CopyWindow.h"

// Restore: brings saved year databases and their side files back into the data folder. The saved
// files may be a backup, a safety copy, or the data of an earlier version of the program.
class frmRuecksichern final : public app::CopyWindow {
  Q_OBJECT
 public:
  explicit frmRuecksichern(const dialogs::Services& services, QWidget* parent = nullptr);

  // Shows the safety copies that the program makes by itself.
  QPushButton* const cmdSicherungen = widgets::control<QPushButton>(this, "cmdSicherungen");
  widgets::FileList* const File3 = widgets::control<widgets::FileList>(this, "File3");
  QLabel* const Label4 = widgets::control<QLabel>(this, "Label4");
  QLabel* const lblFilename = widgets::control<QLabel>(this, "lblFilename");
  QLabel* const Label1 = widgets::control<QLabel>(this, "Label1");

 protected:
  void activate() override;
  void Dir1Change() override;

 private:
  void setTexts();
  void buildLayout();
  void File3Click(const QString& name);
  void Command1Click();
  void showSafetyCopies();
  std::vector<std::string> sideFilesOf(const QString& year) const;
  std::vector<std::string> sideFiles() const;
  void markSideFiles();
  base::Result<void> restore(const QStringList& years, const app::CopyProgress& progress);

  QStringList clicked_;  // the years that lblFilename names
};
