#pragma once

class QWidget;

namespace widgets {

// A quiet thin line across, above a sum or below a heading.
QWidget* makeRule(QWidget* parent);

}  // namespace widgets
