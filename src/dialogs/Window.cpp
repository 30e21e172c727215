#include "dialogs/Window.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "base/CurrentFolder.h"
#include "dialogs/Navigator.h"

namespace dialogs {

Window::Window(const QString& name, const QString& caption, const Services& services,
               QWidget* parent)
    : QDialog(parent), services_(services) {
  setObjectName(name);
  setWindowTitle(caption);
}

void Window::showHelp() {
  services_.navigator.showHelp();
}

void Window::makeCloseButton(QPushButton* button, const QString& caption) {
  button->setText(caption);
  button->setAccessibleName(QStringLiteral("Fenster schließen"));
  connect(button, &QPushButton::clicked, this, &Window::reject);
}

void Window::setTabOrder(std::initializer_list<QWidget*> controls) {
  for (const auto* next = controls.begin() + 1; next < controls.end(); ++next)
    setTabOrder(next[-1], *next);
}

void Window::enterDataFolder() const {
  base::ignore(base::makeCurrent(services_.paths.DataFolder),
               "file dialogs begin elsewhere then, and what is read or written names its folder");
}

void Window::showEvent(QShowEvent* event) {
  // Qt would make a main button of whichever has the focus.
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  QDialog::showEvent(event);
}

void Window::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::HelpContents)) return showHelp();
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QDialog::keyPressEvent(event);
  auto* pressed = qobject_cast<QPushButton*>(focusWidget());
  for (QPushButton* button : findChildren<QPushButton*>())
    if (pressed == nullptr && button->isDefault()) pressed = button;
  if (pressed != nullptr)
    pressed->click();
  else if (qobject_cast<QLineEdit*>(focusWidget()) == nullptr)  // fields go on by themselves
    focusNextChild();
}

}  // namespace dialogs
