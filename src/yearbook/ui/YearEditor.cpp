#include "yearbook/ui/YearEditor.h"

#include <utility>

#include "dialogs/Texts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {

std::optional<double> euro(std::optional<Money> amount) {
  return amount ? std::optional(amount->toDouble()) : std::nullopt;
}

base::Result<std::optional<Money>> toMoney(std::optional<double> euro, std::string field) {
  if (!euro) return std::optional<Money>();
  const auto amount = Money::tryRoundHalfEven(*euro);
  if (amount) return amount;
  base::Error error;
  error.code = base::ErrorCode::InvalidValue;
  error.subject = std::move(field);
  error.detail = "der Betrag ist zu groß";
  return base::fail(std::move(error));
}

YearEditor::YearEditor(dialogs::Services& services, YearSession& session, QWidget* owner)
    : QObject(owner), services_(services), session_(session), owner_(owner) {}

void YearEditor::bind(const NumberBinding& binding) {
  widgets::NumberField* field = binding.field;
  const Decimals decimals = decimalsOf(binding.kind);
  field->setDecimals(decimals.least, decimals.most);
  field->setFilter(
      [this, kind = binding.kind](const QString& input) { return filter(kind, input); });
  field->leaveUndoToWindow();
  connect(field, &widgets::NumberField::valueChanged, this, [this, binding] { store(binding); });
  connect(field, &widgets::EntryField::entered, this, [this, binding] { leave(binding); });
  connect(this, &YearEditor::changed, field, [this, binding] {
    if (typedIn_ != binding.field) binding.field->setValue(binding.shown(values()));
  });
}

void YearEditor::bindStartReading(widgets::NumberField* field, Meter meter) {
  bind({field, wholeUnitsOf(meter),
        [meter](const FieldValues& values) { return values.startReadings[meter]; },
        [this, meter](auto value) { return session_.storeStartReading(meter, value); }});
}

void YearEditor::bindVat(widgets::NumberField* field, Meter meter) {
  bind({field, EntryKind::Percent, [meter](const FieldValues& values) { return values.vat[meter]; },
        [this, meter](auto value) { return session_.storeVat(meter, value); }});
}

void YearEditor::bindBaseFee(widgets::NumberField* field, Meter meter) {
  bind({field, EntryKind::Amount,
        [meter](const FieldValues& values) { return euro(values.baseFees[meter]); },
        [this, meter](std::optional<double> value) -> base::Result<void> {
          const auto fee = toMoney(value, std::string(factsOf(meter).baseFee->words));
          if (!fee) return base::Failure(fee.error());
          return session_.storeBaseFee(meter, *fee);
        }});
}

void YearEditor::bindPrice(widgets::NumberField* field, Meter meter) {
  bind({field, EntryKind::Price,
        [meter](const FieldValues& values) { return values.prices[meter]; },
        [this, meter](auto value) { return session_.storePrice(meter, value); }});
}

QString YearEditor::filter(EntryKind kind, const QString& input) {
  const FilteredEntry entry = filterEntry(kind, input.toStdString());
  if (entry.commaRefused && !wholeUnitsMessage(kind).empty()) tellWholeUnits(kind);
  return QString::fromStdString(entry.kept);
}

void YearEditor::tellWholeUnits(EntryKind kind) {
  refuse(QString::fromStdString(std::string(wholeUnitsMessage(kind))),
         QString::fromStdString(std::string(kStartReadingTitle)), dialogs::Icon::Information);
}

void YearEditor::refuse(const QString& text, const QString& title, dialogs::Icon icon) {
  refused_ = true;
  services_.prompts.tell(owner_, text, title, icon);
}

bool YearEditor::finishEntry(QWidget* focus) {
  auto* field = qobject_cast<widgets::EntryField*>(focus);
  if (field == nullptr) return true;
  refused_ = false;
  field->finish();
  if (refused_) field->setFocus(Qt::OtherFocusReason);
  return !refused_;
}

void YearEditor::store(const NumberBinding& binding) {
  const auto value = binding.field->value();
  if (!isComplete(binding.kind, value)) return;
  typedIn_ = binding.field;
  type(binding.field, [&] { return binding.store(value); });
  typedIn_ = nullptr;
}

void YearEditor::leave(const NumberBinding& binding) {
  if (!isComplete(binding.kind, binding.field->value())) tellWholeUnits(binding.kind);
  binding.field->setValue(binding.shown(values()));
  endEntry();
}

bool YearEditor::type(const QObject* field, const std::function<base::Result<void>()>& change) {
  if (typing_ != field) session_.endEntry();
  typing_ = field;
  return run(change);
}

void YearEditor::endEntry() {
  session_.endEntry();
  if (std::exchange(typing_, nullptr)) showAll();
}

void YearEditor::takeBack(widgets::EntryField& field) {
  const bool stored = typing_ == &field && session_.history().isTyping();
  if (stored && !run([this] { return session_.undo(); })) return;
  field.takeBack();
  field.selectAll();
}

bool YearEditor::run(const std::function<base::Result<void>()>& change) {
  const auto done = change();
  if (!done) {
    refuse(dialogs::notStoredText(done.error()), u"Fehler"_s, dialogs::Icon::Critical);
    typedIn_ = nullptr;
  }
  showAll();
  if (!done && done.error().code == base::ErrorCode::IndexDamaged) Q_EMIT indexDamaged();
  return done.has_value();
}

bool YearEditor::keepBefore(dialogs::Harm harm) {
  return services_.keeper == nullptr ||
         services_.keeper->keepBefore(harm, owner_, session_.path(), session_.database().image());
}

void YearEditor::showAll() {
  Q_EMIT changed();
}

}  // namespace yearbook
