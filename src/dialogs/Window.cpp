#include "dialogs/Window.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "base/CurrentFolder.h"
#include "dialogs/Navigator.h"
#include "dialogs/WindowPlace.h"

namespace dialogs {
namespace {

// What is left of 1366 x 768 at 144 dpi, or of 1024 x 600.
constexpr QSize kSmallScreen(880, 440);

// What stands last where the parts stand one below the other.
QLayout* lastOf(QLayout* content) {
  auto* rows = qobject_cast<QVBoxLayout*>(content);
  return rows && rows->count() > 0 ? rows->itemAt(rows->count() - 1)->layout() : nullptr;
}

// A row of buttons, or one with a line above it.
bool endsWithButtons(QLayout* foot) {
  for (int i = 0; foot && i < foot->count(); ++i)
    if (qobject_cast<QPushButton*>(foot->itemAt(i)->widget())) return true;
  return foot && lastOf(foot) && endsWithButtons(lastOf(foot));
}

QLayout* takeFoot(QLayout* content) {
  if (!endsWithButtons(lastOf(content))) return nullptr;
  return content->takeAt(content->count() - 1)->layout();
}

}  // namespace

Window::Window(const QString& name, const QString& caption, const Services& services,
               QWidget* parent)
    : QDialog(parent), services_(services) {
  setObjectName(name);
  setWindowTitle(caption);
  keepPlace(*this);
}

void Window::showHelp() {
  services_.navigator.showManual(objectName());
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

void Window::setVisible(bool visible) {
  if (visible && !std::exchange(prepared_, true)) letTallContentScroll();
  QDialog::setVisible(visible);
}

// All but the row of buttons at the bottom, where there is one, and the line above it.
void Window::letTallContentScroll() {
  QLayout* content = layout();
  if (!content) return;
  const QSize least = content->totalMinimumSize();
  if (least.width() <= kSmallScreen.width() && least.height() <= kSmallScreen.height()) return;
  const QSize chosen = testAttribute(Qt::WA_Resized) ? size() : QSize();
  const QMargins margins = content->contentsMargins();
  QLayout* buttons = takeFoot(content);
  constexpr int kAboveButtons = 8;
  if (buttons)
    content->setContentsMargins(margins.left(), margins.top(), margins.right(), kAboveButtons);
  QWidget* menu = content->menuBar();
  content->setMenuBar(nullptr);
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  // Of this window before it takes the controls: they keep their order for Tab.
  auto* page = new QWidget(area);
  page->setLayout(content);
  area->setWidget(page);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->setMenuBar(menu);
  rows->addWidget(area);
  if (buttons) {
    buttons->setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
    rows->addLayout(buttons);
  }
  // What an area wants is not all that it shows.
  QSize whole = content->totalSizeHint().expandedTo(content->totalMinimumSize());
  // Beside a bar that is there for a moment lines may break once more; the bar would stay.
  const int bar = area->verticalScrollBar()->sizeHint().width();
  whole = whole.expandedTo({0, content->totalHeightForWidth(whole.width() - bar)});
  if (buttons) whole.rheight() += buttons->totalSizeHint().height();
  if (chosen.isValid()) whole = chosen;
  // The bar takes its room beside the content, or a second one would come below it.
  if (whole.height() + kDecoration.height() > screen()->availableSize().height())
    whole.setWidth(std::max(whole.width(), least.width() + bar));
  resize(whole);
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
