#include "analysis/ui/frmPrognose.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "analysis/Charts.h"
#include "base/GermanNumber.h"
#include "charts/ui/ChartWidget.h"
#include "widgets/Tones.h"

using namespace Qt::StringLiterals;
using analysis::Meter;
using yearbook::Utility;

namespace {

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

QString wholeEuro(base::Money amount) {
  return text(base::formatNumber(amount.toDouble(), 0)) + u" Euro"_s;
}

// A card with a stripe in the colour of its meter.
class Card final : public QFrame {
 public:
  Card(Meter meter, QWidget* parent) : QFrame(parent), meter_(meter) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr int kStripe = 4;
    const charts::Theme theme = charts::themeOf(palette());
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(charts::toQColor(theme.grid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.fillRect(QRect(0, 0, kStripe, height()),
                     charts::toQColor(theme.color(analysis::hueOf(meter_))));
  }

 private:
  Meter meter_;
};

QLabel* cardLine(const QString& line, double size, bool bold) {
  auto* label = new QLabel(line);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * size);
  font.setBold(bold);
  label->setFont(font);
  label->setForegroundRole(QPalette::Text);
  label->setWordWrap(true);
  // Its lines at their narrowest would make the window taller than a screen.
  label->setMinimumHeight(label->fontMetrics().height());
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setFocusPolicy(Qt::NoFocus);
  return label;
}

}  // namespace

frmPrognose::frmPrognose(const dialogs::Services& services, analysis::Year year,
                         const yearbook::YearSession* open, QWidget* parent)
    : ReportWindow(u"frmPrognose"_s, u"Prognose"_s, services, parent), year_(std::move(year)) {
  auto folder = analysis::readFolder(services_.files, services_.paths.DataFolder, open);
  if (folder) folder_ = std::move(*folder);
  forecast_ = analysis::forecastOf(year_, folder_);
  QString title = u"Prognose – "_s + text(year_.name);
  if (!forecast_.lastMonth.empty()) title += u", Stand Ende "_s + text(forecast_.lastMonth);
  setAccessibleName(windowTitle());
  setWindowTitle(title);
  buildLayout();
  connect(lstZaehler, &QTreeWidget::itemSelectionChanged, this, &frmPrognose::showChart);
  fillTable();
}

QFrame* frmPrognose::buildCard(Utility utility) {
  const analysis::UtilityForecast& part = *forecast_.utilities[utility];
  auto* card = new Card(yearbook::metersOf(utility).front(), this);
  const QString name = utility == Utility::Water ? u"Wasser und Abwasser"_s
                                                 : text(std::string(factsOf(utility).name));
  card->setObjectName(u"fraKarte"_s + text(std::string(factsOf(utility).name)));
  auto* lines = new QVBoxLayout(card);
  lines->setContentsMargins(16, 8, 12, 8);
  lines->setSpacing(4);
  lines->addWidget(cardLine(name, 1, true));
  const QString figure = text(analysis::balanceText(part.balance));
  auto* balance = cardLine(figure, 1.5, true);
  if (part.balance <= base::Money()) widgets::setTone(balance, widgets::Tone::Good);
  lines->addWidget(balance);
  const QString range = u"Spanne: "_s + text(analysis::balanceText(part.balanceLow)) + u" bis "_s +
                        text(analysis::balanceText(part.balanceHigh));
  if (part.payment) lines->addWidget(cardLine(range, 1, false));
  QString payment = u"Das Jahr ist abgelesen."_s;
  if (part.payment)
    payment = u"Passender Abschlag ab "_s + text(part.from) + u": "_s + wholeEuro(*part.payment) +
              u" ("_s + text(base::formatNumber(part.paymentLow->toDouble(), 0)) + u" bis "_s +
              text(base::formatNumber(part.paymentHigh->toDouble(), 0)) + u')';
  lines->addWidget(cardLine(payment, 1, false));
  lines->addStretch(1);
  card->setAccessibleName(name + u": "_s + figure + u". "_s + range + u". "_s + payment);
  return card;
}

QWidget* frmPrognose::buildCards() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(12);
  for (const Utility utility : yearbook::kUtilities)
    if (forecast_.utilities[utility]) layout->addWidget(buildCard(utility), 1);
  return row;
}

void frmPrognose::buildLayout() {
  lblErgebnis->setText(text(analysis::headlineOf(forecast_)));
  QFont title = lblErgebnis->font();
  title.setPointSizeF(title.pointSizeF() * 1.25);
  title.setBold(true);
  lblErgebnis->setFont(title);
  QStringList basis;
  for (const std::string& sentence : analysis::basisOf(forecast_)) basis.append(text(sentence));
  for (const std::string& remark : analysis::remarksOf(folder_)) basis.append(text(remark));
  lblGrundlage->setText(u"<b>Worauf das beruht</b><br>"_s +
                        basis.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s));
  lblGrundlage->setWordWrap(true);
  lblGrundlage->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lblGrundlage->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblGrundlage->setVisible(!basis.isEmpty());
  auto* room = new QScrollArea;
  room->setWidget(lblGrundlage);
  room->setWidgetResizable(true);
  room->setFrameShape(QFrame::NoFrame);
  room->setFocusPolicy(Qt::NoFocus);
  // It has the height that is left; what it would like to have is no reason to scroll the window.
  room->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
  room->setMinimumHeight(4 * fontMetrics().height());
  lstZaehler->setRootIsDecorated(false);
  lstZaehler->setAccessibleName(u"Zähler"_s);

  auto* left = new QVBoxLayout;
  left->setSpacing(8);
  left->addWidget(lstZaehler);
  left->addWidget(room, 1);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(12);
  middle->addLayout(left, 4);
  middle->addWidget(picMonate, 5);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(16, 12, 16, 12);
  page->setSpacing(12);
  page->addWidget(lblErgebnis);
  page->addWidget(buildCards());
  page->addLayout(middle, 1);
  page->addLayout(buildButtons());
  openAs({1160, 600});
}

void frmPrognose::fillTable() {
  const reports::Grid grid = analysis::tableOf(forecast_);
  const charts::Theme theme = charts::themeOf(palette());
  analysis::showHeadings(lstZaehler, grid);
  int row = 1;
  for (const Meter meter : analysis::kMeters) {
    if (!forecast_.meters[meter]) continue;
    auto* item = new QTreeWidgetItem(lstZaehler);
    analysis::showRow(item, grid, row++);
    item->setData(0, Qt::UserRole, static_cast<int>(meter));
    item->setIcon(
        0, widgets::colorMark(palette(), charts::toQColor(theme.color(analysis::hueOf(meter)))));
  }
  auto* sum = new QTreeWidgetItem(lstZaehler);
  analysis::showRow(sum, grid, grid.rows() - 1);
  sum->setFlags(Qt::ItemIsEnabled);
  analysis::fitColumns(lstZaehler);
  // The cards show balance and payment.
  for (const int column : {5, 7, 8}) lstZaehler->setColumnHidden(column, true);
  lstZaehler->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // it shows all its rows
  const QHeaderView* header = lstZaehler->header();
  const int head = std::max(header->sizeHint().height(), header->minimumHeight());
  lstZaehler->setFixedHeight(lstZaehler->sizeHintForRow(0) * lstZaehler->topLevelItemCount() +
                             head + 2 * lstZaehler->frameWidth());
  lstZaehler->setMinimumWidth(lstZaehler->header()->length() + 2 * lstZaehler->frameWidth());
  lstZaehler->setVisible(row > 1);
  picMonate->setVisible(row > 1);
  if (row > 1) lstZaehler->setCurrentItem(lstZaehler->topLevelItem(row - 2));
}

void frmPrognose::showChart() {
  const QTreeWidgetItem* item = lstZaehler->currentItem();
  if (!item || !item->data(0, Qt::UserRole).isValid()) return;
  const auto meter = static_cast<Meter>(item->data(0, Qt::UserRole).toInt());
  picMonate->show(
      [this, meter](const analysis::Frame& frame) {
        return analysis::forecastMonths(frame, forecast_, meter, folder_.yearBefore(year_));
      },
      u"Diagramm: Monate, abgelesen und erwartet, "_s +
          text(std::string(analysis::spokenName(meter))));
}

reports::Grid frmPrognose::shownTable() const {
  return analysis::tableOf(forecast_);
}

reports::Grid frmPrognose::csvTable() const {
  return analysis::csvTableOf(forecast_);
}
