#include "projection/ui/frmHochrechnung.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>

#include "base/DateText.h"
#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "dialogs/Prompts.h"
#include "projection/YearProjection.h"

using namespace Qt::StringLiterals;

namespace {

QString amountText(double value) {
  return QString::fromStdString(base::formatNumber(value, 2));
}

QLabel* labelFor(QWidget* field, const QString& text) {
  auto* label = new QLabel(text);
  label->setBuddy(field);
  field->setAccessibleName(text.simplified());
  return label;
}

}  // namespace

frmHochrechnung::frmHochrechnung(const dialogs::Services& services, yearbook::YearSession& year,
                                 QWidget* parent)
    : Window(u"frmHochrechnung"_s, u"Hochrechnung auf das Jahr"_s, services, parent), year_(year) {
  makePrintDialog = [this] { return std::make_unique<clsPrintDialog>(services_.prompts); };
  setTexts();
  buildLayout();
  showStartDate();
  if (const auto day = projection::lastReadingDay(year_, services_.clock.today()))
    Text1->setText(QString::fromStdString(base::formatDate(*day)));
  connect(txtDatumStrom, &widgets::EntryField::left, this, [this] { startLeft_ = true; });
  // The answer waits until the focus has arrived where it goes.
  for (widgets::DateField* field : {txtDatumStrom, Text1})
    connect(
        field, &widgets::EntryField::left, this, [this, field] { fieldLeft(field); },
        Qt::QueuedConnection);
  connect(Command12, &QPushButton::clicked, this, &frmHochrechnung::Calculate);
  connect(Command1, &QPushButton::clicked, this, &frmHochrechnung::Print);
  connect(chkGrundgeb, &QCheckBox::clicked, this, &frmHochrechnung::Calculate);
}

void frmHochrechnung::setTexts() {
  Label2->setText(
      u"Bei Eingabe des Startdatums (Datum des Anfangszählerstandes) und des genauen Datums der "
      "letzten von Ihnen durchgeführten Ablesung wird eine Hochrechnung auf das Jahr "
      "durchgeführt."_s);
  fraStartDatum->setTitle(u"Hochrechnung / Jahr"_s);
  lblHinweis->setText(
      u"Bei Eingabe des Startdatums (Datum des Anfangszählerstandes) wird eine Hochrechnung auf "
      "das Jahr durchgeführt."_s);
  txtDatumStrom->setToolTip(u"Eingabe des Startdatums (Datum des Anfangszählerstandes) "_s);
  Text1->setToolTip(u"Eingabe des Datums der letzten von Ihnen durchgeführten Ablesung"_s);
  Label8->setText(u"Verbrauch + Grundgebühr "_s);
  chkGrundgeb->setText(u"Grundgebühr addieren (nicht bei Pauschalpreisen)"_s);
  Command12->setText(u"Berechnen"_s);
  Command1->setText(u"Drucken"_s);
  makeCloseButton(Command2);
  for (QAbstractButton* button :
       {static_cast<QAbstractButton*>(chkGrundgeb), static_cast<QAbstractButton*>(Command12),
        static_cast<QAbstractButton*>(Command1), static_cast<QAbstractButton*>(Command2)}) {
    button->setAccessibleName(button->text());
    // A click leaves the cursor in the date field: nobody is asked about a date on the way out.
    button->setFocusPolicy(Qt::TabFocus);
  }
}

std::array<QLineEdit*, 7> frmHochrechnung::displayFields() const {
  return {txtAnzTagBisher, txtVerbrBisher, txtDurchschnitt, txtPreisJeTg,
          lblNetto,        lblInklMwSt,    lblInklGrundgeb};
}

void frmHochrechnung::buildForm() {
  const int width = fontMetrics().horizontalAdvance(u"00.00.0000 00"_s);
  QPalette quiet;  // display fields look like part of the window
  quiet.setColor(QPalette::Base, Qt::transparent);
  for (QLineEdit* field : displayFields()) {
    field->setPalette(quiet);
    field->setReadOnly(true);
    field->setFrame(false);
    field->setAlignment(Qt::AlignRight);
    field->setFixedWidth(width);
  }
  for (QLineEdit* field :
       {static_cast<QLineEdit*>(txtDatumStrom), static_cast<QLineEdit*>(Text1)}) {
    field->setAlignment(Qt::AlignRight);
    field->setFixedWidth(width);
  }
  QFont strong = font();
  strong.setBold(true);
  for (QLineEdit* field : {lblNetto, lblInklMwSt, lblInklGrundgeb}) field->setFont(strong);

  auto* form = new QFormLayout(fraStartDatum);
  form->setFormAlignment(Qt::AlignLeft);
  form->setHorizontalSpacing(24);
  form->addRow(lblHinweis);
  const std::pair<QWidget*, QString> rows[] = {
      {txtDatumStrom, u"Start-Datum"_s},
      {Text1, u"Datum der letzten Ablesung"_s},
      {txtAnzTagBisher, u"Anzahl Tage bisher"_s},
      {txtVerbrBisher, u"Verbrauch in kWs  bisher"_s},
      {txtDurchschnitt, u"Durchschnitlicher Verbrauch in kWh je Tag"_s},
      {txtPreisJeTg, u"Preis in Euro je Tag"_s},
      {lblNetto, u"Preis für 365 Tage in Euro"_s},
      {lblInklMwSt, u"Preis für 365 Tage in Euro inkl. MwSt"_s}};
  for (const auto& [field, text] : rows) form->addRow(labelFor(field, text), field);
  lblInklGrundgeb->setAccessibleName(u"Verbrauch + Grundgebühr"_s);
  Label8->setBuddy(lblInklGrundgeb);
  form->addRow(Label8, lblInklGrundgeb);
  showBaseFee(false);
}

void frmHochrechnung::buildLayout() {
  lblFehlt->setWordWrap(true);
  lblFehlt->hide();
  for (QLabel* note : {Label2, lblHinweis}) {
    note->setWordWrap(true);
    note->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    // A group hands on no height that depends on the width: the note would lose its second line.
    note->setMinimumHeight(note->heightForWidth(note->minimumWidth()));
  }
  buildForm();
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(Command12);
  buttons->addWidget(Command1);
  buttons->addStretch();
  buttons->addWidget(Command2);
  auto* column = new QVBoxLayout(this);
  column->addWidget(Label2);
  column->addWidget(fraStartDatum);
  column->addWidget(lblFehlt);
  column->addWidget(chkGrundgeb);
  column->addStretch();
  column->addLayout(buttons);

  // The last field hands the focus to "Berechnen": Enter once more calculates.
  setTabOrder({txtDatumStrom, Text1, Command12, chkGrundgeb, Command1, Command2});
  txtDatumStrom->setFocus();
}

void frmHochrechnung::showEvent(QShowEvent* event) {
  Window::showEvent(event);
  if (calculatedOnce_) return;
  // Once the window stands, and never again.
  calculatedOnce_ = true;
  QTimer::singleShot(0, this, &frmHochrechnung::calculateUnasked);
}

// Nobody has pressed anything yet: what is missing is said in the window, without a box.
void frmHochrechnung::calculateUnasked() {
  using Fault = projection::ProjectionOutcome::Fault;
  const auto outcome = calculate();
  if (outcome.figures) return goTo(Text1);
  QString missing = QString::fromStdString(outcome.message);
  if (outcome.fault == Fault::StartDate && txtDatumStrom->text().isEmpty())
    missing = u"Das Start-Datum fehlt noch."_s;
  if (outcome.fault == Fault::ReadingDate && Text1->text().isEmpty())
    missing = u"Das Datum der letzten Ablesung fehlt noch."_s;
  lblFehlt->setText(missing);
  lblFehlt->show();
  focusFault(outcome);
}

void frmHochrechnung::Calculate() {
  for (widgets::DateField* field : {txtDatumStrom, Text1}) field->finish();
  if (txtDatumStrom->date()) storeStartDate();
  const auto outcome = calculate();
  if (outcome.figures) return;
  warn(outcome.message);
  if (fraStartDatum->isVisible()) focusFault(outcome);
}

void frmHochrechnung::focusFault(const projection::ProjectionOutcome& outcome) {
  const bool start = outcome.fault == projection::ProjectionOutcome::Fault::StartDate;
  goTo(start ? txtDatumStrom : Text1);
}

// Leaving a field this way is not the user's doing: the other date is not asked about.
void frmHochrechnung::goTo(widgets::DateField* field) {
  const QSignalBlocker startQuiet(txtDatumStrom);
  const QSignalBlocker readingQuiet(Text1);
  field->setFocus(Qt::TabFocusReason);
}

projection::ProjectionOutcome frmHochrechnung::calculate() {
  // What an earlier calculation left goes even if this one is refused.
  if (!chkGrundgeb->isChecked()) showBaseFee(false);
  projection::ProjectionInput input = projection::projectionInput(year_);
  input.startDate = txtDatumStrom->text().toStdString();
  input.readingDate = Text1->text().toStdString();
  input.addBaseFee = chkGrundgeb->isChecked();
  projection::ProjectionOutcome outcome = project(input);
  if (outcome.figures || outcome.startMonthDiffers)
    txtVerbrBisher->setText(
        QString::fromStdString(base::formatShort(input.consumption.value_or(0), 2, true)));
  if (outcome.figures) {
    showFigures(*outcome.figures);
    lblFehlt->hide();
  }
  return outcome;
}

void frmHochrechnung::showFigures(const projection::ProjectionFigures& figures) {
  txtAnzTagBisher->setText(QString::fromStdString(base::formatNumber(figures.days, 0)));
  txtDurchschnitt->setText(amountText(static_cast<double>(figures.averagePerDay)));
  txtPreisJeTg->setText(amountText(figures.pricePerDay));
  lblNetto->setText(amountText(figures.netYear));
  lblInklMwSt->setText(amountText(figures.grossYear));
  if (figures.grossWithBaseFee) lblInklGrundgeb->setText(amountText(*figures.grossWithBaseFee));
  showBaseFee(figures.grossWithBaseFee.has_value());
}

void frmHochrechnung::showBaseFee(bool shown) {
  Label8->setVisible(shown);
  lblInklGrundgeb->setVisible(shown);
}

void frmHochrechnung::warn(const std::string& message) {
  services_.prompts.tell(this, QString::fromStdString(message), u"Eingabe Datum"_s,
                         dialogs::Icon::Warning);
}

void frmHochrechnung::fieldLeft(widgets::DateField* field) {
  if (!isVisible()) return;
  startLeft_ = false;
  if (!field->date()) {
    warn(
        "Ungültige Datumseingabe! Bitte geben Sie ein gültiges Datum ein.\n"
        "Beispiel:  01.01.2009");
    return goTo(field);
  }
  if (field == txtDatumStrom) storeStartDate();
}

void frmHochrechnung::storeStartDate() {
  const std::string date = txtDatumStrom->text().toStdString();
  if (date == year_.values().startDate) return;
  if (const auto stored = year_.storeStartDate(date); !stored) {
    showStartDate();
    services_.prompts.tell(this, QString::fromStdString(base::germanMessage(stored.error())),
                           u"Eingabe Datum"_s, dialogs::Icon::Warning);
  }
}

void frmHochrechnung::showStartDate() {
  txtDatumStrom->setText(QString::fromStdString(year_.values().startDate));
}

void frmHochrechnung::keyPressEvent(QKeyEvent* event) {
  escaped_ = event->matches(QKeySequence::Cancel);
  Window::keyPressEvent(event);
}

// Whoever closes the window has left its fields; Escape drops what is still being typed.
void frmHochrechnung::done(int result) {
  if (!escaped_) txtDatumStrom->finish();
  if ((!escaped_ || startLeft_) && txtDatumStrom->date()) storeStartDate();
  Window::done(result);
}

QString frmHochrechnung::yearName() const {
  return QString::fromStdString(base::baseName(base::fileName(year_.path())));
}

// What the window shows, line by line.
QString frmHochrechnung::pageText() const {
  QString text = u"<h2>%1</h2><p>%2</p><p>%3</p><table cellspacing=0 cellpadding=3>"_s.arg(
      windowTitle().toHtmlEscaped(), yearName().toHtmlEscaped(), Label2->text().toHtmlEscaped());
  const auto* form = static_cast<const QFormLayout*>(fraStartDatum->layout());
  for (int row = 0; row < form->rowCount(); ++row) {
    const QLayoutItem* left = form->itemAt(row, QFormLayout::LabelRole);
    const QLayoutItem* right = form->itemAt(row, QFormLayout::FieldRole);
    if (!left || right->widget()->isHidden()) continue;
    const auto* label = static_cast<const QLabel*>(left->widget());
    const auto* value = static_cast<const QLineEdit*>(right->widget());
    text += u"<tr><td>%1</td><td width=110 align=right>%2</td></tr>"_s.arg(
        label->text().toHtmlEscaped(), value->text().toHtmlEscaped());
  }
  return text + u"</table>"_s;
}

void frmHochrechnung::Print() {
  const std::array<QWidget*, 4> hidden = {Command2, Command1, Command12, chkGrundgeb};
  // Hiding a button would hand its focus to a field, which then is printed as if it were edited.
  QWidget* const focused = focusWidget();
  setFocus(Qt::PopupFocusReason);
  for (QLineEdit* field : findChildren<QLineEdit*>()) field->deselect();
  for (QWidget* control : hidden) control->hide();
  const auto dialog = makePrintDialog();
  bool failed = false;
  connect(dialog.get(), &clsPrintDialog::DialogError, this, [&failed] { failed = true; });
  dialog->ShowPrinter(this);
  if (!dialog->Cancelled() && !failed) printOn(dialog->printer());
  for (QWidget* control : hidden) control->show();
  if (focused) focused->setFocus(Qt::PopupFocusReason);
}

// A page of text, black on white whatever the screen's colours are.
void frmHochrechnung::printOn(QPrinter& printer) {
  printer.setDocName(windowTitle());
  QPainter painter;
  if (!painter.begin(&printer))
    return services_.prompts.tell(this, u"Der Drucker nimmt keine Seiten an."_s, u"Drucken"_s,
                                  dialogs::Icon::Warning);
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  constexpr double kPointSize = 10;
  QFont font = QApplication::font();
  font.setPointSizeF(kPointSize);
  QTextDocument document;
  document.documentLayout()->setPaintDevice(&printer);
  document.setDefaultFont(font);
  document.setHtml(pageText());
  document.setTextWidth(page.width());
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, Qt::black);
  document.documentLayout()->draw(&painter, context);
  painter.setFont(QFont(font.family(), 8));
  painter.drawText(QRectF(QPointF(), page.size()), Qt::AlignHCenter | Qt::AlignBottom,
                   yearName() + u" · Seite 1 von 1"_s);
}
