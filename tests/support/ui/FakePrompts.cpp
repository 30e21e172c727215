#include "support/ui/FakePrompts.h"

#include "dialogs/FileFilter.h"

#include <gtest/gtest.h>

using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;

FakePrompts::~FakePrompts() {
  EXPECT_TRUE(buttons_.empty() && inputs_.empty() && paths_.empty() && colors_.empty())
      << "a scripted answer was never asked for";
}

FakePrompts::Shown FakePrompts::take() {
  if (shown.empty()) {
    ADD_FAILURE() << "no box was shown";
    return {};
  }
  Shown box = shown.back();
  shown.pop_back();
  return box;
}

Button FakePrompts::message(QWidget*, const QString& text, const QString& title, Icon icon,
                            Buttons buttons, Button defaultButton) {
  shown.push_back({QStringLiteral("message"), text, title, icon, buttons, defaultButton, {}, {}});
  if (buttons == Buttons::Ok && (acceptTellings_ || buttons_.empty())) {
    EXPECT_TRUE(acceptTellings_) << "unexpected box: " << text.toStdString();
    return Button::Ok;
  }
  if (buttons_.empty()) {
    ADD_FAILURE() << "unexpected question: " << text.toStdString();
    return buttons == Buttons::YesNo      ? Button::No
           : buttons == Buttons::OkCancel ? Button::Cancel
                                          : Button::Abort;
  }
  const Button button = buttons_.front();
  buttons_.pop_front();
  return button;
}

std::optional<QString> FakePrompts::input(QWidget*, const QString& prompt, const QString& title,
                                          const QString& preset, const QString& note) {
  shown.push_back({QStringLiteral("input"), prompt, title, Icon::None, Buttons::OkCancel,
                   Button::Ok, preset, note});
  if (whileAsked) whileAsked();
  if (inputs_.empty()) {
    ADD_FAILURE() << "unexpected input box: " << prompt.toStdString();
    return std::nullopt;
  }
  auto text = inputs_.front();
  inputs_.pop_front();
  return text;
}

QString FakePrompts::nextPath(const QString& kind, const QString& text, const QString& title,
                              const QString& preset) {
  shown.push_back({kind, text, title, Icon::None, Buttons::OkCancel, Button::Ok, preset, {}});
  if (paths_.empty()) {
    ADD_FAILURE() << "unexpected file dialog: " << title.toStdString();
    return {};
  }
  QString path = paths_.front();
  paths_.pop_front();
  return path;
}

QString FakePrompts::openFile(QWidget*, const QString& filter, const QString& title,
                              const QString& folder) {
  return nextPath(QStringLiteral("openFile"), filter, title, folder);
}
QString FakePrompts::saveFile(QWidget*, const QString& filter, const QString& title,
                              const QString& folder, const QString& extension) {
  QString path = nextPath(QStringLiteral("saveFile"), filter, title, folder);
  if (path.isEmpty()) return path;
  return QString::fromStdString(
      dialogs::completedName(path.toStdString(), extension.toStdString()));
}
QString FakePrompts::chooseFolder(QWidget*, const QString& title, const QString& start) {
  return nextPath(QStringLiteral("chooseFolder"), {}, title, start);
}

int FakePrompts::chooseColor(QWidget*, int, bool) {
  shown.push_back({QStringLiteral("chooseColor"), {}, {}, {}, {}, {}, {}, {}});
  if (colors_.empty()) {
    ADD_FAILURE() << "unexpected colour dialog";
    return -1;
  }
  const int color = colors_.front();
  colors_.pop_front();
  return color;
}
