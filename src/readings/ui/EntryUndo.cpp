#include "readings/ui/EntryUndo.h"

#include <QShortcut>
#include <utility>

namespace readings {

EntryUndo::EntryUndo(QWidget* window, std::function<void()> shown)
    : QObject(window), shown_(std::move(shown)) {
  for (widgets::NumberField* field : window->findChildren<widgets::NumberField*>()) {
    if (field->isReadOnly()) continue;
    field->leaveUndoToWindow();
    fields_.push_back(field);
    connect(field, &widgets::EntryField::entered, this, &EntryUndo::note);
  }
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
    if (!button->isCheckable()) continue;
    buttons_.push_back(button);
    connect(button, &QAbstractButton::clicked, this, &EntryUndo::note);
  }
  const auto key = [&](const char* keys, void (EntryUndo::*way)()) {
    auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), window);
    connect(shortcut, &QShortcut::activated, this, way);
  };
  key("Ctrl+Z", &EntryUndo::undo);
  key("Ctrl+Y", &EntryUndo::redo);
  key("Ctrl+Shift+Z", &EntryUndo::redo);
  begin();
}

EntryUndo::State EntryUndo::now() const {
  State state;
  for (const widgets::NumberField* field : fields_) state.values.push_back(field->value());
  for (const QAbstractButton* button : buttons_) state.checked.push_back(button->isChecked());
  return state;
}

void EntryUndo::begin() {
  steps_ = {now()};
  current_ = 0;
}

void EntryUndo::note() {
  State state = now();
  if (state == steps_[current_]) return;
  steps_.resize(current_ + 1);
  steps_.push_back(std::move(state));
  ++current_;
}

void EntryUndo::show(std::size_t step) {
  current_ = step;
  const State state = steps_[step];
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    // A text in the making goes as well.
    fields_[i]->setModified(false);
    fields_[i]->setValue(state.values[i]);
  }
  for (std::size_t i = 0; i < buttons_.size(); ++i)
    if (state.checked[i]) buttons_[i]->setChecked(true);
  for (std::size_t i = 0; i < buttons_.size(); ++i) buttons_[i]->setChecked(state.checked[i]);
  shown_();
}

void EntryUndo::undo() {
  note();
  if (current_ > 0) show(current_ - 1);
}

void EntryUndo::redo() {
  note();
  if (current_ + 1 < steps_.size()) show(current_ + 1);
}

}  // namespace readings
