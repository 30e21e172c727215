#include "dialogs/QtPrompts.h"

#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "dialogs/CommonDialogs.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {
namespace {

constexpr std::array<std::pair<Button, QMessageBox::StandardButton>, 7> kButtons = {{
    {Button::Ok, QMessageBox::Ok},
    {Button::Cancel, QMessageBox::Cancel},
    {Button::Yes, QMessageBox::Yes},
    {Button::No, QMessageBox::No},
    {Button::Abort, QMessageBox::Abort},
    {Button::Retry, QMessageBox::Retry},
    {Button::Ignore, QMessageBox::Ignore},
}};

QMessageBox::StandardButton toQt(Button button) {
  for (const auto& [ours, qts] : kButtons)
    if (ours == button) return qts;
  return QMessageBox::NoButton;
}

Button fromQt(int button, Button otherwise) {
  for (const auto& [ours, qts] : kButtons)
    if (qts == button) return ours;
  return otherwise;
}

struct ButtonSet {
  QMessageBox::StandardButtons all;
  Button whenClosed;
};

ButtonSet buttonSet(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      break;
    case Buttons::OkCancel:
      return {QMessageBox::Ok | QMessageBox::Cancel, Button::Cancel};
    case Buttons::YesNo:
      return {QMessageBox::Yes | QMessageBox::No, Button::No};
    case Buttons::AbortRetryIgnore:
      return {QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore, Button::Abort};
  }
  return {QMessageBox::Ok, Button::Ok};
}

QMessageBox::Icon toQt(Icon icon) {
  switch (icon) {
    case Icon::None:
      break;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Warning:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

// What a title needs in a box's frame, beside the icon and the buttons there. A box sizes itself by
// what it holds, and the title is part of the question.
int roomOfTitle(const QDialog& box) {
  constexpr int kFrameButtons = 160;
  return box.fontMetrics().horizontalAdvance(box.windowTitle()) + kFrameButtons;
}

QString titleOrName(const QString& title) {
  return title.isEmpty() ? u"Kalvira"_s : title;
}

}  // namespace

Button QtPrompts::message(QWidget* owner, const QString& text, const QString& title, Icon icon,
                          Buttons buttons, Button defaultButton) {
  const ButtonSet set = buttonSet(buttons);
  QMessageBox box(toQt(icon), titleOrName(title), {}, set.all, owner);
  // A file name may hold "<" or "&": the text is never markup.
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setDefaultButton(toQt(defaultButton));
  box.setEscapeButton(toQt(set.whenClosed));
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
    grid->addItem(new QSpacerItem(roomOfTitle(box), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
  return fromQt(box.exec(), set.whenClosed);
}

std::optional<QString> QtPrompts::input(QWidget* owner, const QString& prompt, const QString& title,
                                        const QString& preset, const QString& note) {
  QInputDialog dialog(owner);
  dialog.setInputMode(QInputDialog::TextInput);
  dialog.setWindowTitle(titleOrName(title));
  dialog.setLabelText(prompt);
  dialog.setTextValue(preset);
  dialog.adjustSize();  // makes its parts, which it has not before it is shown
  auto* line = dialog.findChild<QLineEdit*>();
  if (line) line->setMinimumWidth(roomOfTitle(dialog));
  auto* rows = qobject_cast<QVBoxLayout*>(dialog.layout());
  if (rows && line && !note.isEmpty()) {
    rows->insertWidget(rows->indexOf(line), new QLabel(note, &dialog));
    line->setAccessibleDescription(note);
  }
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue();
}

QString QtPrompts::openFile(QWidget* owner, const QString& filter, const QString& title,
                            const QString& folder) {
  return OpenFileDialog(owner, filter, title, folder);
}

QString QtPrompts::saveFile(QWidget* owner, const QString& filter, const QString& title,
                            const QString& folder, const QString& extension) {
  return SaveFileDialog(owner, filter, title, folder, extension);
}

QString QtPrompts::chooseFolder(QWidget* owner, const QString& title, const QString& start) {
  return BrowseForFolderDialog(owner, title, start);
}

int QtPrompts::chooseColor(QWidget* owner, int start, bool fullOpen) {
  return ChooseColorDialog(owner, fullOpen, start);
}

}  // namespace dialogs
