#pragma once

#include <QString>

#include "widgets/Tones.h"

class QLineEdit;

namespace widgets {

// Marks what stands in a field: a sign at its left end, by its form and its colour, and the words
// for it as tooltip of the sign and as what a screen reader adds to the field. Doubt is a triangle,
// Error a cross. Without words the mark goes.
void markField(QLineEdit* field, Tone tone, const QString& words);

}  // namespace widgets
