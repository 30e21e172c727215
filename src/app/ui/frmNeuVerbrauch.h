#pragma once

#include <QLabel>
#include <QPlainTextEdit>

#include "dialogs/Window.h"
#include "widgets/EntryField.h"
#include "widgets/control.h"

// Makes a further year database from the template, under a name that the user types.
class frmNeuVerbrauch final : public dialogs::Window {
  Q_OBJECT
 public:
  explicit frmNeuVerbrauch(const dialogs::Services& services, QWidget* parent = nullptr);

  QPlainTextEdit* const Text2 = widgets::control<QPlainTextEdit>(this, "Text2");
  QLabel* const Label2 = widgets::control<QLabel>(this, "Label2");
  widgets::EntryField* const txtBenutzer =
      widgets::control<widgets::EntryField>(this, "txtBenutzer");
  // What a name has in common with that of an existing year.
  QLabel* const lblNamensHinweis = widgets::control<QLabel>(this, "lblNamensHinweis");
  QPushButton* const Command1 = widgets::control<QPushButton>(this, "Command1");
  QPushButton* const Command2 = widgets::control<QPushButton>(this, "Command2");

  // The path of the year that was made; "" when none was.
  const std::string& made() const { return made_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void setTexts();
  void buildLayout();
  void Command1Click();
  void showNameHint();
  // True when the target may be written.
  bool mayReplace(const QString& target);

  std::string made_;
};
