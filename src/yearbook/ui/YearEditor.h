#pragma once

#include <QObject>
#include <functional>

#include "dialogs/Prompts.h"
#include "dialogs/Services.h"
#include "dialogs/YearKeeper.h"
#include "widgets/NumberField.h"
#include "yearbook/FieldRules.h"
#include "yearbook/YearSession.h"

namespace yearbook {

// A typed number of the main window: what it shows of the open year and how a change is stored.
struct NumberBinding {
  widgets::NumberField* field;
  EntryKind kind;
  std::function<std::optional<double>(const FieldValues&)> shown;
  std::function<base::Result<void>(std::optional<double>)> store;
};

// How the pages of the main window change the open year. Every change is stored at once; one that
// cannot be stored is told in a box. After either, changed() lets everything show what is stored.
class YearEditor final : public QObject {
  Q_OBJECT
 public:
  YearEditor(dialogs::Services& services, YearSession& session, QWidget* owner);

  YearSession& session() { return session_; }
  const dialogs::Services& services() const { return services_; }
  const FieldValues& values() const { return session_.values(); }

  // Stores as soon as what stands in the field is a complete number, by the rules of its kind.
  void bind(const NumberBinding& binding);
  // The settings that every meter has.
  void bindStartReading(widgets::NumberField* field, Meter meter);
  void bindVat(widgets::NumberField* field, Meter meter);
  void bindBaseFee(widgets::NumberField* field, Meter meter);
  // One price for all months, of day electricity or gas.
  void bindPrice(widgets::NumberField* field, Meter meter);
  // Runs one change of the year; false when it failed (the user has been told).
  bool run(const std::function<base::Result<void>()>& change);
  // The same for what is being typed in a field: one step until endEntry(), when the field is left.
  bool type(const QObject* field, const std::function<base::Result<void>()>& change);
  void endEntry();
  // What is being typed in the field counts as never typed, with all that followed from it in the
  // year: a price typed over those of twelve months is gone, and they are as they were.
  void takeBack(widgets::EntryField& field);
  // A safety copy before the year changes as a whole; false when that is not to happen then.
  bool keepBefore(dialogs::Harm harm);
  // The box that refuses fractions of a unit.
  void tellWholeUnits(EntryKind kind);
  // The box that refuses what was typed.
  void refuse(const QString& text, const QString& title, dialogs::Icon icon);
  // Before something that the user cannot come back from: what is being typed counts as entered.
  // False when that was refused or could not be stored; the user has been told, and has the focus
  // in that field.
  bool finishEntry(QWidget* focus);
  // Everything shown follows the session's values.
  void showAll();

 Q_SIGNALS:
  void changed();
  // A change failed because an index is damaged; the rows are sound.
  void indexDamaged();

 private:
  QString filter(EntryKind kind, const QString& input);
  void store(const NumberBinding& binding);
  void leave(const NumberBinding& binding);

  dialogs::Services& services_;
  YearSession& session_;
  QWidget* owner_;
  bool refused_ = false;
  // Keeps the text in the making while its own change is shown everywhere else.
  const QObject* typedIn_ = nullptr;
  const QObject* typing_ = nullptr;  // its last change is an open entry
};

// A number of the session in euro, and a typed number as an amount for it. InvalidValue beyond the
// range of an amount.
std::optional<double> euro(std::optional<Money> amount);
base::Result<std::optional<Money>> toMoney(std::optional<double> euro, std::string field);

}  // namespace yearbook
