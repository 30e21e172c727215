#include "widgets/NumberField.h"

#include "base/GermanNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace widgets {
namespace {

QString ungrouped(QString text) {
  return text.remove(u'.');
}

}  // namespace

NumberField::NumberField(QWidget* parent) : EntryField(parent) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setInputMethodHints(Qt::ImhFormattedNumbersOnly);
  allowOnly(u"0123456789,.-"_s);
  connect(this, &QLineEdit::textEdited, this, &NumberField::takeEdit);
}

void NumberField::setDecimals(int least, int most) {
  leastDecimals_ = least;
  mostDecimals_ = most;
  if (!hasFocus()) setValue(value());
}

QString NumberField::shape(std::optional<double> value) const {
  if (!value) return {};
  QString text = QString::fromStdString(base::formatNumber(*value, mostDecimals_));
  const auto comma = text.indexOf(u',');
  if (comma < 0) return text;
  const auto shortest = comma + 1 + leastDecimals_;
  while (text.size() > shortest && text.endsWith(u'0')) text.chop(1);
  if (text.endsWith(u',')) text.chop(1);
  return text;
}

NumberField::Reading NumberField::read(const QString& text) const {
  if (text == resting_.text || text == ungrouped(resting_.text)) return {true, resting_.value};
  if (text == current_.text) return {true, current_.value};
  if (text.trimmed().isEmpty()) return {true, std::nullopt};
  const auto number = base::parseNumber(text.toStdString());
  return {number.has_value(), number};
}

void NumberField::setValue(std::optional<double> value) {
  if (hasFocus() && isModified() && value == this->value()) return;
  resting_ = current_ = {value, shape(value)};
  setText(resting_.text);
}

void NumberField::enterValue(std::optional<double> value) {
  asTyped([&] { setValue(value); });
  Q_EMIT textEdited(text());
  Q_EMIT valueChanged();
}

std::optional<double> NumberField::value() const {
  const Reading now = read(text());
  return now.readable ? now.value : current_.value;
}

void NumberField::takeEdit() {
  const Reading now = read(text());
  if (!now.readable) return;
  const bool changed = now.value != current_.value;
  current_ = {now.value, text()};
  if (changed) Q_EMIT valueChanged();
}

void NumberField::aboutToEdit() {
  const QString grouped = text();
  if (grouped != resting_.text || !grouped.contains(u'.') || selectedText() == grouped) return;
  const auto place = [&](int position) { return int(ungrouped(grouped.first(position)).size()); };
  const int cursor = place(cursorPosition());
  const int start = hasSelectedText() ? place(selectionStart()) : cursor;
  const int end = hasSelectedText() ? place(selectionEnd()) : cursor;
  setText(ungrouped(grouped));
  setSelection(start, end - start);
  if (start == end) setCursorPosition(cursor);
}

void NumberField::settle() {
  const std::optional<double> kept = value();
  const bool unchanged = kept == resting_.value;
  resting_ = current_ = {kept, unchanged ? resting_.text : shape(kept)};
  if (text() != resting_.text) setText(resting_.text);
}

}  // namespace widgets
