#include "readings/ui/MeterRow.h"

#include <QGridLayout>

#include "base/GermanNumber.h"
#include "widgets/control.h"

using namespace Qt::Literals::StringLiterals;

namespace readings {
namespace {

constexpr int kDigits = 9;

QString number(double value) {
  return QString::fromStdString(base::formatShort(value, 3, true));
}

template <class T>
T* named(QWidget* window, const char* name, Meter meter) {
  auto* made = new T(window);
  made->setObjectName(u"%1_%2"_s.arg(QLatin1String(name)).arg(static_cast<int>(meter)));
  return made;
}

MarkedLabel* quiet(MarkedLabel* label) {
  label->setMark(MarkedLabel::Mark::Quiet);
  return label;
}

}  // namespace

MeterRow::MeterRow(Meter meter, QWidget* window, QGridLayout* grid, int firstLine)
    : QObject(window),
      lblZaehler(named<MarkedLabel>(window, "lblZaehler", meter)),
      lblDavor(named<MarkedLabel>(window, "lblDavor", meter)),
      txtStand(named<widgets::NumberField>(window, "txtStand", meter)),
      lblVerbrauch(named<MarkedLabel>(window, "lblVerbrauch", meter)),
      lblUeblich(named<MarkedLabel>(window, "lblUeblich", meter)),
      lblKosten(named<QLabel>(window, "lblKosten", meter)),
      chkWechsel(named<QCheckBox>(window, "chkWechsel", meter)),
      chkWieWasser(meter == Meter::WasteWater ? widgets::control<QCheckBox>(window, "chkWieWasser")
                                              : nullptr),
      txtAlterEndstand(named<widgets::NumberField>(window, "txtAlterEndstand", meter)),
      txtNeuerAnfang(named<widgets::NumberField>(window, "txtNeuerAnfang", meter)),
      lblWechsel(named<MarkedLabel>(window, "lblWechsel", meter)),
      lblHinweis(named<MarkedLabel>(window, "lblHinweis", meter)),
      meter_(meter),
      mark_(new QLabel(window)),
      lblEinheit_(new QLabel(utf8(factsOf(meter).unit), window)),
      lblVerbrauchseinheit_(new QLabel(window)),
      changeLine_(new QWidget(window)) {
  const QString name = spokenName(meter);
  lblZaehler->setText(name);
  txtStand->setAccessibleName(u"Neuer Stand "_s + name);
  for (const auto& [label, what] :
       std::initializer_list<std::pair<QLabel*, QString>>{{lblDavor, u"Stand davor "_s},
                                                          {lblVerbrauch, u"Verbrauch "_s},
                                                          {lblUeblich, u"Üblicher Verbrauch "_s},
                                                          {lblKosten, u"Kosten brutto "_s}})
    label->setAccessibleName(what + name);
  txtStand->setToolTip(u"Stand am Monatsende, volle "_s + utf8(factsOf(meter).unit));
  chkWechsel->setText(u"Zähler gewechselt"_s);
  chkWechsel->setAccessibleName(u"Zähler gewechselt, "_s + name);
  txtAlterEndstand->setAccessibleName(u"Alter Zähler, Endstand "_s + name);
  txtNeuerAnfang->setAccessibleName(u"Neuer Zähler, Anfangsstand "_s + name);
  for (widgets::NumberField* field : {txtStand, txtAlterEndstand, txtNeuerAnfang}) {
    field->setDecimals(0, 3);
    setDigits(field, kDigits);
    connect(field, &widgets::NumberField::valueChanged, this, &MeterRow::edited);
  }
  connect(chkWechsel, &QCheckBox::toggled, this, [this] {
    if (chkWechsel->isChecked() && txtAlterEndstand->valueOrZero() == 0)
      txtAlterEndstand->setValue(readingBefore(year_, position_).reading);
    showChangeLine();
    Q_EMIT edited();
  });
  if (chkWieWasser) {
    chkWieWasser->setText(u"wie Wasser"_s);
    chkWieWasser->setToolTip(u"Das Abwasser wird am Wasserzähler abgelesen"_s);
    chkWieWasser->setAccessibleName(u"Abwasser wie Wasser"_s);
  }
  place(grid, firstLine);
}

void MeterRow::place(QGridLayout* grid, int line) {
  constexpr auto kRight = Qt::AlignRight | Qt::AlignVCenter;
  auto* name = new QHBoxLayout;
  name->setSpacing(8);
  name->addWidget(mark_);
  name->addWidget(lblZaehler, 1);
  grid->addLayout(name, line, kName);
  grid->addWidget(quiet(lblDavor), line, kBefore, kRight);
  grid->addWidget(txtStand, line, kField);
  grid->addWidget(lblEinheit_, line, kUnit);
  QFont bold = lblVerbrauch->font();
  bold.setBold(true);
  lblVerbrauch->setFont(bold);
  grid->addWidget(lblVerbrauch, line, kUsed, kRight);
  grid->addWidget(lblVerbrauchseinheit_, line, kUsedUnit);
  grid->addWidget(quiet(lblUeblich), line, kUsual, kRight);
  grid->addWidget(lblKosten, line, kCost, kRight);
  auto* boxes = new QHBoxLayout;
  boxes->setSpacing(12);
  if (chkWieWasser) boxes->addWidget(chkWieWasser);
  boxes->addWidget(chkWechsel);
  boxes->addStretch();
  grid->addLayout(boxes, line, kBox);
  auto* change = new QHBoxLayout(changeLine_);
  change->setContentsMargins(18, 0, 0, 0);
  change->setSpacing(8);
  change->addWidget(new QLabel(u"Alter Zähler, Endstand"_s, changeLine_));
  change->addWidget(txtAlterEndstand);
  change->addSpacing(8);
  change->addWidget(new QLabel(u"Neuer Zähler, Anfangsstand"_s, changeLine_));
  change->addWidget(txtNeuerAnfang);
  change->addSpacing(8);
  change->addWidget(quiet(lblWechsel), 1);
  lblWechsel->setWordWrap(true);
  grid->addWidget(changeLine_, line + 1, kName, 1, kBox + 1);
  lblHinweis->setMark(MarkedLabel::Mark::Doubt);
  grid->addWidget(lblHinweis, line + 2, kField, 1, kBox - kField + 1);
}

void MeterRow::setShown(bool shown) {
  shown_ = shown;
  for (QWidget* widget : std::initializer_list<QWidget*>{
           mark_, lblZaehler, lblDavor, txtStand, lblEinheit_, lblVerbrauch, lblVerbrauchseinheit_,
           lblUeblich, lblKosten, lblHinweis})
    widget->setVisible(shown);
  if (chkWieWasser) chkWieWasser->setVisible(shown);
  showChangeLine();
}

void MeterRow::load(const MeterYear& year, int position, const QString& monthRead, double vat) {
  year_ = year;
  position_ = position;
  vat_ = vat;
  const MonthEntry stored = entryOf(year, position);
  const ReadingBefore before = readingBefore(year, position);
  // Without the room that an icon has around it: it begins where the other lines begin.
  constexpr int kIcon = 16;
  constexpr QRectF kMark(3, 3, 10, 10);
  const QPixmap icon = markOf(meter_, mark_->palette()).pixmap(kIcon);
  const qreal scale = icon.devicePixelRatio();
  mark_->setPixmap(icon.copy(QRectF(kMark.topLeft() * scale, kMark.size() * scale).toRect()));
  QString text = before.reading != 0 ? number(before.reading) : QString();
  if (!text.isEmpty() && !monthRead.isEmpty()) text += u" (%1)"_s.arg(monthRead);
  lblDavor->setText(text);
  txtStand->setValue(stored.reading != 0 ? std::optional(stored.reading) : std::nullopt);
  const QSignalBlocker quietly(chkWechsel);
  chkWechsel->setChecked(stored.changed);
  txtAlterEndstand->setValue(stored.changed ? std::optional(stored.oldEnd) : std::nullopt);
  txtNeuerAnfang->setValue(stored.changed ? std::optional(stored.newStart) : std::nullopt);
  const auto usual = usualConsumption(year, position);
  lblUeblich->setText(usual ? QString::fromStdString(base::formatNumber(*usual, 0)) : QString());
  showChangeLine();
}

void MeterRow::follow(const MeterRow* other) {
  followed_ = other;
  txtStand->setReadOnly(other);
  txtStand->setFocusPolicy(other ? Qt::NoFocus : Qt::StrongFocus);
  txtStand->setFrame(!other);
  QPalette ground;
  ground.setResolveMask(0);
  if (other) ground.setBrush(QPalette::Base, Qt::transparent);
  txtStand->setPalette(ground);
  showChangeLine();
}

void MeterRow::showChangeLine() {
  chkWechsel->setVisible(shown_ && !followed_);
  changeLine_->setVisible(shown_ && !followed_ && chkWechsel->isChecked());
}

MonthEntry MeterRow::entry() const {
  if (followed_) return followed_->entry();
  MonthEntry typed;
  typed.reading = txtStand->valueOrZero();
  typed.changed = chkWechsel->isChecked();
  if (!typed.changed) return typed;
  typed.oldEnd = txtAlterEndstand->valueOrZero();
  typed.newStart = txtNeuerAnfang->valueOrZero();
  return typed;
}

std::optional<MonthOutcome> MeterRow::outcome() const {
  const MonthEntry typed = entry();
  if (typed.reading == 0 && !typed.changed && year_.readings[position_] == 0) return std::nullopt;
  return putIn(factsOf(meter_).rule, year_, position_, typed);
}

std::optional<Money> MeterRow::cost() const {
  const auto result = outcome();
  if (!result || !result->amount || entry().reading == 0) return std::nullopt;
  return yearbook::grossOf(*result->amount, vat_);
}

bool MeterRow::isDoubtful() const {
  const auto result = outcome();
  return shown_ && result && result->doubt != Doubt::None;
}

void MeterRow::showOutcome() {
  const auto result = outcome();
  const bool typed = result && entry().reading != 0;
  if (followed_) txtStand->setValue(typed ? std::optional(entry().reading) : std::nullopt);
  const QString unit = utf8(factsOf(meter_).unit);
  const QString used = typed ? number(result->consumption) : QString();
  const bool doubt = typed && result->doubt != Doubt::None;
  lblVerbrauch->setText(used);
  lblVerbrauchseinheit_->setText(typed ? unit : QString());
  lblVerbrauch->setMark(doubt ? MarkedLabel::Mark::Doubt : MarkedLabel::Mark::None);
  const auto money = cost();
  lblKosten->setText(money ? QString::fromStdString(formatMoney(*money)) + u" Euro"_s : QString());
  QString hint;
  if (result) hint = QString::fromStdString(result->problem);
  if (hint.isEmpty() && doubt)
    hint = u"⚠ Ergibt %1 %2: %3."_s.arg(used, unit, utf8(wordsOf(result->doubt)));
  lblHinweis->setText(hint);
  txtStand->setAccessibleDescription(hint);
  if (!typed || !entry().changed) return;
  QString text = u"Verbrauch: alter %1 + neuer %2 %3"_s.arg(number(result->oldPart),
                                                            number(result->newPart), unit);
  if (result->virtualReading)
    text += u". Gespeichert wird %1, der Stand, den der alte Zähler am Monatsende hätte."_s.arg(
        number(*result->virtualReading));
  lblWechsel->setText(text);
}

}  // namespace readings
