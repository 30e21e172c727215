#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "dialogs/Prompts.h"
#include "dialogs/Window.h"
#include "dialogs/frmBrutto.h"
#include "readings/ui/EntryUndo.h"
#include "widgets/NumberField.h"
#include "widgets/Utf8.h"
#include "yearbook/YearSession.h"

class QHBoxLayout;
class QVBoxLayout;

namespace readings {

// What the entry windows share: a modal window on the open year.
class EntryWindow : public dialogs::Window {
  Q_OBJECT
 public:
  void reject() override;

 protected:
  EntryWindow(std::string_view name, std::string_view caption, const dialogs::Services& services,
              yearbook::YearSession& session, QWidget* parent);

  // Asked before the window closes without a take over.
  virtual bool mayClose() { return true; }
  // Asks whether what was typed is to be taken over, and lets it. True when the window may close
  // without: takeOver closes it itself.
  bool goesWithout(const std::function<void()>& takeOver);
  // True when done; else the user has been told.
  bool told(const base::Result<void>& done);
  // What "Brutto umrechnen" needs to know for a figure of the meter; a rate that is entered there
  // is stored at once.
  dialogs::GrossFigure grossFigure(yearbook::Meter meter, const QString& name, const QString& unit,
                                   dialogs::GrossFigure::Period period);
  // "Schließen" with its tooltip, bound to closing.
  void makeCloseButton(QPushButton* button);
  // A column of numbers from a spreadsheet runs down from the field that it is pasted into. Refused
  // as a whole, with the line at fault, when one of them is no number.
  void letColumnsBePasted(const std::vector<widgets::NumberField*>& fields);
  // To be called when all buttons are there: their captions have room.
  void tameButtons();

  yearbook::YearSession& session_;
};

using widgets::utf8;

// A field that shows a figure and takes none.
void makeDisplay(widgets::NumberField* field);
// Wide enough for that many digits.
void setDigits(widgets::NumberField* field, int digits);
// The note on what is open above the buttons: both stay in sight where the rest scrolls.
QVBoxLayout* footOf(QWidget* note, QHBoxLayout* buttons);
// Buttons at both ends of a line.
QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> left,
                       std::initializer_list<QPushButton*> right);

}  // namespace readings
