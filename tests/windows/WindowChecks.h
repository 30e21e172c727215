#pragma once

#include <QWidget>
#include <string>
#include <vector>

// What is wrong with a window that is shown, whatever it is for: the controls by name. Nothing
// found is nothing wrong.
namespace checks {

using Findings = std::vector<std::string>;

// A screen reader would say nothing of them.
Findings controlsWithoutName(const QWidget& window);
// "291" alone says nothing to those who do not see what stands beside it.
Findings figuresWithoutName(const QWidget& window);
// Texts, choices, figures and heads that are not shown whole.
Findings cutTexts(const QWidget& window);
// Wherever in the window they stand: one frame may lie over another one.
Findings overlaps(const QWidget& window);
// Texts in a colour that does not stand out from its ground.
Findings faintTexts(const QWidget& window);
// Keys that two of its controls, or two entries of a menu, have.
Findings doubleMnemonics(const QWidget& window);
// Enter presses one button at most, and it is not the one that closes where there is another.
Findings wrongMainButtons(const QWidget& window);
// Buttons of a row whose chosen one is not bold: in dark nothing else tells it.
Findings choicesThatDoNotShow(const QWidget& window);
// What is drawn over by nobody at 144 dpi, where a pixel of the window is one and a half of the
// screen: it shows whatever was there before.
Findings unpainted(QWidget& window);
// Texts that stand almost, but not quite, on one line.
Findings crooked(const QWidget& window);
// In a window made small: what goes on to the side, tables of half its width included, and main and
// close buttons that must be scrolled to.
Findings outOfReach(const QWidget& window);

}  // namespace checks
