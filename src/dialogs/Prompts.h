#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace dialogs {

enum class Icon { None, Information, Question, Warning, Critical };
enum class Button { Ok, Cancel, Yes, No, Abort, Retry, Ignore };
enum class Buttons { Ok, OkCancel, YesNo, AbortRetryIgnore };

// Every modal question of the program. The real one shows Qt's boxes; tests answer from a script.
class Prompts {
 public:
  virtual ~Prompts() = default;

  // Title "" becomes the program's name. Line breaks in the text are "\n". The default button is
  // the one that Enter presses; closing the box counts as Cancel, No or Abort.
  virtual Button message(QWidget* owner, const QString& text, const QString& title, Icon icon,
                         Buttons buttons, Button defaultButton) = 0;
  // nullopt when cancelled. A note, where there is one, stands in lines of its own between the
  // prompt and the field.
  virtual std::optional<QString> input(QWidget* owner, const QString& prompt, const QString& title,
                                       const QString& preset, const QString& note) = 0;
  // "" when cancelled. The filter is "description|pattern" pairs separated by "|".
  virtual QString openFile(QWidget* owner, const QString& filter, const QString& title,
                           const QString& folder) = 0;
  // The name comes with the extension (".bmp"), also if it was typed without.
  virtual QString saveFile(QWidget* owner, const QString& filter, const QString& title,
                           const QString& folder, const QString& extension) = 0;
  virtual QString chooseFolder(QWidget* owner, const QString& title, const QString& start) = 0;
  // 0x00BBGGRR, or -1 when cancelled.
  virtual int chooseColor(QWidget* owner, int start, bool fullOpen) = 0;

  // Plain box with OK.
  void tell(QWidget* owner, const QString& text, const QString& title = {},
            Icon icon = Icon::None) {
    message(owner, text, title, icon, Buttons::Ok, Button::Ok);
  }
  // Yes/No with the question icon and No as the default.
  bool confirm(QWidget* owner, const QString& text, const QString& title) {
    return message(owner, text, title, Icon::Question, Buttons::YesNo, Button::No) == Button::Yes;
  }
};

}  // namespace dialogs
