#include "widgets/EntryField.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace widgets {
namespace {

// Qt's own paste entry, which bypasses the filter. Newer versions name it; older ones are known by
// the key that the entry shows.
QAction* pasteAction(const QMenu& menu) {
  const QString key = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
  for (QAction* action : menu.actions())
    if (action->objectName() == u"edit-paste"_s || action->text().section(u'\t', 1) == key)
      return action;
  return nullptr;
}

bool isPlain(const QKeyEvent& event) {
  const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) ||
                     (event.modifiers() & Qt::AltModifier);
  return plain && !event.text().isEmpty() && event.text()[0].isPrint();
}

bool changesText(const QKeyEvent& event) {
  return isPlain(event) || event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete ||
         event.matches(QKeySequence::Cut);
}

}  // namespace

EntryField::EntryField(QWidget* parent) : QLineEdit(parent) {
  // What the program shows while the field has the focus is no edit to be taken back.
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!isModified()) textAtEntry_ = text();
  });
}

void EntryField::allowOnly(const QString& characters) {
  filter_ = [characters](const QString& input) {
    QString kept;
    for (const QChar c : input)
      if (characters.contains(c)) kept += c;
    return kept;
  };
}

QString EntryField::filtered(const QString& input) const {
  return filter_ ? filter_(input) : input;
}

void EntryField::insertFiltered(const QString& input) {
  if (isReadOnly()) return;
  const QString kept = filtered(input);
  if (kept.isEmpty()) return;
  aboutToEdit();
  insert(kept);
}

void EntryField::takeBack() {
  if (isReadOnly() || text() == textAtEntry_) return;
  aboutToEdit();
  selectAll();
  insert(textAtEntry_);
  selectAll();
}

void EntryField::pasteFiltered() {
  const QString text = QApplication::clipboard()->text();
  if (columnPaste_ && !isReadOnly() && text.trimmed().contains(u'\n'))
    columnPaste_(text);
  else
    insertFiltered(text);
}

void EntryField::asTyped(const std::function<void()>& show) {
  const QString before = textAtEntry_;
  show();
  setModified(true);
  textAtEntry_ = before;
}

void EntryField::leave() {
  editing_ = hasFocus();
  // Text set by the program is not modified in Qt's sense.
  const bool typed = isModified();
  const QString before = textAtEntry_;
  settle();
  const bool changed = typed && text() != before;
  textAtEntry_ = text();
  if (!changed || isReadOnly()) return;
  Q_EMIT entered();
  // What was refused is a change again when it is typed again.
  textAtEntry_ = text();
}

bool EntryField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && !undoesItself_) {
    const auto* key = static_cast<QKeyEvent*>(event);
    // Not accepted, it goes to the window's actions.
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) return false;
  }
  return QLineEdit::event(event);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && enterMovesOn_) {
    event->accept();
    if (!focusNextChild() || hasFocus()) leave();
    return;
  }
  if (event->matches(QKeySequence::Paste)) {
    event->accept();
    pasteFiltered();
    return;
  }
  const QString typed = event->text();
  if (filter_ && isPlain(*event)) {
    const QString kept = filtered(typed);
    if (kept != typed) {
      event->accept();
      if (!kept.isEmpty() && !isReadOnly()) insert(kept);
      return;
    }
  }
  if (changesText(*event) && !isReadOnly()) aboutToEdit();
  QLineEdit::keyPressEvent(event);
}

void EntryField::inputMethodEvent(QInputMethodEvent* event) {
  const QString committed = event->commitString();
  const QString kept = committed.isEmpty() ? committed : filtered(committed);
  if (kept == committed) {
    QLineEdit::inputMethodEvent(event);
    return;
  }
  QInputMethodEvent cleaned(event->preeditString(), event->attributes());
  cleaned.setCommitString(kept, event->replacementStart(), event->replacementLength());
  QLineEdit::inputMethodEvent(&cleaned);
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  if (QAction* paste = pasteAction(*menu)) {
    disconnect(paste, &QAction::triggered, nullptr, nullptr);
    connect(paste, &QAction::triggered, this, &EntryField::pasteFiltered);
  }
  menu->exec(event->globalPos());
}

void EntryField::dropEvent(QDropEvent* event) {
  if (!filter_ || isReadOnly() || event->source() == this) {
    QLineEdit::dropEvent(event);
    return;
  }
  deselect();
  setCursorPosition(cursorPositionAt(event->position().toPoint()));
  insertFiltered(event->mimeData()->text());
  // A copy, even when the other side offers to move: what was not taken over must not vanish there.
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
  const QClipboard* clipboard = QApplication::clipboard();
  if (event->button() == Qt::MiddleButton && clipboard->supportsSelection() && filter_) {
    event->accept();
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    insertFiltered(clipboard->text(QClipboard::Selection));
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
  // The first click into the field selects all, unless it has drawn a selection of its own.
  if (selectOnRelease_ && !hasSelectedText()) selectAll();
  selectOnRelease_ = false;
}

void EntryField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // Coming back from a menu or another window goes on with the same entry.
  if (editing_) return;
  textAtEntry_ = text();
  editing_ = true;
  selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
  if (!selectOnRelease_) selectAll();
}

void EntryField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
    return;
  leave();
  Q_EMIT left();
}

void EntryField::hideEvent(QHideEvent* event) {
  // A window that is only made an icon of comes back with the same entry.
  if (editing_ && !event->spontaneous()) leave();
  QLineEdit::hideEvent(event);
}

}  // namespace widgets
