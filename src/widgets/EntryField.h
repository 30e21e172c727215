#pragma once

#include <QLineEdit>
#include <functional>

namespace widgets {

// A line of text with the entry rules that all fields of the program share: Enter goes to the next
// field, the whole text is selected when the field is entered, unwanted characters are discarded
// however they come (typed, pasted, dropped, composed), and Ctrl+Z takes back what was typed.
class EntryField : public QLineEdit {
  Q_OBJECT
 public:
  // Gets what is about to be inserted and returns what of it may be. May show a box.
  using Filter = std::function<QString(const QString& input)>;

  explicit EntryField(QWidget* parent = nullptr);

  void setFilter(Filter filter) { filter_ = std::move(filter); }
  // Gets a pasted text of several lines instead of the field.
  using ColumnPaste = std::function<void(const QString& column)>;
  void setColumnPaste(ColumnPaste paste) { columnPaste_ = std::move(paste); }
  // A filter that lets only these characters pass.
  void allowOnly(const QString& characters);
  // Where a window has a default button for Enter, as a box has; on for all other fields.
  void setEnterMovesOn(bool on) { enterMovesOn_ = on; }
  // Where the window takes back what was done: Ctrl+Z and Ctrl+Y are its keys then, not the
  // field's.
  void leaveUndoToWindow() { undoesItself_ = false; }
  // What has been typed counts as entered, as if the field were left; the focus stays.
  void finish() { leave(); }
  // The text is what it was when the field was entered, as if that had been typed.
  void takeBack();

 Q_SIGNALS:
  // Once, when the field is left, Enter is pressed or the window closes, and the user has changed
  // the text since the field was entered. A menu or toolbar button leaves the focus where it is:
  // what must be stored at once goes by textEdited() or NumberField::valueChanged().
  void entered();
  // The focus has gone to another control of the window, changed or not.
  void left();

 protected:
  // Puts the text into its resting form; called when the field is left, before entered().
  virtual void settle() {}
  // Called before the user changes the text, whichever way.
  virtual void aboutToEdit() {}
  void leave();
  // What show sets counts as typed.
  void asTyped(const std::function<void()>& show);

  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QString filtered(const QString& input) const;
  void insertFiltered(const QString& input);
  void pasteFiltered();

  Filter filter_;
  ColumnPaste columnPaste_;
  // As it was when the focus came, was last reported or set by the program.
  QString textAtEntry_;
  bool editing_ = false;  // has the focus, or had it when the window lost it
  bool enterMovesOn_ = true;
  bool undoesItself_ = true;
  bool selectOnRelease_ = false;
};

}  // namespace widgets
