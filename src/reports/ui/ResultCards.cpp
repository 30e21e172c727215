#include "reports/ui/ResultCards.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/Tones.h"
#include "widgets/Utf8.h"
#include "yearbook/MeterColors.h"

using namespace Qt::StringLiterals;

namespace reports {
namespace {

constexpr int kStripe = 4;
constexpr int kRadius = 4;
// In letters; a narrower page has the cards two and one, or one below the other.
constexpr int kLeastWidth = 34;

}  // namespace

class ResultCards::Card final : public QWidget {
 public:
  Card(Utility utility, QWidget* parent) : QWidget(parent), utility_(utility) {
    setObjectName(u"fraErgebnis"_s + widgets::utf8(factsOf(utility).name));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(kStripe + 10, 8, 10, 8);
    rows->setSpacing(2);
    for (QLabel* label : {name_, headline_, doubt_, sum_, fitting_, standing_}) {
      label->setTextInteractionFlags(Qt::TextSelectableByMouse);
      label->setWordWrap(true);
      rows->addWidget(label);
    }
    rows->addStretch(1);
    QFont bold = font();
    bold.setBold(true);
    name_->setFont(bold);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    headline_->setFont(bold);
    widgets::setTone(doubt_, widgets::Tone::Doubt);
    standing_->setForegroundRole(QPalette::PlaceholderText);
    standing_->setToolTip(
        u"Es zählen die Monate bis zur letzten Ablesung. Die Tabelle darunter zählt alles, was "
        "eingetragen ist, auch Abschläge kommender Monate."_s);
  }

  void show(const YearResult& result) {
    const std::pair<QLabel*, const std::string*> lines[] = {
        {name_, &result.name}, {headline_, &result.headline}, {doubt_, &result.doubt},
        {sum_, &result.sum},   {fitting_, &result.fitting},   {standing_, &result.standing}};
    QStringList spoken;
    for (const auto& [label, text] : lines) {
      label->setText(QString::fromStdString(*text));
      label->setVisible(!text->empty());
      if (!text->empty()) spoken += label->text();
    }
    if (!result.standing.empty()) {
      standing_->setText(standing_->text() + u". Ganzes Jahr: Auswertung > Prognose."_s);
      spoken.back() = standing_->text();
    }
    if (!result.doubt.empty()) doubt_->setText(u"⚠ "_s + doubt_->text());
    headline_->setText(headline_->text().replace(u" Euro"_s, u"\u00a0Euro"_s));
    setAccessibleName(spoken.join(u". "_s));
    credit_ = result.kind == YearResult::Kind::Credit;
    color();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) color();
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.fillPath(shape, palette().base());
    painter.setClipPath(shape);
    const auto& colors = yearbook::kMeterColors[factsOf(utility_).mainMeter];
    painter.fillRect(0, 0, kStripe, height(),
                     widgets::onGround(palette(), colors.light, colors.dark));
    painter.setClipping(false);
    QColor line = palette().color(QPalette::Text);
    line.setAlphaF(0.2F);
    painter.setPen(line);
    painter.drawPath(shape);
  }

 private:
  void color() {
    const QColor own = widgets::toneOf(widgets::Tone::Good, palette());
    QPalette text = headline_->palette();
    const QColor wanted = credit_ ? own : palette().color(QPalette::Text);
    if (text.color(QPalette::WindowText) == wanted) return;
    text.setColor(QPalette::WindowText, wanted);
    headline_->setPalette(text);
  }

  Utility utility_;
  bool credit_ = false;
  QLabel* name_ = new QLabel(this);
  QLabel* headline_ = new QLabel(this);
  QLabel* doubt_ = new QLabel(this);
  QLabel* sum_ = new QLabel(this);
  QLabel* fitting_ = new QLabel(this);
  QLabel* standing_ = new QLabel(this);
};

ResultCards::ResultCards(QWidget* parent) : QWidget(parent) {
  setObjectName(u"fraErgebnisse"_s);
  setAccessibleName(u"Ergebnis in Worten"_s);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(10);
  for (Utility utility : yearbook::kUtilities) cards_[utility] = new Card(utility, this);
  place(3);
}

void ResultCards::show(const PerUtility<YearResult>& results) {
  for (Utility utility : yearbook::kUtilities) cards_[utility]->show(results[utility]);
}

void ResultCards::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int least = kLeastWidth * fontMetrics().averageCharWidth();
  place(std::clamp(width() / std::max(1, least), 1, 3));
}

void ResultCards::place(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  auto* grid = static_cast<QGridLayout*>(layout());
  for (int i = 0; i < 3; ++i) grid->setColumnStretch(i, i < columns ? 1 : 0);
  int at = 0;
  for (Card* card : cards_) {
    grid->removeWidget(card);
    grid->addWidget(card, at / columns, at % columns);
    ++at;
  }
}

}  // namespace reports
