#pragma once

#include "dialogs/Prompts.h"

namespace dialogs {

// The boxes and file dialogs that the user sees: QMessageBox, QInputDialog, QFileDialog and
// QColorDialog, with exactly the text and title that were asked for.
class QtPrompts final : public Prompts {
 public:
  Button message(QWidget* owner, const QString& text, const QString& title, Icon icon,
                 Buttons buttons, Button defaultButton) override;
  std::optional<QString> input(QWidget* owner, const QString& prompt, const QString& title,
                               const QString& preset, const QString& note) override;
  QString openFile(QWidget* owner, const QString& filter, const QString& title,
                   const QString& folder) override;
  QString saveFile(QWidget* owner, const QString& filter, const QString& title,
                   const QString& folder, const QString& extension) override;
  QString chooseFolder(QWidget* owner, const QString& title, const QString& start) override;
  int chooseColor(QWidget* owner, int start, bool fullOpen) override;
};

}  // namespace dialogs
