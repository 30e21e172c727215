#include "readings/ui/EntryNote.h"

#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
EntryNote::EntryNote(QWidget* window) : MarkedLabel(window) {
  setObjectName(u"lblOffen"_s);
  setAccessibleName(u"Stand der Eingaben"_s);
  setText(u"noch nicht übernommen"_s);
  setMark(Mark::Doubt);
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  hide();
}

void EntryNote::showOpen(bool open) {
  if (!locked_) setVisible(open);
}

void EntryNote::markFault(widgets::EntryField* field) {
  if (field == nullptr) return;
  QPalette marked = field->palette();
  marked.setColor(QPalette::Base, widgets::tinted(marked, QPalette::Base, widgets::Tone::Error));
  field->setPalette(marked);
  field->setAccessibleDescription(u"nicht übernommen"_s);
  const auto clear = [field] {
    field->setPalette({});
    field->setAccessibleDescription({});
  };
  connect(field, &QLineEdit::textChanged, this, clear, Qt::SingleShotConnection);
  field->setFocus();
  field->selectAll();
}

void EntryNote::lock(const yearbook::YearSession& session, const std::vector<QWidget*>& changing) {
  if (!session.writeObstacle()) return;
  locked_ = true;
  for (auto* field : window()->findChildren<widgets::EntryField*>()) field->setReadOnly(true);
  for (QWidget* widget : changing) widget->setEnabled(false);
  setText(u"Dieses Jahr kann zurzeit nur gelesen werden."_s);
  show();
}

}  // namespace readings
