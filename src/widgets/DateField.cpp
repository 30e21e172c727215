#include "widgets/DateField.h"

using namespace Qt::Literals::StringLiterals;

namespace widgets {

DateField::DateField(QWidget* parent) : EntryField(parent) {
  allowOnly(u"0123456789,."_s);
  setPlaceholderText(u"TT.MM.JJJJ"_s);
}

std::optional<base::Date> DateField::date() const {
  return base::parseDate(text().toStdString());
}

}  // namespace widgets
