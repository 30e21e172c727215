#include "widgets/DateField.h"

#include "base/DateText.h"

using namespace Qt::Literals::StringLiterals;

namespace widgets {

DateField::DateField(QWidget* parent) : EntryField(parent) {
  allowOnly(u"0123456789,."_s);
  setPlaceholderText(u"TT.MM.JJJJ"_s);
}

std::optional<base::Date> DateField::date() const {
  return base::parseTypedDate(text().toStdString());
}

void DateField::settle() {
  const auto typed = date();
  if (typed && !base::parseDate(text().toStdString()))
    setText(QString::fromStdString(base::formatDate(*typed)));
}

}  // namespace widgets
