#include "readings/ui/EntryWindow.h"

#include <QHBoxLayout>

#include "base/NumberColumn.h"
#include "dialogs/Texts.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {

EntryWindow::EntryWindow(std::string_view name, std::string_view caption,
                         const dialogs::Services& services, yearbook::YearSession& session,
                         QWidget* parent)
    : Window(utf8(name), utf8(caption), services, parent), session_(session) {
  setModal(true);
}

void EntryWindow::reject() {
  if (mayClose()) Window::reject();
}

bool EntryWindow::goesWithout(const std::function<void()>& takeOver) {
  const bool wanted = services_.prompts.confirm(
      this, u"Sie haben  Änderungen vorgenommen\nSollen die Änderungen übernommen werden?"_s,
      windowTitle());
  if (wanted) takeOver();
  return !wanted;
}

bool EntryWindow::told(const base::Result<void>& done) {
  if (done) return true;
  services_.prompts.tell(this, dialogs::notStoredText(done.error()), u"Fehler"_s,
                         dialogs::Icon::Critical);
  return false;
}

dialogs::GrossFigure EntryWindow::grossFigure(yearbook::Meter meter, const QString& name,
                                              const QString& unit,
                                              dialogs::GrossFigure::Period period) {
  const auto storeVat = [this, meter](double rate) { told(session_.storeVat(meter, rate)); };
  return {name, unit, period, session_.values().vat[meter], storeVat};
}

void EntryWindow::makeCloseButton(QPushButton* button) {
  Window::makeCloseButton(button, u"&Schließen"_s);
  button->setToolTip(button->accessibleName());
}

void EntryWindow::letColumnsBePasted(const std::vector<widgets::NumberField*>& fields) {
  for (std::size_t first = 0; first < fields.size(); ++first)
    fields[first]->setColumnPaste([this, fields, first](const QString& column) {
      const auto numbers = base::parsePastedColumn(column.toStdString(), fields.size() - first);
      if (!numbers) {
        services_.prompts.tell(this, QString::fromStdString(numbers.error().detail),
                               u"Spalte einfügen"_s, dialogs::Icon::Warning);
        return;
      }
      // An empty cell leaves its month alone.
      for (std::size_t i = 0; i < numbers->size(); ++i)
        if ((*numbers)[i]) fields[first + i]->enterValue((*numbers)[i]);
    });
}

void EntryWindow::tameButtons() {
  for (QPushButton* button : findChildren<QPushButton*>()) {
    if (button->accessibleName().isEmpty()) button->setAccessibleName(button->text().remove(u'&'));
    button->setMinimumWidth(button->sizeHint().width() + 2 * fontMetrics().averageCharWidth());
  }
}

void makeDisplay(widgets::NumberField* field) {
  field->setReadOnly(true);
  field->setFrame(false);
  field->setFocusPolicy(Qt::ClickFocus);
  QPalette palette = field->palette();
  palette.setBrush(QPalette::Base, Qt::transparent);
  field->setPalette(palette);
}

void setDigits(widgets::NumberField* field, int digits) {
  constexpr int kFrameAndCursor = 20;
  field->setFixedWidth(field->fontMetrics().horizontalAdvance(QString(digits, u'0')) +
                       kFrameAndCursor);
}

QVBoxLayout* footOf(QWidget* note, QHBoxLayout* buttons) {
  auto* foot = new QVBoxLayout;
  foot->setSpacing(12);
  foot->addWidget(note);
  foot->addLayout(buttons);
  return foot;
}

QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> left,
                       std::initializer_list<QPushButton*> right) {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  for (QPushButton* button : left) row->addWidget(button);
  row->addStretch();
  for (QPushButton* button : right) row->addWidget(button);
  return row;
}

}  // namespace readings
