#pragma once

#include <QString>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/Prompts.h"
#include "dialogs/Shell.h"

// Answers the program's boxes from a script and keeps what was asked. A box that no script expects
// fails the test; so does a script left over at the end.
class FakePrompts final : public dialogs::Prompts {
 public:
  struct Shown {
    QString kind;  // "message", "input", "openFile", "saveFile", "chooseFolder", "chooseColor"
    QString text;
    QString title;
    dialogs::Icon icon = dialogs::Icon::None;
    dialogs::Buttons buttons = dialogs::Buttons::Ok;
    dialogs::Button defaultButton = dialogs::Button::Ok;
    QString preset;
    QString note;
  };

  ~FakePrompts() override;

  // Script, in the order in which the boxes come.
  void answer(dialogs::Button button) { buttons_.push_back(button); }
  void answerInput(std::optional<QString> text) { inputs_.push_back(std::move(text)); }
  void answerPath(const QString& path) { paths_.push_back(path); }
  void answerColor(int color) { colors_.push_back(color); }
  // Looked at while the box is open.
  std::function<void()> whileAsked;
  // Boxes with OK alone need no script when this is set.
  void acceptTellings(bool accept = true) { acceptTellings_ = accept; }

  std::vector<Shown> shown;
  const Shown& last() const { return shown.back(); }
  // The last box, taken off the list.
  Shown take();

  dialogs::Button message(QWidget*, const QString& text, const QString& title, dialogs::Icon icon,
                          dialogs::Buttons buttons, dialogs::Button defaultButton) override;
  std::optional<QString> input(QWidget*, const QString& prompt, const QString& title,
                               const QString& preset, const QString& note) override;
  QString openFile(QWidget*, const QString& filter, const QString& title,
                   const QString& folder) override;
  QString saveFile(QWidget*, const QString& filter, const QString& title, const QString& folder,
                   const QString& extension) override;
  QString chooseFolder(QWidget*, const QString& title, const QString& start) override;
  int chooseColor(QWidget*, int start, bool fullOpen) override;

 private:
  QString nextPath(const QString& kind, const QString& text, const QString& title,
                   const QString& preset);
  std::deque<dialogs::Button> buttons_;
  std::deque<std::optional<QString>> inputs_;
  std::deque<QString> paths_;
  std::deque<int> colors_;
  bool acceptTellings_ = false;
};

class FakeShell final : public dialogs::Shell {
 public:
  bool startProgram(const QString& path) override {
    started.push_back(path);
    return succeeds;
  }
  bool openDocument(const QString& path) override {
    opened.push_back(path);
    return succeeds;
  }
  void playSound(const QString& path) override { played.push_back(path); }

  std::vector<QString> started, opened, played;
  bool succeeds = true;
};
