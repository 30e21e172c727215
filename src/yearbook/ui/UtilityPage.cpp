#include "yearbook/ui/UtilityPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QResizeEvent>
#include <QVBoxLayout>

#include "widgets/FieldMark.h"
#include "widgets/Utf8.h"
#include "yearbook/FieldTexts.h"
#include "yearbook/ValueDoubts.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

// In lines of text. In a taller page the months stand too far apart to be read as one table.
constexpr int kTallestPage = 54;

// A line without the button is as high as the one beside it that has one.
QWidget* roomOfGrossButton(QWidget* parent) {
  auto* room = new QWidget(parent);
  room->setFixedSize(0, dialogs::GrossButton::kHeight);
  return room;
}

}  // namespace

ResultGroup::ResultGroup(QWidget* parent, const QString& caption, DerivedField* total)
    : TitledFrame(u"Ergebnis"_s, parent), buttons_(new QHBoxLayout), total_(total) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(10, 8, 10, 8);
  rows->setSpacing(4);
  auto* figures = new QHBoxLayout;
  auto* label = new QLabel(caption, this);
  auto* unit = new QLabel(u"Euro"_s, this);
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  total->setFont(large);
  total->setMinimumWidth(numberWidth(total));
  total->setAccessibleName(caption);
  QFont bold = font();
  bold.setBold(true);
  label->setFont(bold);
  figures->addWidget(label);
  figures->addWidget(total, 1);
  figures->addWidget(unit);
  rows->addLayout(figures);
  totalNote_ = addNote({});
  rows->addStretch(1);
  buttons_->setSpacing(6);
  buttons_->addWidget(new QLabel(u"Diagramm"_s, this));
  buttons_->addStretch(1);
  rows->addLayout(buttons_);
}

QLabel* ResultGroup::addNote(const QString& text) {
  auto* note = new QLabel(text, this);
  note->setForegroundRole(QPalette::PlaceholderText);
  auto* rows = static_cast<QVBoxLayout*>(layout());
  rows->insertWidget(rows->count() > 1 ? rows->count() - 2 : rows->count(), note);
  return note;
}

void ResultGroup::showTotal(const FieldValues& values, Utility utility) {
  total_->showText(grossText(values, utility));
  totalNote_->setText(QString::fromStdString(grossNote(values, utility)));
}

void ResultGroup::addButton(QWidget* made) {
  // Narrower than buttons usually are: on a small screen they stand beside the meters.
  if (auto* button = qobject_cast<QPushButton*>(made))
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 16);
  buttons_->addWidget(made);
}

UtilityPage::UtilityPage(QWidget* parent, const char* name, YearEditor& editor)
    : QScrollArea(parent), editor_(editor), content_(new QWidget(this)), places_(new QGridLayout) {
  setObjectName(QString::fromLatin1(name));
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  // The keyboard goes to what stands on the page; a stop at the page itself would show nothing.
  setFocusPolicy(Qt::NoFocus);
  auto* rows = new QVBoxLayout(content_);
  rows->setContentsMargins(8, 6, 8, 6);
  rows->addLayout(places_);
  places_->setHorizontalSpacing(10);
  places_->setVerticalSpacing(6);
  setWidget(content_);
}

QPushButton* UtilityPage::button(QPushButton* made, const QString& caption,
                                 const QString& toolTip) const {
  made->setText(caption);
  made->setToolTip(toolTip);
  made->setAccessibleName(toolTip);
  made->setAutoDefault(false);
  return made;
}

void UtilityPage::entryButtons(QPushButton* readings, const QString& readingsTip,
                               QPushButton* prices, const QString& pricesTip) {
  // Of two meters the first has the letters.
  const bool first = std::exchange(lettersLeft_, false);
  button(readings, first ? u"Eingabe &Zählerstand..."_s : u"Eingabe Zählerstand..."_s, readingsTip);
  button(prices, first ? u"&Preise je Monat..."_s : u"Preise je Monat..."_s, pricesTip);
}

QPushButton* UtilityPage::comparisonButton(QPushButton* made) const {
  return button(made, u"Vergleich"_s, u"Verbrauch mit einem anderen Jahr vergleichen"_s);
}

QString UtilityPage::priceTip(const QLineEdit& price) {
  const QString net = u"\nOhne MwSt; auf der Rechnung steht meist der Preis mit MwSt."_s;
  if (price.isReadOnly())
    return u"Preis des letzten Monats. Preise gibt das Fenster \"Preise je Monat\" ein."_s + net;
  return u"Preis des letzten Monats. Eine Eingabe hier gilt für alle zwölf Monate."_s + net;
}

void UtilityPage::addMeterLines(FigureGroup* frame, const MeterFrame& fields, Meter meter,
                                QWidget* extra) const {
  const QString unit = widgets::utf8(factsOf(meter).unit);
  frame->setMeter(meter);
  frame->addLine(u"Anfangszählerstand"_s, fields.startReading, unit, extra);
  frame->addLine(u"Endzählerstand"_s, fields.endReading, unit);
  frame->addLine(u"Verbrauch"_s, fields.consumption, unit);
  addPriceLine(frame, fields.price, meter);
  frame->addLine(u"Betrag netto"_s, fields.amount, u"Euro"_s);
  frame->addLine(u"MwSt"_s, fields.vat, u"Euro"_s);
  frame->addRule();
  fields.gross->emphasize();
  frame->addLine(u"Summe"_s, fields.gross, u"Euro"_s);
}

void UtilityPage::addPriceLine(FigureGroup* frame, QLineEdit* price, Meter meter) const {
  const QString label = u"Preis je Einheit"_s;
  const QString unit = widgets::utf8(factsOf(meter).price->unit);
  QWidget* gross = grossButton(price, meter, {label + u", "_s + frame->title(), unit});
  frame->addLine(label, price, unit + u" netto"_s, gross ? gross : roomOfGrossButton(frame));
  price->setToolTip(priceTip(*price));
  QLabel* note = frame->addNote();
  note->setObjectName(u"lblPreise"_s + widgets::utf8(factsOf(meter).name));
  connect(&editor_, &YearEditor::changed, note,
          [this, price, note, meter] { showPrices(price, note, meter); });
}

// nullptr for a field that takes nothing.
QWidget* UtilityPage::grossButton(QLineEdit* field, Meter meter,
                                  dialogs::GrossFigure figure) const {
  auto* typed = qobject_cast<widgets::NumberField*>(field);
  if (typed == nullptr) return nullptr;
  const auto now = [this, meter, figure = std::move(figure)] {
    dialogs::GrossFigure asked = figure;
    asked.vat = editor_.values().vat[meter];
    asked.storeVat = [this, meter](double rate) {
      editor_.run([&] { return editor_.session().storeVat(meter, rate); });
    };
    return asked;
  };
  return new dialogs::GrossButton(typed, editor_.services(), now, content_);
}

void UtilityPage::showPrices(QLineEdit* price, QLabel* note, Meter meter) const {
  QString text = QString::fromStdString(priceStepsText(editor_.session().rows(), meter));
  const bool elsewhere = qobject_cast<DerivedField*>(price) != nullptr;
  if (text.isEmpty() && elsewhere) text = u"einzugeben mit „Preise je Monat...“"_s;
  note->setText(text);
  note->setVisible(!text.isEmpty());
  const double shown = orZero(editor_.values().prices[meter]);
  const auto others = othersThan(kPriceRow, pricesOf(editor_.session().rows(), meter));
  widgets::markField(price, widgets::Tone::Doubt,
                     QString::fromStdString(priceDoubt(meter, shown, others)));
}

void UtilityPage::showMeter(const MeterFrame& fields, Meter meter) const {
  const MeterLines lines = meterLines(editor_.values(), meter);
  fields.endReading->showText(lines.endReading);
  fields.consumption->showText(lines.consumption);
  fields.amount->showText(lines.amount);
  fields.vat->showText(lines.vat);
  fields.gross->showText(lines.gross);
}

void UtilityPage::addBaseFeeLine(FigureGroup* contract, const QString& label,
                                 widgets::NumberField* fee, Meter meter, QPushButton* monthly,
                                 const QString& monthlyTip) const {
  button(monthly, u"Eingabe monatlich"_s, monthlyTip);
  const QString whose = widgets::utf8(factsOf(meter).name);
  const QString name = label.contains(whose) ? label : label + u", "_s + whose;
  QWidget* gross = grossButton(fee, meter, {name, u"Euro"_s, dialogs::GrossFigure::Period::Year});
  const QByteArray row = "Frame_" + fee->objectName().toLatin1();
  contract->addLine(label, fee, u"Euro netto"_s,
                    buttonRow(contract, row.constData(), {gross, monthly}));
  fee->setToolTip(u"Die Grundgebühr des ganzen Jahres, ohne MwSt"_s);
  connect(&editor_, &YearEditor::changed, fee, [this, fee, meter] {
    const double shown = orZero(euro(editor_.values().baseFees[meter]));
    widgets::markField(fee, widgets::Tone::Doubt, QString::fromStdString(amountDoubt(shown, {})));
  });
}

void UtilityPage::addVatLine(FigureGroup* contract, const QString& label, QLineEdit* rate,
                             Meter meter, QWidget* beside) const {
  auto* missing = new QLabel(u"⚠ fehlt noch"_s, contract);
  missing->setObjectName(u"lblFehlt_"_s + rate->objectName());
  missing->setToolTip(
      u"Ein Preis oder eine Grundgebühr steht da; ohne den Satz fehlt die MwSt in "
      "der Summe. Wo keine MwSt anfällt, gehört eine 0 hinein."_s);
  widgets::setTone(missing, widgets::Tone::Doubt);
  const QByteArray name = "Frame_" + rate->objectName().toLatin1();
  contract->addLine(label, rate, u"%"_s,
                    beside ? buttonRow(contract, name.constData(), {missing, beside}) : missing);
  connect(&editor_, &YearEditor::changed, missing,
          [this, missing, meter] { missing->setVisible(vatMissing(editor_.values(), meter)); });
}

void UtilityPage::addStartMonthLine(FigureGroup* contract, QLabel* month,
                                    QPushButton* adapt) const {
  button(adapt, u"anpassen"_s,
         u"Hier können Sie den Start - Monat (den Monat Ihrer Abrechnung) anpassen."_s);
  adapt->setAccessibleName(u"Startmonat anpassen"_s);
  contract->addLine(u"Startmonat"_s, month, {}, adapt);
}

void UtilityPage::placeMeters(const Parts& parts) {
  parts_ = parts;
  placeSideBySide();
  if (viewport()->width() < leastSideBySide_) placeBelow();
}

void UtilityPage::clearPlaces() {
  while (QLayoutItem* item = places_->takeAt(0)) delete item;
  for (int column = 0; column < 3; ++column) places_->setColumnStretch(column, 0);
  for (int row = 0; row < 2; ++row) places_->setRowStretch(row, 0);
}

// Layouts keep the sizes that they have been told.
void UtilityPage::arrangeContract(int blocks) {
  parts_.contract->arrange(blocks);
  parts_.contract->updateGeometry();
  places_->invalidate();
}

void UtilityPage::placeSideBySide() {
  clearPlaces();
  const int meters = parts_.second ? 2 : 1;
  arrangeContract(meters);
  places_->addWidget(parts_.first, 0, 0);
  if (parts_.second) places_->addWidget(parts_.second, 0, 1);
  places_->addWidget(parts_.months, 0, meters, 1, 3 - meters);
  places_->addWidget(parts_.contract, 1, 0, 1, meters);
  places_->addWidget(parts_.result, 1, meters, 1, 3 - meters);
  places_->setColumnStretch(2, 1);
  places_->setRowStretch(0, 1);
  content_->setMaximumHeight(kTallestPage * fontMetrics().lineSpacing());
  fullSize_ = content_->sizeHint();
  // Water's contract has a second base fee: its blocks stand below one another before the meters
  // do.
  if (content_->minimumSizeHint().width() > viewport()->width()) arrangeContract(1);
  leastSideBySide_ = content_->minimumSizeHint().width();
  below_ = false;
}

void UtilityPage::placeBelow() {
  clearPlaces();
  parts_.contract->arrange(2);
  // The contract of water is the widest part: its blocks stand below one another as well then.
  const QMargins margins = content_->layout()->contentsMargins();
  const int room = viewport()->width() - margins.left() - margins.right();
  if (parts_.contract->minimumSizeHint().width() > room) parts_.contract->arrange(1);
  places_->addWidget(parts_.first, 0, 0);
  if (parts_.second) places_->addWidget(parts_.second, 1, 0);
  // Two meters are higher than the months: the result fills what is left beside them.
  if (parts_.second) {
    auto* beside = new QVBoxLayout;
    beside->setSpacing(places_->verticalSpacing());
    beside->addWidget(parts_.months);
    beside->addWidget(parts_.result, 1);
    places_->addLayout(beside, 0, 1, 2, 1);
  } else {
    places_->addWidget(parts_.months, 0, 1, 2, 1);
    places_->addWidget(parts_.result, 3, 0, 1, 2);
  }
  places_->addWidget(parts_.contract, 2, 0, 1, 2);
  places_->setColumnStretch(1, 1);
  places_->setRowStretch(1, 1);
  content_->setMaximumHeight(QWIDGETSIZE_MAX);
  below_ = true;
}

void UtilityPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  const bool otherWidth = event->oldSize().width() != event->size().width();
  // What stands on the page changes with the year.
  if (otherWidth)
    placeSideBySide();
  else if (!below_)
    leastSideBySide_ = content_->minimumSizeHint().width();
  const bool narrow = viewport()->width() < leastSideBySide_;
  if (narrow && (!below_ || otherWidth)) placeBelow();
  if (!narrow && below_) placeSideBySide();
}

void UtilityPage::chainFields(const std::vector<QWidget*>& fields, const MonthTable& months) {
  QWidget* previous = nullptr;
  const auto chain = [&](QWidget* next) {
    if (previous) setTabOrder(previous, next);
    previous = next;
  };
  for (QWidget* field : fields) chain(field);
  for (QWidget* field : months.advance) chain(field);
}

QWidget* buttonRow(QWidget* parent, const char* name, std::initializer_list<QWidget*> buttons) {
  auto* row = new QWidget(parent);
  row->setObjectName(QString::fromLatin1(name));
  auto* places = new QHBoxLayout(row);
  places->setContentsMargins(0, 0, 0, 0);
  places->setSpacing(6);
  for (QWidget* button : buttons) places->addWidget(button);
  return row;
}

}  // namespace yearbook
