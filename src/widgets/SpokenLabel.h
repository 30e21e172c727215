#pragma once

namespace widgets {

// A label with a spoken name hides its text from a screen reader: "Verbrauch Januar" without the
// figure. From now on it is both, "Verbrauch Januar: 291". Call once.
void speakLabels();

}  // namespace widgets
